#pragma once
// The system information record: App's description of the device, the answer to request
// (MainType::System, SystemSubType::SystemInfo). The GUI fetches it once at start and never
// writes it back; recorder-sim builds its reply from this same header.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

struct SystemInfoRecord {
    static constexpr size_t kSize = 256; // bytes on the wire

    char softwareVersion[32];    // NUL-terminated text
    char hardwareVersion[16];    // NUL-terminated text
    char displayDevice[24];      // framebuffer node; empty: VY_FBDEV_NODE or "/dev/fb0"
    uint8_t channelCount;        // all channels; sizes the per-channel tables
    uint8_t ipChannelCount;      // network-camera channels; drives the delayed start
    uint8_t analogChannelCount;  // analogue inputs
    uint8_t alarmInputCount;     // sensor inputs
    uint8_t alarmOutputCount;    // relay outputs
    uint8_t diskCount;           // disk slots
    uint8_t audioChannelCount;   // audio inputs
    uint8_t reserved79;          // keeps serialNumber on a word boundary
    char serialNumber[32];       // NUL-terminated text
    char modelName[29];          // NUL-terminated text
    uint8_t dateMode;            // non-zero: the alternative (Persian) calendar
    uint8_t reserved142[27];     // App's own, not read by the GUI
    uint8_t outputCheckDisabled; // non-zero: skip the start-up resolution check
    uint8_t reserved170[78];     // App's own, not read by the GUI
    uint8_t alarmInfoPresent;    // non-zero: the device reports alarm details
    uint8_t reserved249[7];      // pads the record to its wire size

    // The display-device name; never reads past the field, even without a terminating NUL.
    std::string displayDeviceName() const {
        return std::string(displayDevice, strnlen(displayDevice, sizeof displayDevice));
    }
};

static_assert(sizeof(SystemInfoRecord) == SystemInfoRecord::kSize, "wire size");
static_assert(offsetof(SystemInfoRecord, displayDevice) == 48, "display device");
static_assert(offsetof(SystemInfoRecord, channelCount) == 72, "channel count");
static_assert(offsetof(SystemInfoRecord, ipChannelCount) == 73, "ip channel count");
static_assert(offsetof(SystemInfoRecord, alarmInputCount) == 75, "alarm inputs");
static_assert(offsetof(SystemInfoRecord, alarmOutputCount) == 76, "alarm outputs");
static_assert(offsetof(SystemInfoRecord, dateMode) == 141, "date mode");
static_assert(offsetof(SystemInfoRecord, outputCheckDisabled) == 169, "output check switch");
static_assert(offsetof(SystemInfoRecord, alarmInfoPresent) == 248, "alarm info switch");
