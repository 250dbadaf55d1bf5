#pragma once
// An 8-bit RGBA colour with a valid flag; an invalid colour counts as "not set".
#include <cstdint>

#include "runtime/VyGlobal.h"

struct VyColor {
    uint8_t red = 0;
    uint8_t green = 0;
    uint8_t blue = 0;
    uint8_t alpha = 0;
    bool valid = false;

    constexpr VyColor() = default;
    constexpr VyColor(int r, int g, int b, int a = 255)
        : red(static_cast<uint8_t>(r))
        , green(static_cast<uint8_t>(g))
        , blue(static_cast<uint8_t>(b))
        , alpha(static_cast<uint8_t>(a))
        , valid(true) {}
    static constexpr VyColor fromArgb(vyargb c) {
        return VyColor(int((c >> 16) & 0xFF), int((c >> 8) & 0xFF), int(c & 0xFF),
                       int((c >> 24) & 0xFF));
    }

    constexpr bool isValid() const { return valid; }
    constexpr vyargb argb() const {
        return (vyargb(alpha) << 24) | (vyargb(red) << 16) | (vyargb(green) << 8) | vyargb(blue);
    }
    constexpr bool operator==(const VyColor& o) const {
        return red == o.red && green == o.green && blue == o.blue && alpha == o.alpha &&
               valid == o.valid;
    }
    constexpr bool operator!=(const VyColor& o) const { return !(*this == o); }
};
