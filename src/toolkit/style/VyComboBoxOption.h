#pragma once
// The style record of the combo box: the rows it draws from, each indexed by VyStyleSlot.
#include "toolkit/style/VySTBorderColor.h"
#include "toolkit/style/VySTBorderWidth.h"
#include "toolkit/style/VySTColor.h"
#include "toolkit/style/VySTFont.h"
#include "toolkit/style/VySTOptArray.h"
#include "toolkit/style/VySTPixmap.h"

struct VyComboBoxOption {
    VySTOptArray<VySTColor, 8> border;          // per state
    VySTOptArray<VySTColor, 8> foreground;      // per state
    VySTOptArray<VySTColor, 8> background;      // per state
    VySTOptArray<VySTColor, 8> dropDownBorder;  // per state
    VySTOptArray<VySTColor, 8> dropDownArrow;   // Disabled only
    VySTOptArray<VySTColor, 8> popupBackground; // Normal and Hover (the row under the pointer)
    VySTOptArray<VySTColor, 8> popupForeground; // Normal and Hover
    VySTOptArray<VySTBorderColor, 8> popupBorderColor; // Normal
    VySTOptArray<VySTBorderWidth, 1> popupBorderWidth; // scaled to the screen
    VySTOptArray<VySTPixmap, 8> dropDown;              // Normal, Focus and Disabled arrow images
    VySTOptArray<VySTFont, 8> font;                    // per state
};
