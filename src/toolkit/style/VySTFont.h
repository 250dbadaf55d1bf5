#pragma once
// A style font (its pixel size) and a set flag.
#include "runtime/VyFont.h"

struct VySTFont {
    VyFont font;
    bool set = false;

    bool isSet() const { return set; }
    bool operator==(const VySTFont& o) const { return font == o.font && set == o.set; }
};
