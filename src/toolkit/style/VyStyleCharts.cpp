#include "toolkit/style/VyStyle.h"

#include <algorithm>
#include <cmath>

#include "toolkit/style/VyClipScope.h"
#include "toolkit/style/VyLabelOption.h"
#include "toolkit/style/VyStyleDefaults.h"
#include "toolkit/style/VyStyleSlot.h"
#include "toolkit/style/VyTextLayout.h"

namespace D = VyStyleDefaults;

namespace {

constexpr vyargb kChartBackground = 0xFF1E2024;
constexpr vyargb kChartGrid = 0xFF32353B;
constexpr vyargb kChartAxis = 0xFF6E747E;
// Told apart on the dark background and by most colour-blind viewers: the first four
// differ in lightness as well as hue.
constexpr vyargb kPalette[VyStyle::kChartPaletteSize] = {
    0xFF0096DC, 0xFFF0A030, 0xFF50C878, 0xFFE05060, 0xFFA070E0, 0xFFE0E060, 0xFF40D0D0, 0xFFC08060,
};
// Gradient stops of the heat colours, cold to hot.
constexpr vyargb kHeatStops[] = {0xFF0020C0, 0xFF00C0E0, 0xFF20C040, 0xFFF0E020, 0xFFE02010};
constexpr int kHeatStopCount = int(sizeof kHeatStops / sizeof kHeatStops[0]);

constexpr int kMarkDesign = 6;     // side of a line chart's point mark
constexpr int kLineDesign = 3;     // width of a line chart's line
constexpr int kTickDesign = 6;     // length of a value tick outside the plot
constexpr int kSwatchDesign = 16;  // side of a legend's colour swatch
constexpr int kLabelGapDesign = 6; // between a label and what it labels

int channel(vyargb c, int shift) {
    return int((c >> shift) & 0xFF);
}

} // namespace

int VyStyle::chartFontSize() const {
    // A step below the labels' size: axes carry many short numbers.
    const int label = fontSize(m_option.get<VyLabelOption>().font, VyStyleNormal);
    return std::max(8, label * 5 / 6);
}

vyargb VyStyle::chartSeriesColour(int series) {
    const int i = series < 0 ? 0 : series % kChartPaletteSize;
    return kPalette[i];
}

vyargb VyStyle::heatColour(double t, int alpha) {
    if (!(t > 0))
        t = 0; // also NaN
    t = std::min(1.0, t);
    const double pos = t * (kHeatStopCount - 1);
    const int i = std::min(kHeatStopCount - 2, int(pos));
    const double f = pos - i;
    const vyargb a = kHeatStops[i], b = kHeatStops[i + 1];
    auto mix = [&](int shift) {
        return vyargb(std::lround(channel(a, shift) + (channel(b, shift) - channel(a, shift)) * f));
    };
    const vyargb al = vyargb(std::max(0, std::min(255, alpha)));
    return al << 24 | mix(16) << 16 | mix(8) << 8 | mix(0);
}

void VyStyle::drawChartAxes(VyCanvas* canvas, const VyRect& rect, const ChartAxes& axes) const {
    const VyClipScope clip(canvas, rect);
    canvas->fillRect(rect, kChartBackground);
    const VyRect& p = axes.plot;
    const int px = chartFontSize();
    const int lineH = VyTextLayout::lineHeight(px);
    const int gap = scaled(kLabelGapDesign);
    const int tick = scaled(kTickDesign);
    for (size_t i = 0; i < axes.tickY.size(); ++i) {
        const int y = axes.tickY[i];
        canvas->fillRect(VyRect(p.left, y, p.width(), 1), kChartGrid);
        canvas->fillRect(VyRect(p.left - tick, y, tick, 1), kChartAxis);
        if (int(i) < axes.tickLabels.size()) {
            const VyRect box =
                VyRect::fromEdges(rect.left, y - lineH / 2, p.left - tick - gap, y + lineH / 2);
            canvas->drawText(box, VyCanvas::AlignRight | VyCanvas::AlignVCenter,
                             axes.tickLabels.at(int(i)), px, D::kText);
        }
    }
    // The axes over the grid: value axis at the left, category axis at the bottom.
    canvas->fillRect(VyRect(p.left - 1, p.top, 1, p.height()), kChartAxis);
    canvas->fillRect(VyRect(p.left - 1, p.bottom, p.width() + 1, 1), kChartAxis);
    for (size_t i = 0; i < axes.categoryX.size() && int(i) < axes.categoryLabels.size(); ++i) {
        const VyString& text = axes.categoryLabels.at(int(i));
        if (text.isEmpty())
            continue;
        const int x = axes.categoryX[i];
        const int w = VyTextLayout::width(text, px);
        canvas->fillRect(VyRect(x, p.bottom + 1, 1, tick / 2 + 1), kChartAxis);
        canvas->drawText(VyRect(x - w / 2 - 1, p.bottom + tick, w + 2, lineH),
                         VyCanvas::AlignCenter, text, px, D::kText);
    }
}

void VyStyle::drawChartBar(VyCanvas* canvas, const VyRect& bar, int series) const {
    if (bar.isEmpty())
        return;
    const vyargb c = chartSeriesColour(series);
    canvas->fillRect(bar, c);
    // A lighter cap so neighbouring bars of close values stay apart.
    if (bar.height() > 2)
        canvas->fillRect(VyRect(bar.left, bar.top, bar.width(), 1), 0x60FFFFFF);
}

void VyStyle::drawChartLine(VyCanvas* canvas, const std::vector<VyPoint>& points,
                            int series) const {
    const vyargb c = chartSeriesColour(series);
    const int pen = canvas->penWidth();
    canvas->setPenWidth(scaled(kLineDesign));
    for (size_t i = 1; i < points.size(); ++i)
        canvas->drawLine(points[i - 1].x, points[i - 1].y, points[i].x, points[i].y, c);
    canvas->setPenWidth(pen);
    const int m = scaled(kMarkDesign);
    for (const VyPoint& pt : points)
        canvas->fillRect(VyRect(pt.x - m / 2, pt.y - m / 2, m, m), c);
}

void VyStyle::drawLegendItem(VyCanvas* canvas, const VyRect& rect, const VyString& text,
                             int series) const {
    const VyClipScope clip(canvas, rect);
    const int side = std::min(rect.height(), scaled(kSwatchDesign));
    const VyRect swatch(rect.left, rect.top + (rect.height() - side) / 2, side, side);
    canvas->fillRect(swatch, chartSeriesColour(series));
    const int gap = scaled(kLabelGapDesign);
    const VyRect textBox =
        VyRect::fromEdges(swatch.right + gap + 1, rect.top, rect.right, rect.bottom);
    const int px = chartFontSize();
    canvas->drawText(textBox, VyCanvas::AlignLeft | VyCanvas::AlignVCenter,
                     VyTextLayout::elided(text, px, textBox.width()), px, D::kText);
}

void VyStyle::drawColorScale(VyCanvas* canvas, const VyRect& rect, const VyString& high,
                             const VyString& low) const {
    const VyClipScope clip(canvas, rect);
    const int px = chartFontSize();
    const int lineH = VyTextLayout::lineHeight(px);
    const int barW = std::min(rect.width(), colorScaleBarWidth());
    // Half a text line above and below, so the end labels centre on the bar's ends.
    const VyRect bar(rect.left, rect.top + lineH / 2, barW, std::max(1, rect.height() - lineH));
    const int rows = bar.height();
    for (int y = 0; y < rows; ++y) {
        const double t = rows > 1 ? 1.0 - double(y) / (rows - 1) : 1.0;
        canvas->fillRect(VyRect(bar.left, bar.top + y, bar.width(), 1), heatColour(t));
    }
    canvas->drawRect(bar, kChartAxis);
    const int gap = scaled(kLabelGapDesign);
    const VyRect labels = VyRect::fromEdges(bar.right + gap + 1, rect.top, rect.right, rect.bottom);
    canvas->drawText(VyRect(labels.left, rect.top, labels.width(), lineH),
                     VyCanvas::AlignLeft | VyCanvas::AlignVCenter, high, px, D::kText);
    canvas->drawText(VyRect(labels.left, rect.bottom - lineH + 1, labels.width(), lineH),
                     VyCanvas::AlignLeft | VyCanvas::AlignVCenter, low, px, D::kText);
}
