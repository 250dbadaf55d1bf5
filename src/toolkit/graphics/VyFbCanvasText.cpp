// Text drawing of VyFbCanvas: glyph coverage from the font engine, blended per pixel.
#include <string>

#include "runtime/VyFontEngine.h"
#include "runtime/VyGlyph.h"
#include "toolkit/graphics/VyFbCanvas.h"
#include "toolkit/graphics/VyPixelOps.h"

int VyFbCanvas::textWidth(const VyString& text, int pixelSize) {
    VyFontEngine& engine = VyFontEngine::instance();
    int width = 0;
    for (char32_t cp : text.toUcs4()) {
        if (const VyGlyph* g = engine.glyph(cp, pixelSize))
            width += g->advance;
    }
    return width;
}

void VyFbCanvas::drawGlyphs(int64_t x, int64_t baseline, const std::u32string& text, int pixelSize,
                            vyargb colour) {
    // Glyphs are at most a few hundred pixels: text starting this far out never shows.
    constexpr int64_t kFar = 1 << 29; // pixels
    if (x < -kFar || x > kFar || baseline < -kFar || baseline > kFar)
        return;
    VyFontEngine& engine = VyFontEngine::instance();
    int pen = static_cast<int>(x);
    for (char32_t cp : text) {
        if (pen > m_clip.right)
            break;
        const VyGlyph* g = engine.glyph(cp, pixelSize);
        if (!g)
            continue;
        const VyRect box(pen + g->left, static_cast<int>(baseline) - g->top, g->width, g->height);
        const VyRect r = clipped(box);
        for (int row = r.top; row <= r.bottom; ++row) {
            const uint8_t* cov =
                g->coverage.data() + (row - box.top) * g->width + (r.left - box.left);
            VyPixelOps::blendCoverageRow(scanLine(row) + r.left, cov, r.width(), colour);
        }
        pen += g->advance;
    }
}

void VyFbCanvas::drawText(int x, int baseline, const VyString& text, int pixelSize, vyargb colour) {
    if ((colour >> 24) == 0 || text.isEmpty())
        return;
    drawGlyphs(int64_t(x) + m_origin.x, int64_t(baseline) + m_origin.y, text.toUcs4(), pixelSize,
               colour);
}

void VyFbCanvas::drawText(const VyRect& rect, int alignment, const VyString& text, int pixelSize,
                          vyargb colour) {
    if ((colour >> 24) == 0 || text.isEmpty() || rect.isEmpty())
        return;
    VyFontEngine& engine = VyFontEngine::instance();
    const int ascent = engine.ascent(pixelSize);
    const int descent = engine.descent(pixelSize);
    const int width = textWidth(text, pixelSize);
    const int64_t rectWidth = int64_t(rect.right) - rect.left + 1;
    const int64_t rectHeight = int64_t(rect.bottom) - rect.top + 1;
    int64_t x = rect.left;
    if (alignment & AlignRight)
        x = int64_t(rect.right) + 1 - width;
    else if (alignment & AlignHCenter)
        x = rect.left + (rectWidth - width) / 2;
    int64_t baseline = rect.top + (rectHeight - (ascent + descent)) / 2 + ascent;
    if (alignment & AlignTop)
        baseline = int64_t(rect.top) + ascent;
    else if (alignment & AlignBottom)
        baseline = int64_t(rect.bottom) + 1 - descent;
    const VyRect savedClip = m_clip;
    m_clip = m_clip.intersected(toCanvas(rect));
    if (!m_clip.isEmpty())
        drawGlyphs(x + m_origin.x, baseline + m_origin.y, text.toUcs4(), pixelSize, colour);
    m_clip = savedClip;
}
