#pragma once
// One line per series through its values at the centres of the categories. A missing or
// non-finite value breaks the line there.
#include "toolkit/widgets/VyChart.h"

class VyLineChart : public VyChart {
    VY_OBJECT(VyLineChart, VyChart)
public:
    explicit VyLineChart(VyWidget* parent = nullptr);

    // Where the value of series `series` in category `category` is drawn; (-1, -1) for none.
    VyPoint valuePoint(int category, int series) const;

protected:
    void paintSeries(VyCanvas* canvas, const VyRect& plot) const override;
};
