#include "ui/analytics/AnalyticsCatalogue.h"

#include "protocol/AnalyticsCap.h"
#include "toolkit/i18n/TextId.h"
#include "ui/analytics/counting/CrowdCountingPage.h"
#include "ui/analytics/heatmap/HeatMapPage.h"
#include "ui/analytics/stats/PeopleStatsPage.h"

namespace {

template <typename Page>
AnalyticsApplication application(uint32_t cap, uint32_t title) {
    return {cap, title,
            [](VyWidget* parent, uint64_t channels) { return new Page(parent, channels); }};
}

} // namespace

std::vector<AnalyticsApplication> AnalyticsCatalogue::applications() {
    std::vector<AnalyticsApplication> apps;
    // Face applications (face/): their entries go here, before the counting ones.

    apps.push_back(application<CrowdCountingPage>(AnalyticsCap::CrowdCounting,
                                                  TextId::Analytics::CrowdCounting));
    apps.push_back(application<HeatMapPage>(AnalyticsCap::HeatMap, TextId::Analytics::HeatMap));
    apps.push_back(application<PeopleStatsPage>(AnalyticsCap::PeopleStatistics,
                                                TextId::Analytics::PeopleStatistics));
    return apps;
}
