#pragma once
// The style record of the list widget: the rows it draws from, each indexed by VyStyleSlot.
#include "toolkit/style/VySTColor.h"
#include "toolkit/style/VySTFont.h"
#include "toolkit/style/VySTOptArray.h"

struct VyListWidgetOption {
    VySTOptArray<VySTColor, 8>
        colors; // border Normal and Focus, VyListSelected* slots for the selection
    VySTOptArray<VySTFont, 8> font; // per state
};
