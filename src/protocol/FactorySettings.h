#pragma once
// What a recorder leaves the factory with in the encoding, daylight-saving, DDNS and
// privacy-mask blocks. The simulator starts its store from these values and the settings
// pages' Default puts them back, so both agree on what "factory" means. Fields that are
// App's (an encoder's limits, a DDNS status, the channel number) are never touched.
#include "protocol/DateTimeBlock.h"
#include "protocol/DdnsBlock.h"
#include "protocol/PrivacyMaskBlock.h"
#include "protocol/StreamBlock.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

struct FactorySettings {
    // The recorded main stream: full HD where the encoder can, at the PAL rate.
    static constexpr uint8_t kMainResolution = 2; // index into StreamBlock::kResolutions
    static constexpr uint8_t kMainFrameRate = 25; // frames per second
    static constexpr uint16_t kMainBitrateKbps = 4096;
    static constexpr uint8_t kMainQuality = 4;
    static constexpr uint16_t kMainIFrameInterval = 50; // frames: a key frame every 2 s
    // The sub-stream for remote clients and multi-cell views: D1 at a low rate.
    static constexpr uint8_t kSubResolution = 4; // 704x576
    static constexpr uint8_t kSubFrameRate = 15;
    static constexpr uint16_t kSubBitrateKbps = 512;
    static constexpr uint8_t kSubQuality = 3;
    static constexpr uint16_t kSubIFrameInterval = 30;

    // Daylight saving off, with the common European rule ready to switch on: from the last
    // Sunday of March 02:00 to the last Sunday of October 03:00, one hour forward.
    static constexpr uint8_t kDstOffsetMin = 60;
    static constexpr DateTimeBlock::DstRule kDstStart = {3, DateTimeBlock::kLastWeek, 0, 1, 2, {}};
    static constexpr DateTimeBlock::DstRule kDstEnd = {10, DateTimeBlock::kLastWeek, 0, 1, 3, {}};

    // One stream's user fields, each brought within the limits App sent with it.
    static void setStream(StreamBlock::Stream* s, bool main) {
        const uint8_t resolution = main ? kMainResolution : kSubResolution;
        s->resolution = uint8_t(
            std::clamp<int>(resolution, s->maxResolution, StreamBlock::kResolutionCount - 1));
        const int maxRate = std::max<int>(StreamBlock::kMinFrameRate, s->maxFrameRate);
        s->frameRate = uint8_t(std::min<int>(main ? kMainFrameRate : kSubFrameRate, maxRate));
        s->bitrateMode = main ? StreamBlock::Constant : StreamBlock::Variable;
        s->quality = main ? kMainQuality : kSubQuality;
        const int maxRateKbps = std::max<int>(StreamBlock::kMinBitrateKbps, s->maxBitrateKbps);
        s->bitrateKbps =
            uint16_t(std::min<int>(main ? kMainBitrateKbps : kSubBitrateKbps, maxRateKbps));
        s->iFrameInterval = main ? kMainIFrameInterval : kSubIFrameInterval;
        s->codec = main ? StreamBlock::H265 : StreamBlock::H264;
        s->audio = 0;
    }
    static void setEncoding(StreamBlock* b) {
        setStream(&b->streams[0], true);
        setStream(&b->streams[1], false);
    }
    // Only the daylight-saving fields: the zone and the clock belong to the date and time.
    static void setDst(DateTimeBlock* b) {
        b->dstEnabled = 0;
        b->dstMode = DateTimeBlock::ByWeek;
        b->dstOffsetMin = kDstOffsetMin;
        b->dstStart = kDstStart;
        b->dstEnd = kDstEnd;
    }
    // Off, the built-in service, no account.
    static void setDdns(DdnsBlock* b) {
        b->enabled = 0;
        b->provider = DdnsBlock::BuiltIn;
        std::fill(std::begin(b->host), std::end(b->host), '\0');
        std::fill(std::begin(b->user), std::end(b->user), '\0');
        std::fill(std::begin(b->password), std::end(b->password), '\0');
        std::fill(std::begin(b->server), std::end(b->server), '\0');
    }
    static void setPrivacyMasks(PrivacyMaskBlock* b) {
        b->enabled = 0;
        std::fill(std::begin(b->masks), std::end(b->masks), PrivacyMaskBlock::Mask{});
    }
};
