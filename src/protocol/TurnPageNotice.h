#pragma once
// App asks the live view to turn its page (MainType::System, SystemSubType::TurnPage; the UI
// manager posts it as a TurnPageEvent, type 1078, whose parameter is the msgValue): the
// operation in bits 0..7, for kGoto the 0-based page in bits 8..23.
#include <cstdint>

struct TurnPageNotice {
    static constexpr uint8_t kNext = 1;
    static constexpr uint8_t kPrevious = 2;
    static constexpr uint8_t kGoto = 3;
    static constexpr uint32_t kPageShift = 8;
    static constexpr uint32_t kPageMask = 0xFFFF;

    uint8_t operation = kNext;
    uint16_t page = 0;

    uint32_t encode() const { return uint32_t(operation) | (uint32_t(page) << kPageShift); }
    static TurnPageNotice decode(uint32_t msgValue) {
        TurnPageNotice n;
        n.operation = uint8_t(msgValue & 0xFFu);
        n.page = uint16_t((msgValue >> kPageShift) & kPageMask);
        return n;
    }
};
