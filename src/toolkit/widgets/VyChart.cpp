#include "toolkit/widgets/VyChart.h"

#include <algorithm>
#include <cmath>

#include "runtime/VyLog.h"
#include "toolkit/style/VyClipScope.h"
#include "toolkit/style/VyStyle.h"
#include "toolkit/style/VyTextLayout.h"

namespace {

// Pixels at 1920x1080.
constexpr int kTickSpacingDesign = 40; // at least between two value ticks
constexpr int kMarginDesign = 10;
constexpr int kTickDesign = 6;
constexpr int kLabelGapDesign = 6;

} // namespace

VyChart::VyChart(VyWidget* parent)
    : VyWidget(parent) {}

bool VyChart::usable(double v) {
    return std::isfinite(v);
}

bool VyChart::setData(const VyStringList& categories, const std::vector<VyChartSeries>& series) {
    if (categories.size() > kMaxCategories || int(series.size()) > kMaxSeries) {
        vyFrameworkLog("VyChart: %d categories and %d series refused !!!\n", categories.size(),
                       int(series.size()));
        return false;
    }
    m_categories = categories;
    m_series = series;
    for (VyChartSeries& s : m_series)
        if (int(s.values.size()) > categories.size())
            s.values.resize(size_t(categories.size()));
    rescale();
    update();
    return true;
}

void VyChart::setIntegerValues(bool on) {
    m_integer = on;
    rescale();
    update();
}

void VyChart::resizeEvent(VyResizeEvent*) {
    rescale();
}

void VyChart::rescale() {
    std::vector<double> all;
    for (const VyChartSeries& s : m_series)
        for (double v : s.values)
            if (usable(v))
                all.push_back(v);
    VyStyle* style = VyStyle::instance();
    const int lineH = VyTextLayout::lineHeight(style->chartFontSize());
    const int usableHeight = height() - 2 * style->scaledHeight(kMarginDesign) - 2 * lineH;
    const int spacing = std::max(style->scaledHeight(kTickSpacingDesign), lineH + 2);
    m_scale = VyChartScale::fit(all, std::max(1, usableHeight / spacing), m_integer);
    m_labelWidth = 0;
    for (int i = 0; i < m_scale.tickCount(); ++i)
        m_labelWidth = std::max(m_labelWidth, VyTextLayout::width(m_scale.label(m_scale.tick(i)),
                                                                  style->chartFontSize()));
}

VyRect VyChart::plotRect() const {
    VyStyle* style = VyStyle::instance();
    const int margin = style->scaled(kMarginDesign);
    const int lineH = VyTextLayout::lineHeight(style->chartFontSize());
    const int left =
        margin + m_labelWidth + style->scaled(kLabelGapDesign) + style->scaled(kTickDesign);
    const int top = style->scaledHeight(kMarginDesign) + lineH / 2;
    const int bottom =
        height() - 1 - style->scaledHeight(kMarginDesign) - lineH - style->scaled(kTickDesign);
    const int right = width() - 1 - margin;
    if (right <= left || bottom <= top)
        return VyRect();
    return VyRect::fromEdges(left, top, right, bottom);
}

int VyChart::valueY(double value) const {
    const VyRect p = plotRect();
    const double f = std::max(0.0, std::min(1.0, m_scale.fraction(value)));
    return p.bottom - int(std::lround(f * (p.height() - 1)));
}

int VyChart::categoryWidth() const {
    const int n = std::max(1, m_categories.size());
    return std::max(1, plotRect().width() / n);
}

int VyChart::categoryLeft(int index) const {
    const VyRect p = plotRect();
    const int n = std::max(1, m_categories.size());
    // Spread the remainder over the gaps, so the last category ends at the plot's edge.
    return p.left + int(int64_t(p.width()) * index / n);
}

int VyChart::labelEvery() const {
    const int px = VyStyle::instance()->chartFontSize();
    int widest = 0;
    for (int i = 0; i < m_categories.size(); ++i)
        widest = std::max(widest, VyTextLayout::width(m_categories.at(i), px));
    const int room = std::max(1, plotRect().width() * 1 / std::max(1, m_categories.size()));
    const int needed = widest + VyStyle::instance()->scaled(kLabelGapDesign);
    return std::max(1, (needed + room - 1) / room);
}

void VyChart::paintEvent(VyPaintEvent*) {
    VyStyle* style = VyStyle::instance();
    VyStyle::ChartAxes axes;
    axes.plot = plotRect();
    if (axes.plot.isEmpty()) {
        style->drawChartAxes(canvas(), rect(), axes);
        return;
    }
    for (int i = 0; i < m_scale.tickCount(); ++i) {
        axes.tickY.push_back(valueY(m_scale.tick(i)));
        axes.tickLabels.append(m_scale.label(m_scale.tick(i)));
    }
    const int every = labelEvery();
    const int half = categoryWidth() / 2;
    for (int i = 0; i < m_categories.size(); i += every) {
        axes.categoryX.push_back(categoryLeft(i) + half);
        axes.categoryLabels.append(m_categories.at(i));
    }
    style->drawChartAxes(canvas(), rect(), axes);
    const VyClipScope clip(canvas(), axes.plot);
    paintSeries(canvas(), axes.plot);
}
