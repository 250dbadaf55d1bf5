#pragma once
// The style record of the date edit: the rows it draws from, each indexed by VyStyleSlot.
#include "toolkit/style/VySTColor.h"
#include "toolkit/style/VySTFont.h"
#include "toolkit/style/VySTOptArray.h"
#include "toolkit/style/VySTPixmap.h"

struct VyDateEditOption {
    VySTOptArray<VySTColor, 8> border;     // per state
    VySTOptArray<VySTColor, 8> foreground; // per state
    VySTOptArray<VySTColor, 8> background; // per state
    VySTOptArray<VySTPixmap, 8> dropDown;  // Normal and Focus arrow images
    VySTOptArray<VySTFont, 8> font;        // per state
};
