#pragma once
// The style record of the slider: the rows it draws from, each indexed by VyStyleSlot.
#include "toolkit/style/VySTColor.h"
#include "toolkit/style/VySTFont.h"
#include "toolkit/style/VySTOptArray.h"
#include "toolkit/style/VySTPixmap.h"

struct VySliderOption {
    VySTOptArray<VySTColor, 8> border;           // per state
    VySTOptArray<VySTColor, 8> grooveBackground; // Normal
    VySTOptArray<VySTColor, 8>
        subPageBackground;              // Normal and Hover: the groove part before the handle
    VySTOptArray<VySTPixmap, 8> handle; // Normal; Hover and Focus share the hover image
    VySTOptArray<VySTFont, 8> font;     // per state
};
