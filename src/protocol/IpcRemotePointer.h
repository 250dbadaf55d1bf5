#pragma once
// Body of App's remote pointer message (MainType::System, SystemSubType::RemotePointer): a
// pointer position in App's reference resolution, to be scaled to the GUI's screen.
#include "protocol/ByteOrder.h"

#include <cmath>
#include <cstdint>
#include <optional>

struct IpcRemotePointer {
    static constexpr uint32_t kBodySize = 11; // bytes: 4 x u16, i16, u8

    uint16_t refWidth = 0;
    uint16_t refHeight = 0;
    uint16_t x = 0;
    uint16_t y = 0;
    int16_t wheel = 0;   // passed on unchanged
    uint8_t buttons = 0; // passed on unchanged

    // Null when the body is too short or a reference size is 0 (nothing to scale by).
    static std::optional<IpcRemotePointer> decode(const uint8_t* body, uint32_t len) {
        if (len < kBodySize)
            return std::nullopt;
        auto u16 = [body](int at) { return ByteOrder::loadLe16(body + at); };
        IpcRemotePointer p;
        p.refWidth = u16(0);
        p.refHeight = u16(2);
        p.x = u16(4);
        p.y = u16(6);
        p.wheel = int16_t(u16(8));
        p.buttons = body[10];
        if (p.refWidth == 0 || p.refHeight == 0)
            return std::nullopt;
        return p;
    }

    // v * (screen / ref) in single precision, halves rounded up, as the 16-bit value the
    // application's pointer takes.
    static int16_t scale(uint16_t v, int screen, uint16_t ref) {
        float scaled = float(v) * (float(screen) / float(ref));
        return int16_t(int32_t(std::floor(scaled + 0.5f)));
    }
};
