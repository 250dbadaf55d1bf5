#pragma once
// The split of the playback screen: how many cells for how many channels, and where they
// lie. The live view's layout catalogue (findLayoutForCount) is meant to decide this; until
// it is part of this tree the square splits 1, 4, 9, 16, 25, 36 and 64 stand in, through
// this one function, so that swapping it touches nothing else.
#include "runtime/VyRect.h"

#include <vector>

class PlaybackSplit {
public:
    // The smallest square split that holds `count` channels (at least one cell, at most 64),
    // its cells laid out row by row over `area`.
    static std::vector<VyRect> cellsFor(int count, const VyRect& area);
    // The layout number sent to App with the split (the cell count of the square split).
    static int layoutIdFor(int count);
};
