#include "toolkit/widgets/VyLineChart.h"

#include <cmath>

#include "toolkit/style/VyStyle.h"

VyLineChart::VyLineChart(VyWidget* parent)
    : VyChart(parent) {}

VyPoint VyLineChart::valuePoint(int category, int series) const {
    const std::vector<VyChartSeries>& all = this->series();
    if (series < 0 || series >= int(all.size()) || category < 0 ||
        category >= int(all[size_t(series)].values.size()))
        return VyPoint(-1, -1);
    const double v = all[size_t(series)].values[size_t(category)];
    if (!std::isfinite(v))
        return VyPoint(-1, -1);
    const int x = (categoryLeft(category) + categoryLeft(category + 1)) / 2;
    return VyPoint(x, valueY(v));
}

void VyLineChart::paintSeries(VyCanvas* canvas, const VyRect&) const {
    VyStyle* style = VyStyle::instance();
    for (int s = 0; s < int(series().size()); ++s) {
        std::vector<VyPoint> run;
        for (int c = 0; c <= categories().size(); ++c) {
            const VyPoint p = c < categories().size() ? valuePoint(c, s) : VyPoint(-1, -1);
            if (p.x >= 0) {
                run.push_back(p);
                continue;
            }
            if (!run.empty())
                style->drawChartLine(canvas, run, s);
            run.clear();
        }
    }
}
