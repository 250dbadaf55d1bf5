// Charts: the value axis picks readable round steps for any data (empty, all zero, negative,
// tiny fractions, one huge outlier) within its tick budget; bars and lines land where their
// values say, inside the plot; heat cells take the colour their value calls for.
#include "toolkit/widgets/VyBarChart.h"
#include "toolkit/widgets/VyChartLegend.h"
#include "toolkit/widgets/VyChartScale.h"
#include "toolkit/widgets/VyHeatMap.h"
#include "toolkit/widgets/VyLineChart.h"

#include "toolkit/style/VyTextLayout.h"
#include "toolkit/widgets/ControlTestApp.h"

#include <cmath>
#include <limits>
#include <set>
#include <string>

namespace {

struct ScaleCase {
    std::vector<double> values;
    int maxTicks;
    bool integer;
};

bool isRoundStep(double step) {
    const double mantissa = step / std::pow(10.0, std::floor(std::log10(step) + 1e-9));
    for (double m : {1.0, 2.0, 5.0})
        if (std::fabs(mantissa - m) < 1e-6)
            return true;
    return false;
}

TEST(ChartScale, EveryRangeGetsRoundDistinctTicksWithinItsBudget) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    const std::vector<ScaleCase> cases = {
        {{}, 5, true},
        {{0, 0, 0}, 5, true},
        {{0, 0, 0}, 4, false},
        {{7}, 5, true},
        {{3, 5, 2, 1000000}, 5, true}, // one huge outlier
        {{-3, 17}, 6, true},
        {{0.01, 0.37}, 5, false},
        {{0.1, 0.2, 0.3}, 3, false},
        {{123456789}, 8, true},
        {{1, 2, 3}, 1, true},
        {{nan, inf, -inf, 4}, 4, true}, // not-finite values are left out
        {{1e300}, 5, false},            // clipped, not overflowed
        {{999}, 10, true},
    };
    for (const ScaleCase& c : cases) {
        SCOPED_TRACE(::testing::PrintToString(c.values));
        const VyChartScale s = VyChartScale::fit(c.values, c.maxTicks, c.integer);
        ASSERT_GT(s.step(), 0);
        EXPECT_TRUE(isRoundStep(s.step())) << s.step();
        if (c.integer) {
            EXPECT_GE(s.step(), 1);
        }
        EXPECT_GE(s.tickCount(), 2);
        EXPECT_LE(s.tickCount() - 1, c.maxTicks);
        EXPECT_LE(s.minimum(), 0);
        EXPECT_GE(s.maximum(), 0);
        for (double v : c.values)
            if (std::isfinite(v) && std::fabs(v) < 1e15) {
                EXPECT_LE(s.minimum(), v);
                EXPECT_GE(s.maximum(), v);
            }
        // The ends are ticks, and every tick reads differently.
        EXPECT_NEAR(std::remainder(s.minimum(), s.step()), 0, s.step() * 1e-6);
        std::set<std::string> labels;
        for (int i = 0; i < s.tickCount(); ++i)
            labels.insert(s.label(s.tick(i)).c_str());
        EXPECT_EQ(int(labels.size()), s.tickCount());
    }
}

TEST(ChartScale, ChoosesTheStepsAReaderExpects) {
    const VyChartScale counts = VyChartScale::fit({0, 7}, 5, true);
    EXPECT_EQ(counts.step(), 2);
    EXPECT_EQ(counts.maximum(), 8);
    const VyChartScale zero = VyChartScale::fit({0, 0}, 5, true);
    EXPECT_EQ(zero.maximum(), 5);
    EXPECT_EQ(zero.label(zero.tick(1)), "1");
    const VyChartScale outlier = VyChartScale::fit({3, 5, 2, 1000000}, 5, true);
    EXPECT_EQ(outlier.step(), 200000);
    EXPECT_EQ(outlier.label(outlier.tick(1)), "200k");
    EXPECT_EQ(outlier.label(outlier.maximum()), "1000k");
    const VyChartScale tenths = VyChartScale::fit({0.1, 0.2, 0.3}, 3, false);
    EXPECT_EQ(tenths.label(tenths.tick(3)), "0.3");
    const VyChartScale negative = VyChartScale::fit({-3, 17}, 6, true);
    EXPECT_EQ(negative.minimum(), -5);
    EXPECT_EQ(negative.label(negative.tick(1)), "0");
    EXPECT_EQ(VyChartScale::niceStep(0.7), 1);
    EXPECT_EQ(VyChartScale::niceStep(2.1), 5);
    EXPECT_EQ(VyChartScale::niceStep(-1), 1);
}

class ChartWidget : public ControlTest {};

TEST_F(ChartWidget, BarsStandInPlotOrderedBySeriesAndSizedByValue) {
    VyBarChart chart;
    chart.setGeometry(0, 0, 600, 300);
    const VyStringList days = {"Mon", "Tue", "Wed"};
    ASSERT_TRUE(chart.setData(days, {{"A", {10, 0, 40}}, {"B", {20, 5}}, {"C", {-5, 1, 2}}}));
    const VyRect plot = chart.plotRect();
    ASSERT_FALSE(plot.isEmpty());
    EXPECT_LE(chart.scale().minimum(), -5);
    for (int c = 0; c < 3; ++c) {
        int lastRight = -1;
        for (int s = 0; s < 3; ++s) {
            const VyRect bar = chart.barRect(c, s);
            if (bar.isEmpty())
                continue;
            EXPECT_EQ(bar.intersected(plot), bar) << c << "/" << s;
            EXPECT_GT(bar.left, lastRight) << "bars of one group overlap";
            lastRight = bar.right;
        }
    }
    EXPECT_TRUE(chart.barRect(1, 0).isEmpty()); // zero
    EXPECT_TRUE(chart.barRect(2, 1).isEmpty()); // B has no third value
    EXPECT_TRUE(chart.barRect(0, 3).isEmpty());
    EXPECT_GT(chart.barRect(0, 1).height(), chart.barRect(0, 0).height());
    EXPECT_NEAR(chart.barRect(2, 0).height(), 4 * chart.barRect(0, 0).height(), 2);
    // A negative bar hangs below the zero row, a positive one stands on it.
    EXPECT_GT(chart.barRect(0, 2).top, chart.valueY(0));
    EXPECT_EQ(chart.barRect(0, 0).bottom, chart.valueY(0) - 1);
    // Too much data is refused, and the chart keeps what it had.
    std::vector<VyChartSeries> many(VyChart::kMaxSeries + 1, VyChartSeries{"x", {1}});
    EXPECT_FALSE(chart.setData({"d"}, many));
    EXPECT_EQ(chart.categories().size(), 3);
}

TEST_F(ChartWidget, LinesBreakAtMissingValuesAndLabelsNeverCrowd) {
    VyLineChart chart;
    chart.setGeometry(0, 0, 400, 200);
    VyStringList hours;
    for (int h = 0; h < 24; ++h)
        hours.append(VyString::number(h) + ":00");
    std::vector<double> v(24, 3);
    v[5] = std::numeric_limits<double>::quiet_NaN();
    ASSERT_TRUE(chart.setData(hours, {{"A", v}}));
    EXPECT_EQ(chart.valuePoint(5, 0), VyPoint(-1, -1));
    EXPECT_EQ(chart.valuePoint(4, 0).y, chart.valuePoint(6, 0).y);
    EXPECT_LT(chart.valuePoint(4, 0).x, chart.valuePoint(6, 0).x);
    // 24 labels of "23:00" do not fit 400 pixels: only every k-th is drawn, and k of them
    // are at least as wide as the widest label.
    const int every = chart.labelEvery();
    EXPECT_GT(every, 1);
    EXPECT_GE(chart.categoryLeft(every) - chart.categoryLeft(0),
              VyTextLayout::width("23:00", VyStyle::instance()->chartFontSize()));
}

TEST_F(ChartWidget, HeatCellsTakeTheColourOfTheirShareOfTheLargestValue) {
    VyHeatMap map;
    map.setGeometry(0, 0, 300, 100);
    ASSERT_TRUE(map.setGrid(3, 2, {0, 5, 10, 10, 1, 0}));
    EXPECT_EQ(map.maximum(), 10u);
    EXPECT_EQ(map.cellColour(0, 0), 0u); // nothing there: the scene shows
    EXPECT_EQ(map.cellColour(2, 0), VyStyle::heatColour(1.0, VyHeatMap::kTintAlpha));
    EXPECT_EQ(map.cellColour(1, 0), VyStyle::heatColour(0.5, VyHeatMap::kTintAlpha));
    EXPECT_EQ(map.cellColour(0, 1), map.cellColour(2, 0));
    // Hot is red, cold is blue.
    const vyargb hot = VyStyle::heatColour(1.0), cold = VyStyle::heatColour(0.0);
    EXPECT_GT((hot >> 16) & 0xFF, hot & 0xFF);
    EXPECT_GT(cold & 0xFF, (cold >> 16) & 0xFF);
    // The cells tile the widget exactly.
    EXPECT_EQ(map.cellRect(0, 0).left, 0);
    EXPECT_EQ(map.cellRect(2, 1).right, 299);
    EXPECT_EQ(map.cellRect(2, 1).bottom, 99);
    EXPECT_EQ(map.cellRect(1, 0).left, map.cellRect(0, 0).right + 1);
    // A grid whose size does not match its values is refused.
    EXPECT_FALSE(map.setGrid(4, 2, {1, 2, 3}));
    EXPECT_FALSE(map.setGrid(VyHeatMap::kMaxColumns + 1, 1,
                             std::vector<uint32_t>(VyHeatMap::kMaxColumns + 1, 1)));
    EXPECT_EQ(map.columns(), 3);
}

} // namespace
