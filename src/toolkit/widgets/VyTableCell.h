#pragma once
// What a table shows in one cell: the text, an optional icon, its alignment and an optional
// colour of its own (0: the style's).
#include "runtime/VyBitmap.h"
#include "runtime/VyString.h"
#include "toolkit/graphics/VyCanvas.h"

struct VyTableCell {
    VyString text;
    VyBitmap icon;
    int alignment = VyCanvas::AlignLeft | VyCanvas::AlignVCenter;
    vyargb foreground = 0;
};
