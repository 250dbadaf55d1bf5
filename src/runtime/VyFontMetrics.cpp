#include "runtime/VyFontMetrics.h"

#include "runtime/VyFontEngine.h"
#include "runtime/VyGlyph.h"

#include <string>

namespace {

constexpr char32_t kReplacementCharacter = 0xFFFD;
constexpr const char* kEllipsis = "...";

// Decodes the code point starting at text[*pos] and moves *pos past it. Malformed, overlong
// and surrogate sequences yield U+FFFD and consume one byte, so that decoding always moves on.
char32_t decodeUtf8(const std::string& text, size_t* pos) {
    const auto byteAt = [&](size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char lead = byteAt(*pos);
    int extra = 0;
    char32_t cp = 0;
    char32_t minimum = 0;
    if (lead < 0x80) {
        ++*pos;
        return lead;
    } else if ((lead & 0xE0) == 0xC0) {
        extra = 1, cp = lead & 0x1F, minimum = 0x80;
    } else if ((lead & 0xF0) == 0xE0) {
        extra = 2, cp = lead & 0x0F, minimum = 0x800;
    } else if ((lead & 0xF8) == 0xF0) {
        extra = 3, cp = lead & 0x07, minimum = 0x10000;
    } else {
        ++*pos;
        return kReplacementCharacter;
    }
    if (*pos + extra >= text.size()) {
        ++*pos;
        return kReplacementCharacter;
    }
    for (int i = 1; i <= extra; ++i) {
        const unsigned char next = byteAt(*pos + i);
        if ((next & 0xC0) != 0x80) {
            ++*pos;
            return kReplacementCharacter;
        }
        cp = (cp << 6) | (next & 0x3F);
    }
    if (cp < minimum || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) {
        ++*pos;
        return kReplacementCharacter;
    }
    *pos += 1 + extra;
    return cp;
}

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
    const std::string& bytes = text.toStdString();
    int width = 0;
    for (size_t pos = 0; pos < bytes.size();)
        width += advanceOf(*m_engine, decodeUtf8(bytes, &pos), m_font.pixelSize());
    return width;
}

VyString VyFontMetrics::elidedText(const VyString& text, int maxWidth) const {
    if (horizontalAdvance(text) <= maxWidth)
        return text;
    const int pixelSize = m_font.pixelSize();
    const int room = maxWidth - horizontalAdvance(VyString(std::string(kEllipsis)));
    if (room < 0)
        return VyString();
    // Keep whole code points only: the cut is a byte offset at a code point boundary.
    const std::string& bytes = text.toStdString();
    int width = 0;
    size_t cut = 0;
    for (size_t pos = 0; pos < bytes.size();) {
        const char32_t cp = decodeUtf8(bytes, &pos);
        width += advanceOf(*m_engine, cp, pixelSize);
        if (width > room)
            break;
        cut = pos;
    }
    return VyString(bytes.substr(0, cut) + kEllipsis);
}
