#include "toolkit/widgets/VyBarChart.h"

#include <algorithm>
#include <cmath>

#include "toolkit/style/VyStyle.h"

VyBarChart::VyBarChart(VyWidget* parent)
    : VyChart(parent) {}

VyRect VyBarChart::barRect(int category, int series) const {
    const std::vector<VyChartSeries>& all = this->series();
    if (series < 0 || series >= int(all.size()) || category < 0 ||
        category >= int(all[size_t(series)].values.size()))
        return VyRect();
    const double v = all[size_t(series)].values[size_t(category)];
    if (!std::isfinite(v) || v == 0)
        return VyRect();
    const int slot = categoryLeft(category + 1) - categoryLeft(category);
    // A fifth of the slot keeps groups apart; bars inside a group touch.
    const int gap = std::max(1, slot / 5);
    const int groupWidth = slot - gap;
    const int n = int(all.size());
    const int left = categoryLeft(category) + gap / 2 + groupWidth * series / n;
    const int right = categoryLeft(category) + gap / 2 + groupWidth * (series + 1) / n;
    if (right <= left)
        return VyRect();
    const int zero = valueY(0);
    const int y = valueY(v);
    // The zero row is the axis: bars stop short of it.
    if (y < zero)
        return VyRect::fromEdges(left, y, right - 1, zero - 1);
    if (y > zero)
        return VyRect::fromEdges(left, zero + 1, right - 1, y);
    return VyRect();
}

void VyBarChart::paintSeries(VyCanvas* canvas, const VyRect&) const {
    VyStyle* style = VyStyle::instance();
    const int n = int(series().size());
    for (int c = 0; c < categories().size(); ++c)
        for (int s = 0; s < n; ++s) {
            const VyRect bar = barRect(c, s);
            if (!bar.isEmpty())
                style->drawChartBar(canvas, bar, s);
        }
}
