#pragma once
// A style image: its resource path and the bitmap loaded from it. Set only when the image
// could be loaded; a missing image leaves the control to draw without it.
#include "runtime/VyBitmap.h"
#include "runtime/VyString.h"

struct VySTPixmap {
    VyString path;
    VyBitmap bitmap;

    bool isSet() const { return !bitmap.isNull(); }
};
