#pragma once
// The frame the charts share: a value axis at the left with round-number ticks
// (VyChartScale), categories along the bottom with as many labels as fit without touching,
// and the series drawn by the subclass inside the plot. Series take the style's colours by
// their index, which a VyChartLegend beside the chart shows.
#include "toolkit/core/VyWidget.h"
#include "toolkit/widgets/VyChartScale.h"
#include "toolkit/widgets/VyChartSeries.h"

#include "runtime/VyStringList.h"

#include <vector>

class VyChart : public VyWidget {
    VY_OBJECT(VyChart, VyWidget)
public:
    // More is refused with a log line: nobody reads a chart of more, and it bounds what a
    // reply can make us allocate.
    static constexpr int kMaxSeries = 64;
    static constexpr int kMaxCategories = 744; // the hours of a month

    explicit VyChart(VyWidget* parent = nullptr);

    // False (nothing changes) beyond the limits above.
    bool setData(const VyStringList& categories, const std::vector<VyChartSeries>& series);
    // Counts (the default) keep the value axis to whole-number steps.
    void setIntegerValues(bool on);

    const VyStringList& categories() const { return m_categories; }
    const std::vector<VyChartSeries>& series() const { return m_series; }
    const VyChartScale& scale() const { return m_scale; }

    // Geometry, in the widget's coordinates, as the last paint (or the next) uses it.
    VyRect plotRect() const;
    // The row of a value inside the plot (the plot's bottom row is the scale's minimum).
    int valueY(double value) const;
    // The slot of category `index` across the plot: [left, left + width).
    int categoryLeft(int index) const;
    int categoryWidth() const;
    // Every how many categories a label is drawn, so labels never overlap.
    int labelEvery() const;

protected:
    void paintEvent(VyPaintEvent* e) override;
    void resizeEvent(VyResizeEvent* e) override;
    // The series inside `plot` (the canvas is clipped to it).
    virtual void paintSeries(VyCanvas* canvas, const VyRect& plot) const = 0;

private:
    void rescale();
    static bool usable(double v);

    VyStringList m_categories;
    std::vector<VyChartSeries> m_series;
    VyChartScale m_scale;
    bool m_integer = true;
    int m_labelWidth = 0; // widest value label
};
