#pragma once
// Every analytics application the GUI knows, in tab order. The window keeps those the
// recorder offers.
#include "ui/analytics/AnalyticsApplication.h"

#include <vector>

class AnalyticsCatalogue {
public:
    static std::vector<AnalyticsApplication> applications();
};
