#include "runtime/VyFontMetrics.h"

#include "runtime/VyFontEngine.h"
#include "runtime/VyGlyph.h"

namespace {

constexpr const char* kEllipsis = "...";

int advanceOf(VyFontEngine& engine, char32_t cp, int pixelSize) {
    const VyGlyph* g = engine.glyph(cp, pixelSize);
    return g ? g->advance : 0;
}

} // namespace

VyFontMetrics::VyFontMetrics(const VyFont& font)
    : m_font(font)
    , m_engine(&VyFontEngine::instance()) {}

VyFontMetrics::VyFontMetrics(const VyFont& font, VyFontEngine& engine)
    : m_font(font)
    , m_engine(&engine) {}

bool VyFontMetrics::setFontFile(const VyString& path, int size) {
    return VyFontEngine::instance().setFontFile(path, size);
}

int VyFontMetrics::ascent() const {
    return m_engine->ascent(m_font.pixelSize());
}

int VyFontMetrics::descent() const {
    return m_engine->descent(m_font.pixelSize());
}

int VyFontMetrics::height() const {
    return m_engine->height(m_font.pixelSize());
}

int VyFontMetrics::horizontalAdvance(const VyString& text) const {
    // Decoded exactly as the text drawing decodes it, so that measured and drawn widths agree
    // on malformed bytes too.
    int width = 0;
    for (char32_t cp : text.toUcs4())
        width += advanceOf(*m_engine, cp, m_font.pixelSize());
    return width;
}

VyString VyFontMetrics::elidedText(const VyString& text, int maxWidth) const {
    if (horizontalAdvance(text) <= maxWidth)
        return text;
    const VyString ellipsis(kEllipsis);
    const int room = maxWidth - horizontalAdvance(ellipsis);
    if (room < 0)
        return VyString();
    int width = 0;
    int kept = 0;
    for (char32_t cp : text.toUcs4()) {
        width += advanceOf(*m_engine, cp, m_font.pixelSize());
        if (width > room)
            break;
        ++kept;
    }
    // left() counts code points and keeps the original bytes of the kept part.
    return text.left(kept) + ellipsis;
}
