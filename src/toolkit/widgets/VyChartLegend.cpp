#include "toolkit/widgets/VyChartLegend.h"

#include <algorithm>

#include "toolkit/style/VyStyle.h"
#include "toolkit/style/VyTextLayout.h"

namespace {

// Pixels at 1920x1080: swatch, gap and the space after an entry.
constexpr int kEntryExtraDesign = 16 + 6 + 20;
constexpr int kMaxEntryDesign = 260; // longer names are elided

} // namespace

VyChartLegend::VyChartLegend(VyWidget* parent)
    : VyWidget(parent) {}

void VyChartLegend::setNames(const VyStringList& names) {
    m_names = names;
    update();
}

int VyChartLegend::entryWidth() const {
    VyStyle* style = VyStyle::instance();
    int widest = 0;
    for (int i = 0; i < m_names.size(); ++i)
        widest = std::max(widest, VyTextLayout::width(m_names.at(i), style->chartFontSize()));
    return std::min(widest + style->scaled(kEntryExtraDesign), style->scaled(kMaxEntryDesign));
}

int VyChartLegend::columns() const {
    return std::max(1, width() / std::max(1, entryWidth()));
}

VyRect VyChartLegend::entryRect(int index) const {
    if (index < 0 || index >= m_names.size())
        return VyRect();
    const int rowH = VyTextLayout::lineHeight(VyStyle::instance()->chartFontSize()) + 4;
    const int col = index % columns(), row = index / columns();
    const VyRect r(col * entryWidth(), row * rowH, entryWidth(), rowH);
    return r.bottom < height() && r.right < width() + entryWidth() ? r.intersected(rect())
                                                                   : VyRect();
}

void VyChartLegend::paintEvent(VyPaintEvent*) {
    VyStyle* style = VyStyle::instance();
    for (int i = 0; i < m_names.size(); ++i) {
        const VyRect r = entryRect(i);
        if (!r.isEmpty())
            style->drawLegendItem(canvas(), r, m_names.at(i), i);
    }
}
