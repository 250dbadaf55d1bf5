#pragma once
// Grouped bars: in each category one bar per series, side by side in series order. Bars
// rise from zero (or fall, for negative values); a series without a value for a category
// leaves its place in the group empty.
#include "toolkit/widgets/VyChart.h"

class VyBarChart : public VyChart {
    VY_OBJECT(VyBarChart, VyChart)
public:
    explicit VyBarChart(VyWidget* parent = nullptr);

    // The bar of series `series` in category `category`, in the widget's coordinates; empty
    // when it has no value or no room.
    VyRect barRect(int category, int series) const;

protected:
    void paintSeries(VyCanvas* canvas, const VyRect& plot) const override;
};
