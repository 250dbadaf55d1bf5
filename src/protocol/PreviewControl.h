#pragma once
// A request of the live view's tool bar for one channel (MainType::Preview,
// PreviewSubType::Control, one-way). App answers by its notifications: a manual recording
// shows up in the channel's ChannelStateNotice, a snapshot in PreviewSubType::SnapshotDone.
#include "protocol/ByteOrder.h"

#include <cstdint>
#include <optional>

struct PreviewControl {
    static constexpr uint32_t kSize = 12; // bytes

    // `command`; `action` and the values per command.
    static constexpr uint8_t kManualRecord = 1; // action: kOn / kOff
    static constexpr uint8_t kSnapshot = 2;     // no arguments
    static constexpr uint8_t kStream = 3;       // value: PreviewCell::kMainStream / kSubStream
    static constexpr uint8_t kPtz =
        4; // action kStart/kStop; value: a kPtz* move; value2: speed 1..8
    static constexpr uint8_t kPtzPreset =
        5; // action kOn = go to, kOff = store; value: preset 1..255
    static constexpr uint8_t kTalkBack = 6; // action kOn / kOff
    static constexpr uint8_t kAudio = 7;    // value: volume 0..100; action kOn = muted
    static constexpr uint8_t kColour = 8;   // value: a kColour* item; value2: 0..255

    static constexpr uint8_t kOff = 0;
    static constexpr uint8_t kOn = 1;
    static constexpr uint8_t kStop = 0;
    static constexpr uint8_t kStart = 1;

    // PTZ moves (kPtz value).
    static constexpr int32_t kPtzUp = 1;
    static constexpr int32_t kPtzDown = 2;
    static constexpr int32_t kPtzLeft = 3;
    static constexpr int32_t kPtzRight = 4;
    static constexpr int32_t kPtzZoomIn = 5;
    static constexpr int32_t kPtzZoomOut = 6;
    static constexpr int32_t kPtzFocusNear = 7;
    static constexpr int32_t kPtzFocusFar = 8;
    static constexpr int32_t kPtzIrisOpen = 9;
    static constexpr int32_t kPtzIrisClose = 10;
    static constexpr int32_t kPtzUpLeft = 11;
    static constexpr int32_t kPtzUpRight = 12;
    static constexpr int32_t kPtzDownLeft = 13;
    static constexpr int32_t kPtzDownRight = 14;
    static constexpr int32_t kPtzMinSpeed = 1;
    static constexpr int32_t kPtzMaxSpeed = 8;
    static constexpr int32_t kFirstPreset = 1;
    static constexpr int32_t kLastPreset = 255;

    // Colour items (kColour value).
    static constexpr int32_t kBrightness = 0;
    static constexpr int32_t kContrast = 1;
    static constexpr int32_t kSaturation = 2;
    static constexpr int32_t kHue = 3;

    uint8_t command = 0;
    uint8_t channel = 0;
    uint8_t action = 0;
    uint8_t reserved = 0;
    int32_t value = 0;
    int32_t value2 = 0;

    void encode(uint8_t* out) const {
        out[0] = command;
        out[1] = channel;
        out[2] = action;
        out[3] = 0;
        ByteOrder::storeLe32(out + 4, uint32_t(value));
        ByteOrder::storeLe32(out + 8, uint32_t(value2));
    }
    static std::optional<PreviewControl> decode(const uint8_t* body, uint32_t len) {
        if (body == nullptr || len < kSize)
            return std::nullopt;
        PreviewControl c;
        c.command = body[0];
        c.channel = body[1];
        c.action = body[2];
        c.value = int32_t(ByteOrder::loadLe32(body + 4));
        c.value2 = int32_t(ByteOrder::loadLe32(body + 8));
        return c;
    }
};
static_assert(sizeof(PreviewControl) == PreviewControl::kSize);
