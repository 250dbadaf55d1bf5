#include "ui/analytics/AnalyticsCatalogue.h"

#include "model/AIManager.h"
#include "protocol/AnalyticsCap.h"
#include "toolkit/i18n/TextId.h"
#include "ui/analytics/counting/CrowdCountingPage.h"
#include "ui/analytics/face/AttendancePage.h"
#include "ui/analytics/face/FaceLibraryPage.h"
#include "ui/analytics/face/FaceSearchPage.h"
#include "ui/analytics/heatmap/HeatMapPage.h"
#include "ui/analytics/stats/PeopleStatsPage.h"

namespace {

template <typename Page>
AnalyticsApplication application(uint32_t cap, uint32_t title) {
    return {cap, title,
            [](VyWidget* parent, uint64_t channels) { return new Page(parent, channels); }};
}

// The face pages work on the library the analytics model owns, over the channels from 0 up
// to the last analysed one.
template <typename Page>
AnalyticsApplication faceApplication(uint32_t cap) {
    return {cap, Page::titleTextId(), [](VyWidget* parent, uint64_t channels) -> VyWidget* {
                AIManager* ai = AIManager::instance();
                if (ai == nullptr || channels == 0)
                    return nullptr;
                int count = 0;
                for (uint64_t rest = channels; rest != 0; rest >>= 1)
                    ++count;
                return new Page(ai->faceLibrary(), count, parent);
            }};
}

} // namespace

std::vector<AnalyticsApplication> AnalyticsCatalogue::applications() {
    std::vector<AnalyticsApplication> apps;
    apps.push_back(faceApplication<FaceLibraryPage>(AnalyticsCap::FaceLibrary));
    apps.push_back(faceApplication<FaceSearchPage>(AnalyticsCap::FaceSearch));
    apps.push_back(faceApplication<AttendancePage>(AnalyticsCap::Attendance));

    apps.push_back(application<CrowdCountingPage>(AnalyticsCap::CrowdCounting,
                                                  TextId::Analytics::CrowdCounting));
    apps.push_back(application<HeatMapPage>(AnalyticsCap::HeatMap, TextId::Analytics::HeatMap));
    apps.push_back(application<PeopleStatsPage>(AnalyticsCap::PeopleStatistics,
                                                TextId::Analytics::PeopleStatistics));
    return apps;
}
