#pragma once
// Body of PlaybackSubType::MonthSearch (GUI -> App): which days of a month hold recordings
// of these channels. App answers with a MonthSearchResult.
#include "protocol/PlaybackChannelBits.h"

#include <cstddef>
#include <cstdint>

struct MonthSearchRequest {
    static constexpr size_t kSize = 32; // bytes on the wire
    // maskChoice: which of the model's two channel masks the channel set was cut to.
    static constexpr uint8_t kPlaybackMask = 0; // channels the user may play back
    static constexpr uint8_t kBackupMask = 1;   // channels the user may back up

    uint16_t year = 0;
    uint8_t month = 0;
    uint8_t day = 1;      // always the first of the month
    uint8_t dayCount = 0; // days in that month
    uint8_t reserved0[3] = {};
    uint8_t channelBits[PlaybackChannelBits::kBytes] = {};
    uint32_t searchType = 0; // record-type bits to look for; 0: any
    uint8_t maskChoice = 0;
    uint8_t mainStream = 1; // 1: main stream recordings, 0: sub stream
    uint16_t reserved1 = 0;
};

static_assert(sizeof(MonthSearchRequest) == MonthSearchRequest::kSize, "wire size");
static_assert(offsetof(MonthSearchRequest, channelBits) == 8, "channelBits");
static_assert(offsetof(MonthSearchRequest, searchType) == 24, "searchType");
