#pragma once
// Text measurement in whole pixels for one font, through the font engine. A metrics object
// holds no glyphs of its own; it is cheap to make on the stack wherever text is laid out.
#include "runtime/VyFont.h"
#include "runtime/VyString.h"

class VyFontEngine;

class VyFontMetrics {
public:
    // Measures through the process-wide engine.
    explicit VyFontMetrics(const VyFont& font);
    VyFontMetrics(const VyFont& font, VyFontEngine& engine);

    // Chooses the font file for the whole process; size is the number of bytes the device
    // reserves for it (files larger than that are refused).
    static bool setFontFile(const VyString& path, int size);

    int ascent() const;
    int descent() const;
    int height() const;
    // Sum of the pen advances of the text's code points, decoded by VyString::toUcs4 as the
    // text drawing decodes them (a malformed byte counts as one U+FFFD). 0 with no valid font.
    int horizontalAdvance(const VyString& text) const;
    // The text itself when it fits in maxWidth pixels; otherwise its longest leading part
    // that still fits with "..." appended, or an empty text when not even "..." fits.
    VyString elidedText(const VyString& text, int maxWidth) const;

private:
    VyFont m_font;
    VyFontEngine* m_engine;
};
