#pragma once
// Parameter block 5, one channel's video encoding: the main stream (recorded) and the
// sub-stream (sent to remote clients and used for multi-cell live views), each with its own
// picture size, frame rate, bit-rate control, I-frame interval, codec and audio. The limits
// of each stream are App's (what the encoder of this channel can do); a set carries them
// back unchanged. A get names the channel in the request's index; a set carries it in
// `channel`.
#include "protocol/ParamBlock.h"

#include <cstddef>
#include <cstdint>

struct StreamBlock {
    static constexpr uint32_t kBlockNumber = ParamBlock::Encode.number;
    static constexpr size_t kSize = ParamBlock::Encode.size; // bytes on the wire
    static constexpr int kStreams = 2;                       // main, sub
    static constexpr int kResolutionCount = 7;
    static constexpr uint8_t kMinFrameRate = 1; // frames per second
    static constexpr uint16_t kMinBitrateKbps = 64;
    static constexpr uint8_t kMinQuality = 1;         // lowest
    static constexpr uint8_t kMaxQuality = 6;         // highest
    static constexpr uint16_t kMinIFrameInterval = 1; // frames
    static constexpr uint16_t kMaxIFrameInterval = 200;
    enum BitrateMode : uint8_t { Constant = 0, Variable = 1 };
    enum Codec : uint8_t { H264 = 0, H265 = 1, CodecCount = 2 };

    // Picture sizes, largest first: a stream's `maxResolution` is the smallest index it may
    // take.
    struct Size {
        uint16_t width, height;
    };
    static constexpr Size kResolutions[kResolutionCount] = {
        {3840, 2160}, {2560, 1440}, {1920, 1080}, {1280, 720}, {704, 576}, {640, 360}, {352, 288}};

    struct Stream {
        uint8_t resolution;      // index into kResolutions, maxResolution..kResolutionCount - 1
        uint8_t frameRate;       // kMinFrameRate..maxFrameRate
        uint8_t bitrateMode;     // BitrateMode
        uint8_t quality;         // kMinQuality..kMaxQuality, used in Variable mode
        uint16_t bitrateKbps;    // Constant: the rate; Variable: the ceiling
        uint16_t iFrameInterval; // frames between key frames
        uint8_t codec;           // Codec
        uint8_t audio;           // 0 or 1: the channel's audio in this stream
        // App's limits, not the user's.
        uint8_t maxResolution;
        uint8_t maxFrameRate;
        uint16_t maxBitrateKbps;
        uint8_t reserved14[2];
    };

    uint8_t channel; // 0-based
    uint8_t reserved1[3];
    Stream streams[kStreams];
    uint8_t reserved36[988];
};

static_assert(sizeof(StreamBlock::Stream) == 16, "stream record");
static_assert(sizeof(StreamBlock) == StreamBlock::kSize, "wire size");
static_assert(offsetof(StreamBlock, streams) == 4, "streams");
