#pragma once
// App's answers to the record searches, checked before anything is kept: a short body, a
// channel that was not asked for, an absurd segment count or a segment that ends before it
// starts gets a log line and is left out, never trusted.
#include "model/RecordChannel.h"
#include "model/RecordTag.h"
#include "model/RecordThumbnail.h"
#include "protocol/MonthSearchResult.h"
#include "protocol/PlaybackStatus.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

class RecordSearchReply {
public:
    // The segments of one channel (PlaybackSubType::DayResult). `asked` lists the channels
    // searched for; segments are cut to [rangeStart, rangeEnd) and those left empty dropped.
    static std::optional<RecordChannel> parseDay(const uint8_t* body, size_t len,
                                                 const std::vector<int>& asked,
                                                 const VyDateTime& rangeStart,
                                                 const VyDateTime& rangeEnd);
    static std::optional<MonthSearchResult> parseMonth(const uint8_t* body, size_t len);
    static std::optional<PlaybackStatus> parseStatus(const uint8_t* body, size_t len);
    // The tags of a tag search (TagSearchResult + PlaybackTag list); a count beyond the cap
    // or the body is cut with a line, tags with an impossible time are left out.
    static std::optional<std::vector<RecordTag>> parseTags(const uint8_t* body, size_t len);
    // The pictures of a thumbnail request for `channel`; refused for another channel or a
    // picture size beyond ThumbnailReply's limits, cut like the tags for a count.
    static std::optional<std::vector<RecordThumbnail>> parseThumbnails(const uint8_t* body,
                                                                       size_t len, int channel);
};
