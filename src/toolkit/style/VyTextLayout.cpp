#include "toolkit/style/VyTextLayout.h"

#include "toolkit/graphics/VyFbCanvas.h"

namespace {

const char* const kEllipsis = "\xE2\x80\xA6"; // U+2026

// The longest head of `text` (in code points) whose width does not exceed `width`.
int fittingLength(const std::u32string& text, int pixelSize, int width) {
    int lo = 0, hi = static_cast<int>(text.size());
    while (lo < hi) {
        const int mid = (lo + hi + 1) / 2;
        if (VyTextLayout::width(VyString::fromUcs4(text.substr(0, mid)), pixelSize) <= width)
            lo = mid;
        else
            hi = mid - 1;
    }
    return lo;
}

} // namespace

int VyTextLayout::width(const VyString& text, int pixelSize) {
    return VyFbCanvas::textWidth(text, pixelSize);
}

VyString VyTextLayout::elided(const VyString& text, int pixelSize, int width) {
    if (width <= 0)
        return VyString();
    if (VyTextLayout::width(text, pixelSize) <= width)
        return text;
    const int room = width - VyTextLayout::width(kEllipsis, pixelSize);
    if (room < 0)
        return VyString();
    const std::u32string chars = text.toUcs4();
    return VyString::fromUcs4(chars.substr(0, fittingLength(chars, pixelSize, room))) + kEllipsis;
}

VyStringList VyTextLayout::wrapped(const VyString& text, int pixelSize, int width) {
    VyStringList lines;
    if (width <= 0)
        return lines;
    const std::u32string chars = text.toUcs4();
    size_t start = 0;
    while (start <= chars.size()) {
        size_t end = chars.find(U'\n', start);
        if (end == std::u32string::npos)
            end = chars.size();
        std::u32string rest = chars.substr(start, end - start);
        do {
            if (VyTextLayout::width(VyString::fromUcs4(rest), pixelSize) <= width) {
                lines.append(VyString::fromUcs4(rest));
                break;
            }
            int fit = fittingLength(rest, pixelSize, width);
            // Break after the last space that fits; a word wider than the line is cut.
            const size_t space = rest.rfind(U' ', static_cast<size_t>(fit));
            size_t cut =
                space != std::u32string::npos && space > 0 ? space : static_cast<size_t>(fit);
            if (cut == 0)
                cut = 1; // a character wider than the line: one per line, clipped when drawn
            lines.append(VyString::fromUcs4(rest.substr(0, cut)));
            while (cut < rest.size() && rest[cut] == U' ')
                ++cut;
            rest = rest.substr(cut);
        } while (!rest.empty());
        start = end + 1;
    }
    return lines;
}
