#pragma once
// The style record of the scroll bar: the rows it draws from, each indexed by VyStyleSlot.
#include "toolkit/style/VySTColor.h"
#include "toolkit/style/VySTFont.h"
#include "toolkit/style/VySTOptArray.h"

struct VyScrollBarOption {
    VySTOptArray<VySTColor, 8> background; // Normal, Hover and Focus
    VySTOptArray<VySTColor, 8> groove;     // Normal, Hover and Focus
    VySTOptArray<VySTColor, 8> slider;     // Normal, Hover and Focus
    VySTOptArray<VySTFont, 8> font;        // per state
};
