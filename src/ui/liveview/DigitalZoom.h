#pragma once
// The arithmetic of a cell's digital zoom: which part of the camera's picture the cell shows,
// in ten-thousandths of the picture (PreviewZoom's unit). The wheel zooms around the point
// under the pointer, so that point stays where it is on screen; a drag pans the picture with
// the pointer; the part shown never leaves the picture and never shrinks below one eighth of
// it.
#include "protocol/PreviewZoom.h"

class DigitalZoom {
public:
    static constexpr double kMaxFactor = 8.0;    // the smallest part is 1/8 of the picture
    static constexpr double kNotchFactor = 1.25; // one wheel notch zooms in (or out) by this

    // fx, fy: the pointer in the cell, 0..1 from the top-left; notches > 0 zoom in.
    void zoomAround(double fx, double fy, int notches);
    // The pointer moved by (dx, dy) cell widths and heights; the picture follows it.
    void panBy(double dx, double dy);
    void reset();

    double factor() const { return m_factor; }
    bool isWhole() const { return m_factor <= 1.0; }
    // The part shown, rounded to the wire's unit and kept inside the picture.
    PreviewZoom region(int channel) const;
    // The same part, fractions 0..1 (left, top, width, height).
    double left() const { return m_left; }
    double top() const { return m_top; }
    double size() const { return 1.0 / m_factor; }

private:
    void clampIntoPicture();

    double m_factor = 1.0;
    double m_left = 0.0;
    double m_top = 0.0;
};
