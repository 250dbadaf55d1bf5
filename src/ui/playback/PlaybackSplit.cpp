#include "ui/playback/PlaybackSplit.h"

#include "ui/liveview/VyVideoScreenLayout.h"
#include "ui/liveview/VyVideoScreenLayoutManager.h"

#include <algorithm>

int PlaybackSplit::layoutIdFor(int count) {
    return VyVideoScreenLayoutManager::instance()->findLayoutForCount(std::max(1, count), false);
}

std::vector<VyRect> PlaybackSplit::cellsFor(int count, const VyRect& area) {
    const VyVideoScreenLayout* layout =
        VyVideoScreenLayoutManager::instance()->layoutById(layoutIdFor(count));
    if (layout == nullptr || layout->rows() <= 0 || layout->columns() <= 0)
        return {area};
    const int rows = layout->rows(), columns = layout->columns();
    std::vector<VyRect> cells;
    cells.reserve(size_t(layout->cellCount()));
    for (int r = 0; r < rows; ++r) {
        for (int c = 0; c < columns; ++c) {
            const int span = layout->cellSpan(r, c);
            if (span <= 0) // covered by a bigger cell
                continue;
            // Edges from the exact fractions, so that the cells tile the area without gaps.
            const int x0 = area.left + area.width() * c / columns;
            const int x1 = area.left + area.width() * (c + span) / columns;
            const int y0 = area.top + area.height() * r / rows;
            const int y1 = area.top + area.height() * (r + span) / rows;
            cells.push_back(VyRect(x0, y0, x1 - x0, y1 - y0));
        }
    }
    return cells;
}
