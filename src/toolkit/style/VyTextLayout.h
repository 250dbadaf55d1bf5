#pragma once
// Fitting one font size of text into a width: eliding a line that is too long and breaking a
// text into lines at spaces (a word longer than the width is broken between characters, so
// nothing is ever drawn outside its box).
#include "runtime/VyString.h"
#include "runtime/VyStringList.h"

class VyTextLayout {
public:
    static int width(const VyString& text, int pixelSize);
    // The text itself when it fits, else its longest head that fits followed by an ellipsis;
    // empty when not even the ellipsis fits.
    static VyString elided(const VyString& text, int pixelSize, int width);
    // Lines of at most `width` pixels; explicit line breaks are kept.
    static VyStringList wrapped(const VyString& text, int pixelSize, int width);
    // Height of one line of text at this pixel size (ascent, descent and leading).
    static int lineHeight(int pixelSize) { return pixelSize + pixelSize / 3 + 1; }
};
