#include "SimVideoPlane.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <vector>

namespace {

// 5x7 glyphs, one string of 7 rows of 5 dots each ('#' set).
struct Glyph {
    char c;
    const char* rows;
};

const Glyph kFont[] = {
    {'0', " ### #   ##  ### # ###  ##   # ### "}, {'1', "  #   ##    #    #    #    #   ### "},
    {'2', " ### #   #    #   #   #   #   #####"}, {'3', "#####   #   #     #     ##   # ### "},
    {'4', "   #   ##  # # #  # #####   #    # "}, {'5', "######    ####     #    ##   # ### "},
    {'6', "  ##  #   #    #### #   ##   # ### "}, {'7', "#####    #   #   #   #    #    #   "},
    {'8', " ### #   ##   # ### #   ##   # ### "}, {'9', " ### #   ##   # ####    #   #  ##  "},
    {'A', " ### #   ##   #######   ##   ##   #"}, {'B', "#### #   ##   ##### #   ##   ##### "},
    {'C', " ### #   ##    #    #    #   # ### "}, {'D', "###  #  # #   ##   ##   ##  # ###  "},
    {'E', "######    #    #### #    #    #####"}, {'F', "######    #    #### #    #    #    "},
    {'G', " ### #   ##    # ####   ##   # ####"}, {'H', "#   ##   ##   #######   ##   ##   #"},
    {'I', " ###   #    #    #    #    #   ### "}, {'J', "  ###   #    #    #    # #  #  ##  "},
    {'K', "#   ##  # # #  ##   # #  #  # #   #"}, {'L', "#    #    #    #    #    #    #####"},
    {'M', "#   ### ### # ## # ##   ##   ##   #"}, {'N', "#   ##   ###  ## # ##  ###   ##   #"},
    {'O', " ### #   ##   ##   ##   ##   # ### "}, {'P', "#### #   ##   ##### #    #    #    "},
    {'Q', " ### #   ##   ##   ## # ##  #  ## #"}, {'R', "#### #   ##   ##### # #  #  # #   #"},
    {'S', " #####    #     ###     #    ##### "}, {'T', "#####  #    #    #    #    #    #  "},
    {'U', "#   ##   ##   ##   ##   ##   # ### "}, {'V', "#   ##   ##   ##   ##   # # #   #  "},
    {'W', "#   ##   ##   ## # ## # ## # # # # "}, {'X', "#   ##   # # #   #   # # #   ##   #"},
    {'Y', "#   ##   # # #   #    #    #    #  "}, {'Z', "#####    #   #   #   #   #    #####"},
    {':', "      ##   ##        ##   ##       "}, {'-', "                ###                "},
    {'.', "                          ##   ##  "}, {'/', "    #    #   #   #   #   #    #    "},
    {'[', " ###  #    #    #    #    #    ### "}, {']', " ###    #    #    #    #    #  ### "},
};

const char* glyphRows(char c) {
    c = char(std::toupper(static_cast<unsigned char>(c)));
    for (const Glyph& g : kFont)
        if (g.c == c)
            return g.rows;
    return nullptr;
}

void fill(uint16_t* px, int width, int height, int l, int t, int r, int b, uint16_t colour) {
    l = std::max(l, 0);
    t = std::max(t, 0);
    r = std::min(r, width - 1);
    b = std::min(b, height - 1);
    if (l > r || t > b)
        return;
    for (int y = t; y <= b; ++y)
        std::fill(px + size_t(y) * width + l, px + size_t(y) * width + r + 1, colour);
}

// A hue per channel, so neighbouring cells differ.
void channelColour(int channel, int* r, int* g, int* b) {
    static const int kPalette[][3] = {{40, 90, 160},  {60, 130, 70},  {150, 80, 40},
                                      {110, 60, 140}, {40, 130, 130}, {150, 130, 40},
                                      {140, 50, 80},  {70, 100, 120}};
    const int* p = kPalette[channel % 8];
    *r = p[0];
    *g = p[1];
    *b = p[2];
}

} // namespace

void SimVideoPlane::zoomCell(uint16_t* pixels, int width, int height, int l, int t, int r, int b,
                             const PreviewZoom& zoom) {
    l = std::max(l, 0);
    t = std::max(t, 0);
    r = std::min(r, width - 1);
    b = std::min(b, height - 1);
    if (l > r || t > b)
        return;
    const int w = r - l + 1;
    const int h = b - t + 1;
    std::vector<uint16_t> source(size_t(w) * size_t(h));
    for (int y = 0; y < h; ++y)
        std::copy_n(pixels + size_t(t + y) * width + l, w, source.begin() + ptrdiff_t(y) * w);
    const int64_t full = PreviewZoom::kFull;
    // Nearest neighbour is enough for a simulated picture.
    for (int y = 0; y < h; ++y) {
        const int64_t sy = (int64_t(zoom.top) * h + int64_t(y) * (zoom.bottom - zoom.top)) / full;
        const int row = int(std::min<int64_t>(h - 1, sy));
        for (int x = 0; x < w; ++x) {
            const int64_t sx =
                (int64_t(zoom.left) * w + int64_t(x) * (zoom.right - zoom.left)) / full;
            const int col = int(std::min<int64_t>(w - 1, sx));
            pixels[size_t(t + y) * width + l + x] = source[size_t(row) * w + col];
        }
    }
}

int SimVideoPlane::textWidth(const std::string& text, int scale) {
    return int(text.size()) * 6 * scale - scale;
}

void SimVideoPlane::drawText(uint16_t* pixels, int width, int height, int x, int y,
                             const std::string& text, int scale, uint16_t colour) {
    for (char c : text) {
        if (const char* rows = glyphRows(c)) {
            for (int row = 0; row < 7; ++row)
                for (int col = 0; col < 5; ++col)
                    if (rows[row * 5 + col] == '#')
                        fill(pixels, width, height, x + col * scale, y + row * scale,
                             x + (col + 1) * scale - 1, y + (row + 1) * scale - 1, colour);
        }
        x += 6 * scale;
    }
}

void SimVideoPlane::drawFrame(const PreviewRecord& record,
                              const std::vector<SimVideoCell>& channels, uint32_t tick,
                              const std::string& clock, uint16_t* pixels, int width, int height) {
    std::fill(pixels, pixels + size_t(width) * height, uint16_t(0));
    const int cells = std::min<int>(record.cellCount, PreviewRecord::kMaxCells);
    for (int i = 0; i < cells; ++i) {
        const PreviewCell& c = record.cells[i];
        const int l = c.left, t = c.top, r = c.right, b = c.bottom;
        if (r <= l || b <= t)
            continue;
        const int w = r - l + 1;
        const int h = b - t + 1;
        const bool known = c.channel < channels.size();
        const bool picture = known && channels[c.channel].picture;
        // The clock line fits the cell: a playback stamp carries the date too.
        const int scale = std::max(1, std::min({w / 80, h / 45, w / (textWidth(clock, 1) + 2)}));
        if (!picture) {
            fill(pixels, width, height, l, t, r, b, rgb(24, 24, 28));
            const std::string text = "NO VIDEO";
            drawText(pixels, width, height, l + (w - textWidth(text, scale)) / 2,
                     t + (h - 7 * scale) / 2, text, scale, rgb(150, 150, 150));
            continue;
        }
        // A vertical gradient in the channel's colour with a band sweeping across it, and a
        // ball that bounces: enough motion to see the picture is live.
        int cr, cg, cb;
        channelColour(c.channel, &cr, &cg, &cb);
        for (int y = t; y <= b && y < height; ++y) {
            const int k = 50 + 100 * (y - t) / h;
            fill(pixels, width, height, l, y, r, y,
                 rgb(std::min(255, cr * k / 100), std::min(255, cg * k / 100),
                     std::min(255, cb * k / 100)));
        }
        const int band = l + int((tick * uint32_t(std::max(1, w / 40))) % uint32_t(w));
        fill(pixels, width, height, band, t, std::min(r, band + std::max(2, w / 30)), b,
             rgb(std::min(255, cr + 80), std::min(255, cg + 80), std::min(255, cb + 80)));
        const int ball = std::max(4, h / 10);
        const int span = std::max(1, w - ball);
        // Each channel's ball starts elsewhere.
        const uint32_t phase = tick + 37u * c.channel;
        int bx = int((phase * 7u) % uint32_t(2 * span));
        bx = bx < span ? bx : 2 * span - bx;
        const int vspan = std::max(1, h - ball);
        int by = int((phase * 5u) % uint32_t(2 * vspan));
        by = by < vspan ? by : 2 * vspan - by;
        fill(pixels, width, height, l + bx, t + by, l + bx + ball - 1, t + by + ball - 1,
             rgb(240, 230, 200));
        const std::string& name = channels[c.channel].name;
        drawText(pixels, width, height, l + (w - textWidth(name, scale)) / 2, t + h / 2 - 9 * scale,
                 name, scale, rgb(255, 255, 255));
        drawText(pixels, width, height, l + (w - textWidth(clock, scale)) / 2,
                 t + h / 2 + 2 * scale, clock, scale, rgb(255, 255, 160));
        if (!channels[c.channel].zoom.isWhole())
            zoomCell(pixels, width, height, l, t, r, b, channels[c.channel].zoom);
    }
}
