#pragma once
// A font description: the engine draws one face (the file chosen through
// VyFontMetrics::setFontFile), so a font is told apart only by its pixel size.

class VyFont {
public:
    // Standard controls use 17 px at 1920x1080, scaled with the screen.
    static constexpr int kDefaultPixelSize = 17;

    VyFont() = default;
    explicit VyFont(int pixelSize)
        : m_pixelSize(pixelSize) {}

    int pixelSize() const { return m_pixelSize; }
    void setPixelSize(int pixelSize) { m_pixelSize = pixelSize; }

    bool operator==(const VyFont& o) const { return m_pixelSize == o.m_pixelSize; }
    bool operator!=(const VyFont& o) const { return !(*this == o); }

private:
    int m_pixelSize = kDefaultPixelSize;
};
