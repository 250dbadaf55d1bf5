#include "ui/playback/PlaybackSplit.h"

#include <algorithm>

namespace {

int sideFor(int count) {
    int side = 1;
    while (side * side < count && side < 8)
        ++side;
    if (side == 7) // there is no 49 split: 64 follows 36
        side = 8;
    return side;
}

} // namespace

std::vector<VyRect> PlaybackSplit::cellsFor(int count, const VyRect& area) {
    const int side = sideFor(std::max(1, count));
    std::vector<VyRect> cells;
    cells.reserve(size_t(side) * size_t(side));
    for (int r = 0; r < side; ++r) {
        for (int c = 0; c < side; ++c) {
            // Edges from the exact fractions, so that the cells tile the area without gaps.
            const int x0 = area.left + area.width() * c / side;
            const int x1 = area.left + area.width() * (c + 1) / side;
            const int y0 = area.top + area.height() * r / side;
            const int y1 = area.top + area.height() * (r + 1) / side;
            cells.push_back(VyRect(x0, y0, x1 - x0, y1 - y0));
        }
    }
    return cells;
}

int PlaybackSplit::layoutIdFor(int count) {
    const int side = sideFor(std::max(1, count));
    return side * side;
}
