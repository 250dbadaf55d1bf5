#pragma once
// The style record of the list widget: the rows it draws from, each indexed by VyStyleSlot.
#include "toolkit/style/VySTColor.h"
#include "toolkit/style/VySTFont.h"
#include "toolkit/style/VySTOptArray.h"

struct VyListWidgetOption {
    // Slots by VyStyleSlot's list roles: VyListBorderNormal, VyListBorderFocus,
    // VyListSelectedBackground, VyListSelectedForeground, VyListSelectionExtra.
    VySTOptArray<VySTColor, 8> colors;
    VySTOptArray<VySTFont, 8> font; // per state
};
