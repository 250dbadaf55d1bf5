#pragma once
// The style record of the tool tip: the rows it draws from, each indexed by VyStyleSlot.
#include "toolkit/style/VySTBorderColor.h"
#include "toolkit/style/VySTBorderWidth.h"
#include "toolkit/style/VySTColor.h"
#include "toolkit/style/VySTFont.h"
#include "toolkit/style/VySTOptArray.h"

struct VyToolTipOption {
    VySTOptArray<VySTColor, 8> foreground;        // Normal
    VySTOptArray<VySTColor, 8> background;        // Normal
    VySTOptArray<VySTBorderColor, 8> borderColor; // Normal
    VySTOptArray<VySTBorderWidth, 1> borderWidth; // scaled to the screen
    VySTOptArray<VySTFont, 8> font;               // per state
};
