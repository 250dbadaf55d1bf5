// Text drawing of VyFbCanvas: glyph coverage from the font engine, blended per pixel.
#include <string>

#include "runtime/VyFontEngine.h"
#include "runtime/VyGlyph.h"
#include "toolkit/core/VyFbCanvas.h"
#include "toolkit/core/VyPixelOps.h"

int VyFbCanvas::textWidth(const VyString& text, int pixelSize) {
    VyFontEngine& engine = VyFontEngine::instance();
    int width = 0;
    for (char32_t cp : text.toUcs4()) {
        if (const VyGlyph* g = engine.glyph(cp, pixelSize))
            width += g->advance;
    }
    return width;
}

void VyFbCanvas::drawGlyphs(int x, int baseline, const std::u32string& text, int pixelSize,
                            vyargb colour) {
    VyFontEngine& engine = VyFontEngine::instance();
    int pen = x;
    for (char32_t cp : text) {
        if (pen > m_clip.right)
            break;
        const VyGlyph* g = engine.glyph(cp, pixelSize);
        if (!g)
            continue;
        const VyRect box(pen + g->left, baseline - g->top, g->width, g->height);
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
    drawGlyphs(x + m_origin.x, baseline + m_origin.y, text.toUcs4(), pixelSize, colour);
}

void VyFbCanvas::drawText(const VyRect& rect, int alignment, const VyString& text, int pixelSize,
                          vyargb colour) {
    if ((colour >> 24) == 0 || text.isEmpty() || rect.isEmpty())
        return;
    VyFontEngine& engine = VyFontEngine::instance();
    const int ascent = engine.ascent(pixelSize);
    const int descent = engine.descent(pixelSize);
    const int width = textWidth(text, pixelSize);
    int x = rect.left;
    if (alignment & AlignRight)
        x = rect.right + 1 - width;
    else if (alignment & AlignHCenter)
        x = rect.left + (rect.width() - width) / 2;
    int baseline = rect.top + (rect.height() - (ascent + descent)) / 2 + ascent;
    if (alignment & AlignTop)
        baseline = rect.top + ascent;
    else if (alignment & AlignBottom)
        baseline = rect.bottom + 1 - descent;
    const VyRect savedClip = m_clip;
    m_clip = m_clip.intersected(rect.translated(m_origin));
    if (!m_clip.isEmpty())
        drawGlyphs(x + m_origin.x, baseline + m_origin.y, text.toUcs4(), pixelSize, colour);
    m_clip = savedClip;
}
