#pragma once
// Parameter block 12, the video output settings: the main output's device and resolution
// (the tail the start-up resolution check reads), menu transparency, the live sequence and
// the spot output.
#include <cstddef>
#include <cstdint>

struct OutputSettingsBlock {
    static constexpr uint32_t kBlockNumber = 12;
    static constexpr size_t kSize = 352; // bytes on the wire

    // Resolution indices, also the index into UiManager::outputResolutionName().
    enum Resolution : uint8_t { R1080p = 0, R720p = 1, R1024p = 2, R768p = 3, R600p = 4 };
    enum SpotStandard : uint8_t { SpotPal = 0, SpotNtsc = 1 };
    static constexpr uint32_t kMinDwellSec = 3;
    static constexpr uint32_t kMaxDwellSec = 300;
    // Check state: 0 settled, 2 a change was refused and must be noticed once more.
    static constexpr uint8_t kCheckSettled = 0;
    static constexpr uint8_t kCheckNotice = 2;

    uint32_t splitMode;        // default live layout
    uint32_t sequenceDwellSec; // seconds per sequence step, 0 off
    uint8_t transparency;      // menu transparency, 0..255
    uint8_t spotEnabled;       // the spot (CVBS) output cycles through spotChannels
    uint8_t spotStandard;      // SpotStandard: the spot output's picture format
    uint8_t reserved11;
    uint32_t spotDwellSec; // seconds per channel on the spot output
    uint64_t spotChannels; // bit c: channel c takes a turn
    uint8_t reserved24[304];
    uint8_t outputDevice;        // 0 HDMI and VGA together, 1 HDMI only, 2 VGA only
    uint8_t resolution;          // R: resolution in use
    uint8_t refreshRate;         // Hz / 10
    uint8_t checkState;          // S
    uint8_t confirmedResolution; // P: the last resolution the user kept
    uint8_t reserved333[19];     // pads the block to its wire size
};

static_assert(sizeof(OutputSettingsBlock) == OutputSettingsBlock::kSize, "wire size");
static_assert(offsetof(OutputSettingsBlock, spotDwellSec) == 12, "spot dwell");
static_assert(offsetof(OutputSettingsBlock, spotChannels) == 16, "spot channels");
static_assert(offsetof(OutputSettingsBlock, resolution) == 329, "R");
static_assert(offsetof(OutputSettingsBlock, checkState) == 331, "S");
static_assert(offsetof(OutputSettingsBlock, confirmedResolution) == 332, "P");
