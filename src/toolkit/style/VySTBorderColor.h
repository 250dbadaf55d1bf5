#pragma once
// A style value: the colour of a border, and a set flag.
#include "runtime/VyColor.h"

struct VySTBorderColor {
    VyColor color{};
    bool set = false;

    bool isSet() const { return set; }
    void setValue(VyColor value) {
        color = value;
        set = true;
    }
};
