// The chart controls as the style draws them, compared pixel by pixel with an image that was
// checked by eye: grouped bars with a negative value, lines with a gap and an all-zero
// series, the legend, the colour scale and a heat grid. On a mismatch the actual image is
// written next to the golden one ("*.actual.png") to be looked at, and accepted by copying.
#include <gtest/gtest.h>

#include <cstring>
#include <limits>

#include "platform/display/VyFrameDump.h"
#include "runtime/VyBitmap.h"
#include "runtime/VyFontEngine.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VyScreenCursor.h"
#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/style/VyStyle.h"
#include "toolkit/widgets/VyBarChart.h"
#include "toolkit/widgets/VyChartLegend.h"
#include "toolkit/widgets/VyColorScale.h"
#include "toolkit/widgets/VyHeatMap.h"
#include "toolkit/widgets/VyLineChart.h"

namespace {

const char* const kFont = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";

class Backdrop : public VyWidget {
protected:
    void paintEvent(VyPaintEvent*) override { canvas()->fillRect(rect(), 0xFF2A2D33); }
};

VyBitmap drawCharts() {
    VyApplication::setDisplayDevice("mem:1280x720");
    VyApplication::setTimerClock([] { return int64_t(0); });
    VyBitmap image;
    {
        VyApplication app;
        app.screen()->cursor()->hide();
        VyStyle::instance()->followScreen(app.screen());
        Backdrop page;
        page.setGeometry(0, 0, 1280, 720);
        const VyStringList week = {"Mon", "Tue", "Wed", "Thu", "Fri", "Sat", "Sun"};
        auto* bars = new VyBarChart(&page);
        bars->setGeometry(10, 10, 620, 300);
        bars->setData(week, {{"Channel 1", {12, 30, 27, 41, 55, 18, 9}},
                             {"Channel 2", {8, 22, -4, 35, 61, 25, 14}},
                             {"Channel 3", {3, 5, 9}}});
        auto* legend = new VyChartLegend(&page);
        legend->setGeometry(10, 315, 620, 30);
        legend->setNames({"Channel 1", "Channel 2", "Channel 3"});
        VyStringList hours;
        std::vector<double> busy, quiet(24, 0);
        for (int h = 0; h < 24; ++h) {
            hours.append(VyString::number(h) + ":00");
            busy.push_back(h == 13 ? std::numeric_limits<double>::quiet_NaN()
                                   : double((h * 7) % 23 + (h > 8 && h < 20 ? 30 : 0)));
        }
        auto* lines = new VyLineChart(&page);
        lines->setGeometry(650, 10, 620, 335);
        lines->setData(hours, {{"In", busy}, {"Out", quiet}});
        auto* map = new VyHeatMap(&page);
        map->setGeometry(10, 360, 560, 315);
        std::vector<uint32_t> grid(16 * 9);
        for (size_t i = 0; i < grid.size(); ++i)
            grid[i] = uint32_t((i % 16) * (i / 16));
        map->setGrid(16, 9, grid);
        auto* scale = new VyColorScale(&page);
        scale->setGeometry(580, 360, 100, 315);
        scale->setLabels("120", "0");
        auto* zero = new VyBarChart(&page);
        zero->setGeometry(700, 360, 570, 315);
        zero->setData({"A", "B"}, {{"none", {0, 0}}});
        page.show();
        for (VyObject* c : page.children())
            static_cast<VyWidget*>(c)->show();
        app.processPostedEvents();
        image = VyFrameDump::toBitmap(app.screen()->mapping(), app.screen()->width(),
                                      app.screen()->height(), app.screen()->lineLength());
    }
    VyApplication::setTimerClock(nullptr);
    return image;
}

TEST(ChartGolden, ChartsMatchTheCheckedImage) {
    if (!VyFontEngine::instance().setFontFile(kFont, VyFontEngine::kDeviceFontReserveBytes))
        GTEST_SKIP() << "font missing: " << kFont;
    const VyBitmap actual = drawCharts();
    ASSERT_FALSE(actual.isNull());
    const VyString name = VY_TEST_DATA_DIR "/charts/charts-1280x720";
    const VyBitmap expected = VyBitmap::loadPng(name + ".png");
    int differing = -1;
    if (!expected.isNull() && expected.width() == actual.width() &&
        expected.height() == actual.height()) {
        differing = 0;
        const int n = actual.width() * actual.height();
        for (int i = 0; i < n; ++i)
            differing +=
                std::memcmp(expected.constBits() + 4 * i, actual.constBits() + 4 * i, 4) ? 1 : 0;
    }
    if (differing != 0) {
        actual.savePng(name + ".actual.png");
        FAIL() << (differing < 0 ? VyString("no golden image ") + name + ".png"
                                 : VyString::number(differing) + " pixels differ")
                      .c_str()
               << "; the charts as drawn now are " << (name + ".actual.png").c_str();
    }
}

} // namespace
