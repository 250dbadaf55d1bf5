#include "runtime/VyFontMetrics.h"

#include "runtime/VyFontEngine.h"
#include "runtime/VyTextShaper.h"

namespace {

constexpr const char* kEllipsis = "...";

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
    // Shaped exactly as the text drawing shapes it, so that measured and drawn widths agree.
    return m_engine->shaper().shape(text, m_font.pixelSize()).width;
}

VyString VyFontMetrics::elidedText(const VyString& text, int maxWidth) const {
    if (horizontalAdvance(text) <= maxWidth)
        return text;
    const VyString ellipsis(kEllipsis);
    if (horizontalAdvance(ellipsis) > maxWidth)
        return VyString();
    // The longest leading part that fits together with the dots, measured as drawn (kerning
    // and joining included). Widths grow with the length, so halve.
    int low = 0;
    int high = text.length();
    while (low < high) {
        const int mid = (low + high + 1) / 2;
        if (horizontalAdvance(text.left(mid) + ellipsis) <= maxWidth)
            low = mid;
        else
            high = mid - 1;
    }
    // left() counts code points and keeps the original bytes of the kept part.
    return text.left(low) + ellipsis;
}
