// libFuzzer target: arbitrary bytes as the body of the App messages the GUI decodes. The
// first byte picks the decoder, the rest is the body. Never crashes; a record that decodes
// encodes to bytes that decode and encode to the same bytes again (a field read at one
// offset and written at another shows here); a day's record search keeps only the channels asked
// for, at most the capped number of segments, each inside the day and not empty.
#include "model/RecordSearchReply.h"
#include "protocol/ChannelStateNotice.h"
#include "protocol/DaySearchResult.h"
#include "protocol/DualTalkNotice.h"
#include "protocol/IpcRemotePointer.h"
#include "protocol/ParamRequest.h"
#include "protocol/PreviewControl.h"
#include "protocol/PreviewRecord.h"
#include "protocol/PreviewZoom.h"
#include "protocol/ServiceKeyNotice.h"
#include "protocol/StartupHello.h"
#include "protocol/TurnPageNotice.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace {

// Encoding what was decoded, then decoding and encoding that again, gives the same bytes
// (reserved bytes are written as zero, so the first encoding is the reference, not the body).
template <typename Record>
void roundTrip(const uint8_t* body, uint32_t len) {
    const auto record = Record::decode(body, len);
    if (!record)
        return;
    if (len < Record::kSize)
        std::abort(); // decoded from fewer bytes than the record has
    std::vector<uint8_t> first(Record::kSize);
    record->encode(first.data());
    const auto again = Record::decode(first.data(), Record::kSize);
    if (!again)
        std::abort();
    std::vector<uint8_t> second(Record::kSize);
    again->encode(second.data());
    if (first != second)
        std::abort();
}

void daySearch(const uint8_t* body, uint32_t len) {
    const std::vector<int> asked = {0, 1, 5, 63};
    const VyDateTime start(VyDate(2026, 11, 23), VyTime(0, 0, 0));
    const VyDateTime end(VyDate(2026, 11, 24), VyTime(0, 0, 0));
    const auto channel = RecordSearchReply::parseDay(body, len, asked, start, end);
    if (!channel)
        return;
    bool wasAsked = false;
    for (int c : asked)
        wasAsked = wasAsked || c == channel->channel;
    if (!wasAsked || channel->segments.size() > DaySearchResult::kMaxSegments)
        std::abort();
    for (const RecordSegment& s : channel->segments) {
        if (!(s.start < s.end) || s.start < start || end < s.end)
            std::abort();
    }
}

// A zoom part that decodes lies inside the picture; App's talk-back and page-turn words
// decode to a known state and keep the bits they use.
void liveViewWords(const uint8_t* body, uint32_t len) {
    if (const auto zoom = PreviewZoom::decode(body, len)) {
        if (zoom->left >= zoom->right || zoom->top >= zoom->bottom ||
            zoom->right > PreviewZoom::kFull || zoom->bottom > PreviewZoom::kFull)
            std::abort();
    }
    roundTrip<PreviewZoom>(body, len);
    if (len < 4)
        return;
    uint32_t word = 0;
    std::memcpy(&word, body, sizeof word);
    if (DualTalkNotice::decode(word).state > DualTalkNotice::kLastState)
        std::abort();
    if (TurnPageNotice::decode(word).encode() != (word & 0xFFFFFFu))
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 1 || size > 256 * 1024)
        return 0;
    const uint8_t* body = data + 1;
    const auto len = static_cast<uint32_t>(size - 1);
    switch (data[0] % 10) {
    case 0:
        roundTrip<PreviewRecord>(body, len);
        break;
    case 1:
        roundTrip<ChannelStateNotice>(body, len);
        break;
    case 2:
        roundTrip<PreviewControl>(body, len);
        break;
    case 3:
        (void)IpcRemotePointer::decode(body, len);
        break;
    case 4:
        (void)ServiceKeyNotice::decode(body, len);
        break;
    case 5:
        (void)ParamRequest::decode(body, len);
        break;
    case 6:
        (void)StartupHello::decode(body, len);
        break;
    case 7:
        daySearch(body, len);
        break;
    case 8:
        liveViewWords(body, len);
        break;
    default:
        (void)RecordSearchReply::parseMonth(body, len);
        (void)RecordSearchReply::parseStatus(body, len);
        break;
    }
    return 0;
}
