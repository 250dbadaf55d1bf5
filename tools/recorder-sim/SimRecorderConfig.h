#pragma once
// What the simulated recorder says about itself, read from a "key = value" file ('#' starts
// a comment). Keys:
//   channels, ip_channels, analog_channels, alarm_inputs, alarm_outputs, disks  (counts)
//   display_device       framebuffer node in the system information; empty by default so
//                        that the GUI's $VY_FBDEV_NODE applies
//   date_mode, output_check_disabled, alarm_info   (system information switches, 0/1)
//   color_profile        answer to the colour-profile request (1000, 104)
//   early_stage1         1: send stage 1 as soon as the GUI connects, before its hello
//   store                file the parameter store persists to
//   cameras              bit mask of the channels with a camera (bit 0 = channel 1); by
//                        default every channel but the last two has one
//   name.N = TEXT        the name of channel N (from 1); default "CAMERA N"
//   block.N.OFFSET = V   byte OFFSET of parameter block N, unless the store file has block N
//   block.N.size = S     block N is S bytes long (shorter than the GUI asks: a short reply)
//   record_seed          seed of the recording database (SimRecordDb.h)
//   usb_free_mib         free space of the simulated USB stick; 0: no stick
#include "protocol/GeneralSettingsBlock.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <utility>

struct SimRecorderConfig {
    // The byte of the general settings' language index; the simulator starts in English
    // (language 4 of the language table) unless the config or its store says otherwise.
    static constexpr uint32_t kLanguageIndexByte = offsetof(GeneralSettingsBlock, languageIndex);
    static constexpr uint8_t kDefaultLanguage = 4;

    uint8_t channels = 8;
    uint8_t ipChannels = 4;
    uint8_t analogChannels = 4;
    uint8_t alarmInputs = 4;
    uint8_t alarmOutputs = 1;
    uint8_t disks = 2;
    std::string displayDevice;
    uint8_t dateMode = 0;
    uint8_t outputCheckDisabled = 0;
    uint8_t alarmInfo = 0;
    uint32_t colorProfile = 0;
    uint32_t recordSeed = 1;
    uint32_t usbFreeMiB = 8192;
    bool earlyStage1 = false;
    std::string storePath;
    uint64_t cameraMask = 0;
    bool cameraMaskSet = false;
    std::map<int, std::string> channelNames; // 0-based channel -> name
    std::map<uint32_t, uint32_t> blockSizes; // block -> bytes
    std::map<std::pair<uint32_t, uint32_t>, uint8_t> blockBytes{
        {{GeneralSettingsBlock::kBlockNumber, kLanguageIndexByte}, kDefaultLanguage}};
    // (block, offset) -> value

    // Reads the file over the defaults. A line that does not parse is reported in `error`
    // (file and line) and skipped. False only when the file cannot be opened.
    bool load(const std::string& path, std::string* error);
    // Applies one "key = value" pair; false for an unknown key or a bad value.
    bool set(const std::string& key, const std::string& value);
};
