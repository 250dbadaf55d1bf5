#pragma once
// App's talk-back state (MainType::System, SystemSubType::TalkState, forwarded as
// UiEventType::DualTalk): everything is in the header's msgValue, the state in bits 0..7 and
// the 0-based channel it concerns in bits 8..15. Busy and failed answer a start the GUI
// asked for; talk-back is off after either.
#include <cstdint>

struct DualTalkNotice {
    static constexpr uint8_t kIdle = 0;
    static constexpr uint8_t kTalking = 1;
    static constexpr uint8_t kBusy = 2;   // another client holds the audio channel
    static constexpr uint8_t kFailed = 3; // the camera did not answer or has no audio
    static constexpr uint8_t kLastState = kFailed;
    static constexpr uint32_t kChannelShift = 8;

    uint8_t state = kIdle;
    uint8_t channel = 0;

    uint32_t encode() const { return uint32_t(state) | (uint32_t(channel) << kChannelShift); }
    // A state beyond kLastState is taken as kFailed: talk-back is surely not running.
    static DualTalkNotice decode(uint32_t msgValue) {
        DualTalkNotice n;
        const uint8_t state = uint8_t(msgValue & 0xFFu);
        n.state = state > kLastState ? kFailed : state;
        n.channel = uint8_t((msgValue >> kChannelShift) & 0xFFu);
        return n;
    }
};
