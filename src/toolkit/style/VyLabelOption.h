#pragma once
// The style record of the label: the rows it draws from, each indexed by VyStyleSlot.
#include "toolkit/style/VySTColor.h"
#include "toolkit/style/VySTFont.h"
#include "toolkit/style/VySTOptArray.h"

struct VyLabelOption {
    VySTOptArray<VySTColor, 8> foreground; // per state
    VySTOptArray<VySTFont, 8> font;        // per state
};
