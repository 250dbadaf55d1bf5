#pragma once
// The drawing operations of the toolkit. Coordinates are pixels of the canvas shifted by
// the origin; the clip rectangle is in unshifted canvas pixels, so a painter can move the
// origin to a child widget and clip to it. Everything outside the canvas or the clip
// rectangle is silently left out. Colours are 0xAARRGGBB; see VyPixelOps.h for how one
// lands on a pixel.
#include <cstdint>

#include "runtime/VyGlobal.h"
#include "runtime/VyPoint.h"
#include "runtime/VyRect.h"
#include "runtime/VyString.h"

class VyBitmap;

class VyCanvas {
public:
    // Text alignment flags for drawText into a rectangle.
    enum Alignment {
        AlignLeft = 0x01,
        AlignRight = 0x02,
        AlignHCenter = 0x04,
        AlignTop = 0x20,
        AlignBottom = 0x40,
        AlignVCenter = 0x80,
        AlignCenter = AlignHCenter | AlignVCenter,
    };

    VyCanvas() = default;
    virtual ~VyCanvas() = default;
    VY_DISABLE_COPY_MOVE(VyCanvas)

    virtual int width() const = 0;
    virtual int height() const = 0;

    // Side of the square a point is drawn with; values below 1 count as 1.
    virtual void setPenWidth(int width) = 0;
    virtual int penWidth() const = 0;
    // Limited to the canvas; an empty rectangle stops all drawing until reset.
    virtual void setClipRect(const VyRect& rect) = 0;
    virtual void resetClip() = 0;
    virtual VyRect clipRect() const = 0;
    virtual void setOrigin(VyPoint origin) = 0;
    virtual VyPoint origin() const = 0;

    virtual void drawPoint(int x, int y, vyargb colour) = 0;
    // Horizontal and vertical lines are one rectangle of pen width; other lines place a
    // pen square per step, so a thick translucent diagonal blends its overlaps again.
    virtual void drawLine(int x1, int y1, int x2, int y2, vyargb colour) = 0;
    // A dotted line with soft edges: every other pixel along the line, its ink shared
    // between the two pixels nearest to the exact position.
    virtual void drawDotLine(vyreal x1, vyreal y1, vyreal x2, vyreal y2, vyargb colour) = 0;
    // The outline lies inside the rectangle, penWidth pixels thick.
    virtual void drawRect(const VyRect& rect, vyargb colour) = 0;
    virtual void fillRect(const VyRect& rect, vyargb colour) = 0;
    // Makes the pixels see-through: the video plane beneath the interface shows there.
    virtual void clearRect(const VyRect& rect) = 0;
    // Pixels whose centres lie inside the triangle (or on its edges).
    virtual void fillTriangle(VyPoint a, VyPoint b, VyPoint c, vyargb colour) = 0;
    // Bitmap pixels with their own alpha; the second form scales to the target.
    virtual void drawImage(int x, int y, const VyBitmap& image) = 0;
    virtual void drawImage(const VyRect& target, const VyBitmap& image) = 0;
    // Opaque pixels already in the screen's 16-bit form (VyPixelOps::opaque), `width` by
    // `height` row by row, copied as they are: a picture composed ahead of time costs no
    // more than the copy.
    virtual void drawPixels(int x, int y, const uint16_t* pixels, int width, int height) = 0;
    // Text starting at pen position x on the baseline y.
    virtual void drawText(int x, int baseline, const VyString& text, int pixelSize,
                          vyargb colour) = 0;
    // One line of text placed in the rectangle by the alignment flags and clipped to it.
    virtual void drawText(const VyRect& rect, int alignment, const VyString& text, int pixelSize,
                          vyargb colour) = 0;
};
