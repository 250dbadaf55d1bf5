// Text drawing of VyFbCanvas: lines shaped by the font engine's shaper (bidi order, joining,
// marks, fallback faces), glyph coverage blended per pixel.
#include "runtime/VyFontEngine.h"
#include "runtime/VyGlyph.h"
#include "runtime/VyTextShaper.h"
#include "toolkit/graphics/VyFbCanvas.h"
#include "toolkit/graphics/VyPixelOps.h"

int VyFbCanvas::textWidth(const VyString& text, int pixelSize) {
    return VyFontEngine::instance().shaper().shape(text, pixelSize).width;
}

void VyFbCanvas::drawGlyphs(int64_t x, int64_t baseline, const VyShapedText& line, int pixelSize,
                            vyargb colour) {
    // Glyphs are at most a few hundred pixels: text starting this far out never shows.
    constexpr int64_t kFar = 1 << 29; // pixels
    if (x < -kFar || x > kFar || baseline < -kFar || baseline > kFar)
        return;
    VyFontEngine& engine = VyFontEngine::instance();
    for (const VyShapedText::Glyph& sg : line.glyphs) {
        const int pen = static_cast<int>(x) + sg.x;
        if (pen > m_clip.right)
            break;
        const VyGlyph* g = engine.glyphByIndex(
            sg.face, sg.face == VyFontEngine::kNoFace ? 0 : sg.glyphIndex, pixelSize);
        if (!g || g->width == 0)
            continue;
        const VyRect box(pen + g->left, static_cast<int>(baseline) - sg.y - g->top, g->width,
                         g->height);
        const VyRect r = clipped(box);
        for (int row = r.top; row <= r.bottom; ++row) {
            const uint8_t* cov =
                g->coverage.data() + (row - box.top) * g->width + (r.left - box.left);
            VyPixelOps::blendCoverageRow(scanLine(row) + r.left, cov, r.width(), colour);
        }
    }
}

void VyFbCanvas::drawText(int x, int baseline, const VyString& text, int pixelSize, vyargb colour) {
    if ((colour >> 24) == 0 || text.isEmpty())
        return;
    const VyShapedText& line = VyFontEngine::instance().shaper().shape(text, pixelSize);
    drawGlyphs(int64_t(x) + m_origin.x, int64_t(baseline) + m_origin.y, line, pixelSize, colour);
}

void VyFbCanvas::drawText(const VyRect& rect, int alignment, const VyString& text, int pixelSize,
                          vyargb colour) {
    if ((colour >> 24) == 0 || text.isEmpty() || rect.isEmpty())
        return;
    VyFontEngine& engine = VyFontEngine::instance();
    const int ascent = engine.ascent(pixelSize);
    const int descent = engine.descent(pixelSize);
    const VyShapedText& line = engine.shaper().shape(text, pixelSize);
    const int width = line.width;
    const int64_t rectWidth = int64_t(rect.right) - rect.left + 1;
    const int64_t rectHeight = int64_t(rect.bottom) - rect.top + 1;
    // While a right-to-left language is shown, text that asks for the leading edge goes to
    // the right.
    int horizontal = alignment & (AlignLeft | AlignRight | AlignHCenter);
    if (engine.shaper().defaultRightToLeft() && (horizontal == AlignLeft || horizontal == 0))
        horizontal = AlignRight;
    int64_t x = rect.left;
    if (horizontal & AlignRight)
        x = int64_t(rect.right) + 1 - width;
    else if (horizontal & AlignHCenter)
        x = rect.left + (rectWidth - width) / 2;
    int64_t baseline = rect.top + (rectHeight - (ascent + descent)) / 2 + ascent;
    if (alignment & AlignTop)
        baseline = int64_t(rect.top) + ascent;
    else if (alignment & AlignBottom)
        baseline = int64_t(rect.bottom) + 1 - descent;
    const VyRect savedClip = m_clip;
    m_clip = m_clip.intersected(toCanvas(rect));
    if (!m_clip.isEmpty())
        drawGlyphs(x + m_origin.x, baseline + m_origin.y, line, pixelSize, colour);
    m_clip = savedClip;
}
