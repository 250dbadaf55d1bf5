#pragma once
// The split of the playback screen: the layout the shared catalogue picks for the number of
// channels played (findLayoutForCount, square layouts only, as playback has no big cell),
// and its cells laid out over the video area.
#include "runtime/VyRect.h"

#include <vector>

class PlaybackSplit {
public:
    // The catalogue's identifier of the layout for `count` channels (at least one cell).
    static int layoutIdFor(int count);
    // The cells of that layout over `area`, row by row; one cell over the whole area when
    // the catalogue has no layout.
    static std::vector<VyRect> cellsFor(int count, const VyRect& area);
};
