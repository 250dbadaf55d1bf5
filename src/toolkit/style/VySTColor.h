#pragma once
// A style colour; an invalid colour counts as not set and the control uses its own default.
#include "runtime/VyColor.h"

struct VySTColor {
    VyColor color;

    bool isSet() const { return color.isValid(); }
    bool operator==(const VySTColor& o) const { return color == o.color; }
};
