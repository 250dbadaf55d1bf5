#include "model/RecordSearchReply.h"

#include "model/RecDataManager.h"
#include "protocol/DaySearchResult.h"
#include "protocol/PlaybackTag.h"
#include "protocol/ThumbnailReply.h"
#include "protocol/ThumbnailRequest.h"
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

namespace {

// The count a reply may be trusted with: its claim, cut to the cap and to what the body holds.
uint32_t trustedCount(const char* what, uint32_t claimed, uint32_t cap, size_t bodyBytes,
                      size_t entryBytes) {
    uint32_t count = claimed;
    if (count > cap) {
        VY_GUI_LOG("%s count %u capped to %u !!!\n", what, count, cap);
        count = cap;
    }
    const size_t present = bodyBytes / entryBytes;
    if (count > present) {
        VY_GUI_LOG("%s count %u but %zu in the body !!!\n", what, count, present);
        count = uint32_t(present);
    }
    return count;
}

} // namespace

std::optional<std::vector<RecordTag>> RecordSearchReply::parseTags(const uint8_t* body,
                                                                   size_t len) {
    if (body == nullptr || len < TagSearchResult::kSize) {
        VY_GUI_LOG("tag search reply too short: %zu bytes !!!\n", len);
        return std::nullopt;
    }
    TagSearchResult head;
    std::memcpy(&head, body, sizeof head);
    const uint32_t count = trustedCount("tag", head.tagCount, TagSearchResult::kMaxTags,
                                        len - TagSearchResult::kSize, PlaybackTag::kSize);
    std::vector<RecordTag> tags;
    tags.reserve(count);
    const uint8_t* p = body + TagSearchResult::kSize;
    for (uint32_t i = 0; i < count; ++i, p += PlaybackTag::kSize) {
        PlaybackTag t;
        std::memcpy(&t, p, sizeof t);
        RecordTag out;
        out.time = RecDataManager::unpack(t.time);
        if (!out.time.isValid() || t.channel >= uint32_t(PlaybackChannelBits::kMaxChannels)) {
            VY_GUI_LOG("tag %u of channel %u with an invalid time dropped !!!\n", t.id, t.channel);
            continue;
        }
        out.channel = int(t.channel);
        out.id = t.id;
        out.name.assign(t.name, strnlen(t.name, sizeof t.name));
        tags.push_back(std::move(out));
    }
    return tags;
}

std::optional<std::vector<RecordThumbnail>>
RecordSearchReply::parseThumbnails(const uint8_t* body, size_t len, int channel) {
    if (body == nullptr || len < ThumbnailReply::kSize) {
        VY_GUI_LOG("thumbnail reply too short: %zu bytes !!!\n", len);
        return std::nullopt;
    }
    ThumbnailReply head;
    std::memcpy(&head, body, sizeof head);
    if (int64_t(head.channel) != channel) {
        VY_GUI_LOG("thumbnail reply for channel %u not asked for !!!\n", head.channel);
        return std::nullopt;
    }
    if (head.width == 0 || head.height == 0 || head.width > ThumbnailReply::kMaxWidth ||
        head.height > ThumbnailReply::kMaxHeight) {
        VY_GUI_LOG("thumbnail size %ux%u refused !!!\n", head.width, head.height);
        return std::nullopt;
    }
    const size_t entry = ThumbnailReply::entryBytes(head.width, head.height);
    const uint32_t count = trustedCount("thumbnail", head.count, ThumbnailRequest::kMaxCount,
                                        len - ThumbnailReply::kSize, entry);
    std::vector<RecordThumbnail> out(count);
    const uint8_t* p = body + ThumbnailReply::kSize;
    for (uint32_t i = 0; i < count; ++i, p += entry) {
        PackedDateTime time;
        std::memcpy(&time, p, sizeof time);
        RecordThumbnail& t = out[i];
        t.time = RecDataManager::unpack(time);
        if (!t.time.isValid())
            continue; // no recording at this step
        t.picture = VyBitmap(head.width, head.height);
        uint8_t* rgba = t.picture.bits();
        const uint8_t* src = p + sizeof time;
        for (size_t px = 0; px < size_t(head.width) * head.height; ++px, src += 2, rgba += 4) {
            const unsigned v = unsigned(src[0]) | unsigned(src[1]) << 8;
            rgba[0] = uint8_t((v >> 11 & 0x1F) * 255 / 31);
            rgba[1] = uint8_t((v >> 5 & 0x3F) * 255 / 63);
            rgba[2] = uint8_t((v & 0x1F) * 255 / 31);
            rgba[3] = 0xFF;
        }
    }
    return out;
}
