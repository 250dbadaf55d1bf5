#pragma once
// A line of text shaped for drawing: glyphs of one or more faces in visual order (left to
// right on the screen), with their pen positions.
#include <cstdint>
#include <vector>

struct VyShapedText {
    struct Glyph {
        int face;            // font engine face slot; VyFontEngine::kNoFace draws a box
        uint32_t glyphIndex; // in that face (the code point for a box)
        int x;               // pen x from the line's left edge, pixels
        int y;               // offset above the baseline, pixels (marks that stack)
    };
    std::vector<Glyph> glyphs;
    int width = 0; // pixels from the left edge to the end of the last advance
    // The paragraph runs right to left (its first strong letter, or the default direction
    // when it has none).
    bool rightToLeft = false;
};
