#pragma once
// The style record of the line edit: the rows it draws from, each indexed by VyStyleSlot.
#include "toolkit/style/VySTColor.h"
#include "toolkit/style/VySTFont.h"
#include "toolkit/style/VySTOptArray.h"

struct VyLineEditOption {
    VySTOptArray<VySTColor, 8> foreground; // per state
    VySTOptArray<VySTColor, 8> background; // per state
    VySTOptArray<VySTColor, 8> border;     // per state
    VySTOptArray<VySTFont, 8> font;        // per state
};
