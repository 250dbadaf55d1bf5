#pragma once
// Four 16-bit sides in pixels (left, top, right, bottom) and a set flag: the shape shared by
// border widths, margins and paddings.
#include <cstdint>

struct VySTSides {
    int16_t left = 0;
    int16_t top = 0;
    int16_t right = 0;
    int16_t bottom = 0;
    bool set = false;

    bool isSet() const { return set; }
    void setAll(int value) {
        left = top = right = bottom = static_cast<int16_t>(value);
        set = true;
    }
    bool operator==(const VySTSides& o) const {
        return left == o.left && top == o.top && right == o.right && bottom == o.bottom &&
               set == o.set;
    }
};
