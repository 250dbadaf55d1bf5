#pragma once
// What the device customisation file says about the live view:
//   DisplayOutputDef/ScreenSplitMode    the split at start-up, as a channel count (the first
//                                       unmerged layout with that many cells); default 16
//   DisplayOutputDef/VideoAlignCoarse   coarse alignment unit A of picture rectangles on the
//                                       video output plane, output pixels; default 8
//   DisplayOutputDef/VideoAlignFine     fine unit B; default 4
// Units below 1 count as 1 (no alignment).
#include "runtime/VyString.h"

class VyIniSettings;

struct LiveViewProfile {
    static constexpr int kDefaultSplitCount = 16;
    static constexpr int kDefaultCoarseUnit = 8;
    static constexpr int kDefaultFineUnit = 4;

    int splitCount = kDefaultSplitCount;
    int coarseUnit = kDefaultCoarseUnit;
    int fineUnit = kDefaultFineUnit;

    static LiveViewProfile fromIni(const VyIniSettings& ini);
    // "custom-config.ini" below the resources root; the defaults when it is missing.
    static LiveViewProfile load();
    // The catalogue index the start-up split count names.
    int startLayoutIndex() const;
};
