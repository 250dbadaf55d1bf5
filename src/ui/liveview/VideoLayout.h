#pragma once
// The geometry engine of one video screen: turns the cells of a split layout into widget
// rectangles (user-interface pixels, relative to the content origin) and into picture
// rectangles on the video output plane, where the recorder composes the decoded pictures.
//
// The output plane's picture edges must sit on the video hardware's alignment: interior
// edges on multiples of half the coarse unit A, every edge not on a multiple of the fine
// unit B moved onto one (the far edge down to a multiple of A, the others up). With
// A = B = 1 the arithmetic is a plain grid.
#include "runtime/VyPoint.h"
#include "runtime/VyRect.h"
#include "toolkit/core/VyObject.h"

#include <cstdint>
#include <vector>

class Video;

class VideoLayout : public VyObject {
    VY_OBJECT(VideoLayout, VyObject)
public:
    struct Item {
        Video* cell; // not owned
        uint8_t row;
        uint8_t column;
        uint8_t size;
    };

    // The output and interface sizes start as the screen's (both 1x1 without a screen).
    explicit VideoLayout(VyObject* parent = nullptr);

    // Inclusive edges, interface pixels.
    void setContentRect(const VyRect& rect) { m_content = rect; }
    VyRect contentRect() const { return m_content; }
    void setMargins(int left, int top, int right, int bottom);
    void setOutputSize(int width, int height);
    void setInterfaceSize(int width, int height);
    int outputWidth() const { return m_outputWidth; }
    int outputHeight() const { return m_outputHeight; }
    // The coarse unit A and the fine unit B of the output plane; values below 1 count as 1.
    void setAlignment(int coarse, int fine);
    int coarseUnit() const { return m_coarse; }
    int fineUnit() const { return m_fine; }

    void clear() { m_items.clear(); }
    void addCell(Video* cell, int row, int column, int size);
    const std::vector<Item>& items() const { return m_items; }

    // Computes and applies both rectangles of every visible item.
    void activate();
    // The first visible item whose widget rectangle holds the point (interface pixels
    // relative to the content origin), or null.
    Video* cellAt(VyPoint point) const;

    // The output-plane edges for `count` grid units starting at `origin` (output pixels)
    // over `extent` output pixels: count + 1 values, aligned as described above.
    static std::vector<int> outputEdges(int origin, double extent, int count, int coarse, int fine);

private:
    VyRect m_content;
    int m_marginLeft = 0;
    int m_marginTop = 0;
    int m_marginRight = 0;
    int m_marginBottom = 0;
    int m_outputWidth = 1;
    int m_outputHeight = 1;
    int m_interfaceWidth = 1;
    int m_interfaceHeight = 1;
    int m_coarse = 1;
    int m_fine = 1;
    std::vector<Item> m_items;
};
