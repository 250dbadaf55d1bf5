#include "model/RecordSearchReply.h"

#include "model/RecDataManager.h"
#include "protocol/DaySearchResult.h"
#include "runtime/VyLog.h"

#include <algorithm>
#include <cstring>

std::optional<RecordChannel> RecordSearchReply::parseDay(const uint8_t* body, size_t len,
                                                         const std::vector<int>& asked,
                                                         const VyDateTime& rangeStart,
                                                         const VyDateTime& rangeEnd) {
    if (body == nullptr || len < DaySearchResult::kSize) {
        VY_GUI_LOG("record search reply too short: %zu bytes !!!\n", len);
        return std::nullopt;
    }
    DaySearchResult head;
    std::memcpy(&head, body, sizeof head);
    if (std::find(asked.begin(), asked.end(), int(head.channel)) == asked.end()) {
        VY_GUI_LOG("record search reply for channel %u not asked for !!!\n", head.channel);
        return std::nullopt;
    }
    const VyDateTime day = RecDataManager::unpack(head.day);
    if (!day.isValid()) {
        VY_GUI_LOG("record search reply with invalid date !!!\n");
        return std::nullopt;
    }
    uint32_t count = head.segmentCount;
    if (count > DaySearchResult::kMaxSegments) {
        VY_GUI_LOG("segment count %u capped to %u !!!\n", count, DaySearchResult::kMaxSegments);
        count = DaySearchResult::kMaxSegments;
    }
    const size_t present = (len - DaySearchResult::kSize) / RecordSegmentEntry::kSize;
    if (count > present) {
        VY_GUI_LOG("segment count %u but %zu in the body !!!\n", count, present);
        count = uint32_t(present);
    }
    RecordChannel out;
    out.channel = int(head.channel);
    out.segments.reserve(count);
    const uint8_t* p = body + DaySearchResult::kSize;
    size_t dropped = 0;
    for (uint32_t i = 0; i < count; ++i, p += RecordSegmentEntry::kSize) {
        RecordSegmentEntry e;
        std::memcpy(&e, p, sizeof e);
        if (e.end <= e.start) {
            ++dropped;
            continue;
        }
        RecordSegment s;
        s.start = day.addSecs(e.start);
        s.end = day.addSecs(e.end);
        if (s.end <= rangeStart || s.start >= rangeEnd) {
            ++dropped;
            continue;
        }
        if (s.start < rangeStart)
            s.start = rangeStart;
        if (s.end > rangeEnd)
            s.end = rangeEnd;
        s.typeBits = e.typeBits;
        s.analyticsBits = e.analyticsBits;
        out.segments.push_back(s);
    }
    if (dropped > 0)
        VY_GUI_LOG("%zu segments of channel %u dropped (empty or outside the range)\n", dropped,
                   head.channel);
    out.segments.shrink_to_fit();
    return out;
}

std::optional<MonthSearchResult> RecordSearchReply::parseMonth(const uint8_t* body, size_t len) {
    if (body == nullptr || len < MonthSearchResult::kSize) {
        VY_GUI_LOG("month search reply too short: %zu bytes !!!\n", len);
        return std::nullopt;
    }
    MonthSearchResult r;
    std::memcpy(&r, body, sizeof r);
    if (r.month < 1 || r.month > 12 || r.dayCount > 31) {
        VY_GUI_LOG("month search reply for %u/%u invalid !!!\n", r.year, r.month);
        return std::nullopt;
    }
    // Days past the month's end cannot hold recordings.
    if (r.dayCount < 32)
        r.dayBits &= r.dayCount == 0 ? 0u : (0xFFFFFFFFu >> (32 - r.dayCount));
    return r;
}

std::optional<PlaybackStatus> RecordSearchReply::parseStatus(const uint8_t* body, size_t len) {
    if (body == nullptr || len < PlaybackStatus::kSize) {
        VY_GUI_LOG("playback status too short: %zu bytes !!!\n", len);
        return std::nullopt;
    }
    PlaybackStatus s;
    std::memcpy(&s, body, sizeof s);
    s.percent = std::min<uint32_t>(s.percent, 100);
    return s;
}
