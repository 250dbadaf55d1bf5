#pragma once
// The simulated video output: for each cell of the GUI's last preview record, a moving
// picture with the channel's name and a running clock, or a "NO VIDEO" card, drawn at the
// cell's output-plane rectangle into a shared file of 16-bit pixels (5 bits per channel)
// that the GUI's desktop window and fbshot put beneath the interface plane.
#include "protocol/PreviewRecord.h"
#include "protocol/PreviewZoom.h"

#include <cstdint>
#include <string>
#include <vector>

struct SimVideoCell {
    bool picture = false; // a camera with a signal
    std::string name;
    PreviewZoom zoom; // the part of the picture the cell shows, scaled up to fill it
};

class SimVideoPlane {
public:
    // Draws one frame of `record` into pixels (width x height, row-major). `tick` moves the
    // pictures, `clock` is the text of the running clock.
    static void drawFrame(const PreviewRecord& record, const std::vector<SimVideoCell>& channels,
                          uint32_t tick, const std::string& clock, uint16_t* pixels, int width,
                          int height);
    // Text in the built-in 5x7 font (letters, digits, ":-./[]"), each dot scale x scale.
    static void drawText(uint16_t* pixels, int width, int height, int x, int y,
                         const std::string& text, int scale, uint16_t colour);
    static int textWidth(const std::string& text, int scale);
    // Scales the part `zoom` of the cell's rectangle (inclusive edges) up to the whole cell.
    static void zoomCell(uint16_t* pixels, int width, int height, int l, int t, int r, int b,
                         const PreviewZoom& zoom);
    static uint16_t rgb(int r, int g, int b) {
        return uint16_t(((r >> 3) << 10) | ((g >> 3) << 5) | (b >> 3));
    }
};
