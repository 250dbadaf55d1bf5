#pragma once
// The style record of the table widget: the rows it draws from, each indexed by VyStyleSlot.
#include "toolkit/style/VySTBorderWidth.h"
#include "toolkit/style/VySTColor.h"
#include "toolkit/style/VySTFont.h"
#include "toolkit/style/VySTOptArray.h"

struct VyTableWidgetOption {
    VySTOptArray<VySTColor, 8> border;             // Normal and Focus
    VySTOptArray<VySTColor, 8> cellBorder;         // Focus: the border of the current cell
    VySTOptArray<VySTBorderWidth, 1> borderWidth;  // scaled to the screen
    VySTOptArray<VySTColor, 8> titleRowBackground; // Normal
    VySTOptArray<VySTFont, 8> font;                // per state
};
