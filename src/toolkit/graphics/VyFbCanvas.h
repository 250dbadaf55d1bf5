#pragma once
// A canvas of 16-bit ARGB1555 pixels: either a view of memory it does not own (the mapped
// framebuffer) or an off-screen buffer it allocates itself (window surfaces).
#include <cstdint>
#include <memory>

#include "runtime/VyShapedText.h"
#include "toolkit/graphics/VyCanvas.h"

class VyFbCanvas : public VyCanvas {
public:
    // Off-screen buffers larger than this on either side are refused (an empty canvas).
    static constexpr int kMaxDimension = 8192; // pixels

    // A view of pixels owned elsewhere; bytesPerLine is at least width * 2.
    VyFbCanvas(uint8_t* pixels, int width, int height, int bytesPerLine);
    // An off-screen buffer, cleared to 0 (transparent black).
    VyFbCanvas(int width, int height);
    ~VyFbCanvas() override;
    VY_DISABLE_COPY_MOVE(VyFbCanvas)

    int width() const override { return m_width; }
    int height() const override { return m_height; }
    int bytesPerLine() const { return m_bytesPerLine; }
    bool ownsPixels() const { return m_ownsPixels; }
    uint16_t* scanLine(int y) const {
        return reinterpret_cast<uint16_t*>(m_pixels + static_cast<size_t>(y) * m_bytesPerLine);
    }
    // The raw pixel, or 0 outside the canvas.
    uint16_t pixel(int x, int y) const;

    void setPenWidth(int width) override {
        m_penWidth = width < 1 ? 1 : width > kMaxDimension ? kMaxDimension : width;
    }
    int penWidth() const override { return m_penWidth; }
    void setClipRect(const VyRect& rect) override;
    void resetClip() override;
    VyRect clipRect() const override { return m_clip; }
    void setOrigin(VyPoint origin) override { m_origin = origin; }
    VyPoint origin() const override { return m_origin; }

    void drawPoint(int x, int y, vyargb colour) override;
    void drawLine(int x1, int y1, int x2, int y2, vyargb colour) override;
    void drawDotLine(vyreal x1, vyreal y1, vyreal x2, vyreal y2, vyargb colour) override;
    void drawRect(const VyRect& rect, vyargb colour) override;
    void fillRect(const VyRect& rect, vyargb colour) override;
    void clearRect(const VyRect& rect) override;
    void fillTriangle(VyPoint a, VyPoint b, VyPoint c, vyargb colour) override;
    void drawImage(int x, int y, const VyBitmap& image) override;
    void drawImage(const VyRect& target, const VyBitmap& image) override;
    void drawPixels(int x, int y, const uint16_t* pixels, int width, int height) override;
    void drawText(int x, int baseline, const VyString& text, int pixelSize, vyargb colour) override;
    void drawText(const VyRect& rect, int alignment, const VyString& text, int pixelSize,
                  vyargb colour) override;

    // Raw pixel operations for composition: no blending, no origin, clipped to the clip
    // rectangle. fillRaw writes the 16-bit value as it is.
    void fillRaw(const VyRect& rect, uint16_t value);
    // Copies the source's pixels of sourceRect to the top-left position; rows are copied
    // as they are, bit 15 included.
    void copyFrom(const VyFbCanvas& source, const VyRect& sourceRect, VyPoint position);

    // Pen advance of the text in pixels, as drawText would move.
    static int textWidth(const VyString& text, int pixelSize);

private:
    // The rectangle in canvas pixels (origin applied) cut to the clip rectangle.
    VyRect clipped(const VyRect& rect) const { return rect.intersected(m_clip); }
    // The rectangle with the origin applied, its edges held within reach of int arithmetic.
    VyRect toCanvas(const VyRect& rect) const;
    void blendSpan(int x1, int x2, int y, vyargb colour);
    void blendOne(int x, int y, int alpha, vyargb colour);
    void drawGlyphs(int64_t x, int64_t baseline, const VyShapedText& line, int pixelSize,
                    vyargb colour);

    int m_width = 0;
    int m_height = 0;
    int m_bytesPerLine = 0;
    uint8_t* m_pixels = nullptr;
    std::unique_ptr<uint16_t[]> m_buffer; // the off-screen pixels, when owned
    bool m_ownsPixels = false;
    VyRect m_clip;
    VyPoint m_origin;
    int m_penWidth = 1;
};
