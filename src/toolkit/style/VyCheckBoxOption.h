#pragma once
// The style record of the check box: the rows it draws from, each indexed by VyStyleSlot.
#include "toolkit/style/VySTBorderWidth.h"
#include "toolkit/style/VySTColor.h"
#include "toolkit/style/VySTFont.h"
#include "toolkit/style/VySTOptArray.h"
#include "toolkit/style/VySTPixmap.h"

struct VyCheckBoxOption {
    VySTOptArray<VySTColor, 8> foreground;        // Normal and Disabled
    VySTOptArray<VySTColor, 8> border;            // per state
    VySTOptArray<VySTBorderWidth, 8> borderWidth; // per state, scaled to the screen
    VySTOptArray<VySTPixmap, 8> checked;   // Normal, Hover and Disabled images of the checked box
    VySTOptArray<VySTPixmap, 8> unchecked; // Normal, Hover and Disabled images of the empty box
    VySTOptArray<VySTFont, 8> font;        // per state
};
