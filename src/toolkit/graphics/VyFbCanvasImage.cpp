// Bitmap drawing of VyFbCanvas.
#include <cstring>
#include <vector>

#include "runtime/VyBitmap.h"
#include "toolkit/graphics/VyFbCanvas.h"
#include "toolkit/graphics/VyPixelOps.h"

void VyFbCanvas::drawImage(int x, int y, const VyBitmap& image) {
    if (image.isNull())
        return;
    const int64_t left = int64_t(x) + m_origin.x;
    const int64_t top = int64_t(y) + m_origin.y;
    if (left > m_clip.right || top > m_clip.bottom || left + image.width() <= m_clip.left ||
        top + image.height() <= m_clip.top)
        return;
    const VyRect placed(static_cast<int>(left), static_cast<int>(top), image.width(),
                        image.height());
    const VyRect r = clipped(placed);
    if (r.isEmpty())
        return;
    const uint8_t* bits = image.constBits();
    const size_t stride = static_cast<size_t>(image.width()) * 4;
    for (int row = r.top; row <= r.bottom; ++row) {
        const uint8_t* src = bits + (row - placed.top) * stride + (r.left - placed.left) * 4;
        VyPixelOps::blendRgbaRow(scanLine(row) + r.left, src, r.width());
    }
}

void VyFbCanvas::drawPixels(int x, int y, const uint16_t* pixels, int width, int height) {
    if (pixels == nullptr || width <= 0 || height <= 0)
        return;
    const int64_t left = int64_t(x) + m_origin.x;
    const int64_t top = int64_t(y) + m_origin.y;
    if (left > m_clip.right || top > m_clip.bottom || left + width <= m_clip.left ||
        top + height <= m_clip.top)
        return;
    const VyRect placed(static_cast<int>(left), static_cast<int>(top), width, height);
    const VyRect r = clipped(placed);
    if (r.isEmpty())
        return;
    for (int row = r.top; row <= r.bottom; ++row)
        std::memcpy(scanLine(row) + r.left,
                    pixels + size_t(row - placed.top) * size_t(width) +
                        size_t(r.left - placed.left),
                    size_t(r.width()) * sizeof(uint16_t));
}

void VyFbCanvas::drawImage(const VyRect& target, const VyBitmap& image) {
    if (image.isNull() || target.isEmpty())
        return;
    if (target.size() == VySize(image.width(), image.height())) {
        drawImage(target.left, target.top, image);
        return;
    }
    const VyRect placed = toCanvas(target);
    const VyRect r = clipped(placed);
    if (r.isEmpty())
        return;
    // Nearest neighbour: the source column of each target column once, then each target
    // row gathers its source pixels into one run for the row kernel.
    const int64_t iw = image.width();
    const int64_t ih = image.height();
    const int64_t tw = placed.width();
    const int64_t th = placed.height();
    std::vector<int> columns(r.width());
    for (int col = r.left; col <= r.right; ++col)
        columns[col - r.left] = static_cast<int>((col - placed.left) * iw / tw);
    std::vector<uint32_t> run(r.width());
    const uint8_t* bits = image.constBits();
    int64_t gatheredRow = -1;
    for (int row = r.top; row <= r.bottom; ++row) {
        const int64_t srcRow = (row - placed.top) * ih / th;
        if (srcRow != gatheredRow) {
            const uint8_t* line = bits + srcRow * iw * 4;
            for (size_t i = 0; i < columns.size(); ++i)
                std::memcpy(&run[i], line + columns[i] * 4, 4);
            gatheredRow = srcRow;
        }
        VyPixelOps::blendRgbaRow(scanLine(row) + r.left,
                                 reinterpret_cast<const uint8_t*>(run.data()), r.width());
    }
}
