#pragma once
// A style value: a size in pixels, and a set flag.
#include "runtime/VySize.h"

struct VySTSize {
    VySize size{};
    bool set = false;

    bool isSet() const { return set; }
    void setValue(VySize value) {
        size = value;
        set = true;
    }
};
