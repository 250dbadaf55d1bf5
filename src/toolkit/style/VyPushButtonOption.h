#pragma once
// The style record of the push button: the rows it draws from, each indexed by VyStyleSlot.
#include "toolkit/style/VySTBorderWidth.h"
#include "toolkit/style/VySTColor.h"
#include "toolkit/style/VySTFont.h"
#include "toolkit/style/VySTMargin.h"
#include "toolkit/style/VySTOptArray.h"
#include "toolkit/style/VySTPixmap.h"

struct VyPushButtonOption {
    VySTOptArray<VySTColor, 8> foreground;  // per state
    VySTOptArray<VySTColor, 8> background;  // per state
    VySTOptArray<VySTColor, 8> borderColor; // per state; only Hover and Focus are styled
    VySTOptArray<VySTFont, 8> font;         // per state
    VySTOptArray<VySTMargin, 8> margin;     // per state; Hover and Focus follow the border width
    VySTOptArray<VySTBorderWidth, 8> borderWidth; // per state; only Hover and Focus draw a border
    VySTOptArray<VySTPixmap, 8> pixmap;           // per state
};
