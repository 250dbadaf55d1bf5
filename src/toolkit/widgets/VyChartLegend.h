#pragma once
// The key of a chart: a colour swatch and the name of each series, in rows of as many
// entries as fit across the widget.
#include "runtime/VyStringList.h"
#include "toolkit/core/VyWidget.h"

class VyChartLegend : public VyWidget {
    VY_OBJECT(VyChartLegend, VyWidget)
public:
    explicit VyChartLegend(VyWidget* parent = nullptr);

    void setNames(const VyStringList& names);
    const VyStringList& names() const { return m_names; }
    // Where entry `index` is drawn; empty when it does not fit the widget.
    VyRect entryRect(int index) const;
    int columns() const;

protected:
    void paintEvent(VyPaintEvent* e) override;

private:
    int entryWidth() const;
    VyStringList m_names;
};
