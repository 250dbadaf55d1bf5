#pragma once
// Where a framebuffer is shown inside a desktop window that may be larger or smaller than
// it, and back: the picture keeps its proportions and is centred (bars fill the rest).
// Whole scales are used when the framebuffer fits at least once, so its pixels stay sharp;
// a desktop smaller than the framebuffer gets a fractional scale.
#include "runtime/VyPoint.h"
#include "runtime/VyRect.h"
#include "runtime/VySize.h"

class VyWindowFit {
public:
    // The size of a new window for the framebuffer on a desktop area of the given size: the
    // largest whole scale that fits, else the fractional scale that fits.
    static VySize windowSize(VySize framebuffer, VySize desktop);
    // The rectangle of the window the framebuffer is drawn into.
    static VyRect picture(VySize framebuffer, VySize window);
    // A window position as a framebuffer pixel, clamped to the framebuffer.
    static VyPoint toFramebuffer(VyPoint windowPos, VySize framebuffer, VySize window);
};
