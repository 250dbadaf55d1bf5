#pragma once
// One channel's state as App reports it (MainType::System, SystemSubType::ChannelState,
// forwarded as UiEventType::ChannelState): the camera, its name, the recording and alarm
// flags the live cells show, and the connection of a network camera. App sends it for a
// channel whenever any of it changes, and for every channel when the GUI asks for the roster.
#include "protocol/ByteOrder.h"

#include <cstdint>
#include <cstring>
#include <optional>
#include <string>

struct ChannelStateNotice {
    static constexpr uint32_t kSize = 48; // bytes
    static constexpr uint32_t kNameSize = 40;

    // Bits of `flags`.
    static constexpr uint32_t kCamera = 0x001;       // a camera is assigned
    static constexpr uint32_t kRecording = 0x002;    // recording (any reason)
    static constexpr uint32_t kMotion = 0x004;       // motion alarm
    static constexpr uint32_t kSensor = 0x008;       // sensor input alarm
    static constexpr uint32_t kPir = 0x010;          // PIR alarm
    static constexpr uint32_t kAnalytics = 0x020;    // analytics alarm (rule triggered)
    static constexpr uint32_t kAnalyticsRe = 0x040;  // analytics alarm, re-identification
    static constexpr uint32_t kVideoLoss = 0x080;    // no signal from the camera
    static constexpr uint32_t kManualRecord = 0x100; // manual recording started by a user

    // `connection`.
    static constexpr uint8_t kConnectionNone = 0; // analogue channel or no camera
    static constexpr uint8_t kConnectionOk = 1;
    static constexpr uint8_t kConnectionFailed = 2;
    static constexpr uint8_t kConnectionDisabled = 3;

    // `kind`: what the channel is; the tool bar follows it.
    static constexpr uint8_t kKindNone = 0;
    static constexpr uint8_t kKindCamera = 2;     // an ordinary camera channel
    static constexpr uint8_t kKindFisheye = 6;    // a fisheye camera; `subMode` says its view
    static constexpr uint8_t kSubModeDewarp = 22; // fisheye views that keep the tool bar
    static constexpr uint8_t kSubModePanorama = 24;

    uint8_t channel = 0; // 0-based
    uint8_t kind = kKindNone;
    uint8_t subMode = 0;
    uint8_t connection = kConnectionNone;
    uint32_t flags = 0;
    char name[kNameSize] = {}; // UTF-8, NUL-padded; not terminated when it fills the field

    std::string nameText() const { return std::string(name, strnlen(name, kNameSize)); }
    void setName(const std::string& text) {
        std::memset(name, 0, kNameSize);
        std::memcpy(name, text.data(), text.size() < kNameSize ? text.size() : kNameSize);
    }

    void encode(uint8_t* out) const {
        out[0] = channel;
        out[1] = kind;
        out[2] = subMode;
        out[3] = connection;
        ByteOrder::storeLe32(out + 4, flags);
        std::memcpy(out + 8, name, kNameSize);
    }
    static std::optional<ChannelStateNotice> decode(const uint8_t* body, uint32_t len) {
        if (body == nullptr || len < kSize)
            return std::nullopt;
        ChannelStateNotice n;
        n.channel = body[0];
        n.kind = body[1];
        n.subMode = body[2];
        n.connection = body[3];
        n.flags = ByteOrder::loadLe32(body + 4);
        std::memcpy(n.name, body + 8, kNameSize);
        return n;
    }
};
static_assert(sizeof(ChannelStateNotice) == ChannelStateNotice::kSize);
