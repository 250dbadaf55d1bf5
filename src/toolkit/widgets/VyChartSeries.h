#pragma once
// One named row of values of a chart, one value per category. A series shorter than the
// categories has no value (draws nothing) for the rest; values past them are ignored.
#include "runtime/VyString.h"

#include <vector>

struct VyChartSeries {
    VyString name;
    std::vector<double> values;
};
