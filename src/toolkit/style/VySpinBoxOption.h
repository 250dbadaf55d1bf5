#pragma once
// The style record of the spin box: the rows it draws from, each indexed by VyStyleSlot.
#include "toolkit/style/VySTColor.h"
#include "toolkit/style/VySTFont.h"
#include "toolkit/style/VySTOptArray.h"
#include "toolkit/style/VySTPixmap.h"

struct VySpinBoxOption {
    VySTOptArray<VySTColor, 8> border;     // per state
    VySTOptArray<VySTColor, 8> foreground; // per state
    VySTOptArray<VySTColor, 8> background; // per state
    VySTOptArray<VySTPixmap, 8> upArrow;   // Normal and Disabled
    VySTOptArray<VySTPixmap, 8> downArrow; // Normal and Disabled
    VySTOptArray<VySTFont, 8> font;        // per state
};
