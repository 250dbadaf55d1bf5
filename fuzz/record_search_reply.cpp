// libFuzzer target: arbitrary bytes as App's record search answers. Never crashes, never
// reads past its input, and every kept segment starts before it ends and lies inside the
// searched day, whatever count, times or channel the bytes claim; tags and thumbnails stay
// within their caps, and every picture kept has the size its head announced.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "model/RecordSearchReply.h"
#include "protocol/DaySearchResult.h"
#include "protocol/PlaybackTag.h"
#include "protocol/ThumbnailReply.h"
#include "protocol/ThumbnailRequest.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const VyDateTime from(VyDate(2026, 3, 14)), to(VyDate(2026, 3, 15));
    if (auto ch = RecordSearchReply::parseDay(data, size, {0, 1, 2, 3}, from, to)) {
        if (ch->segments.size() > DaySearchResult::kMaxSegments)
            std::abort();
        for (const RecordSegment& s : ch->segments) {
            if (!(from <= s.start && s.start < s.end && s.end <= to))
                std::abort();
        }
    }
    if (auto m = RecordSearchReply::parseMonth(data, size)) {
        if (m->month < 1 || m->month > 12)
            std::abort();
    }
    if (auto s = RecordSearchReply::parseStatus(data, size)) {
        if (s->percent > 100)
            std::abort();
    }
    if (auto tags = RecordSearchReply::parseTags(data, size)) {
        if (tags->size() > TagSearchResult::kMaxTags)
            std::abort();
        for (const RecordTag& t : *tags) {
            if (!t.time.isValid() || t.name.size() > PlaybackTag::kNameBytes)
                std::abort();
        }
    }
    if (auto pictures = RecordSearchReply::parseThumbnails(data, size, 0)) {
        if (pictures->size() > ThumbnailRequest::kMaxCount)
            std::abort();
        for (const RecordThumbnail& t : *pictures) {
            if (!t.picture.isNull() && (t.picture.width() > ThumbnailReply::kMaxWidth ||
                                        t.picture.height() > ThumbnailReply::kMaxHeight))
                std::abort();
        }
    }
    return 0;
}
