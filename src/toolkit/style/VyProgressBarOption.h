#pragma once
// The style record of the progress bar: the rows it draws from, each indexed by VyStyleSlot.
#include "toolkit/style/VySTColor.h"
#include "toolkit/style/VySTFont.h"
#include "toolkit/style/VySTOptArray.h"

struct VyProgressBarOption {
    VySTOptArray<VySTColor, 8> border;     // Normal
    VySTOptArray<VySTColor, 8> foreground; // Normal: the percentage text
    VySTOptArray<VySTColor, 8> chunk;      // Normal: the filled part
    VySTOptArray<VySTFont, 8> font;        // per state
};
