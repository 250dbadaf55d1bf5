#pragma once
// The value axis of a chart: a range widened to round numbers and ticks at a step of 1, 2 or
// 5 times a power of ten, so labels read "0 20 40 60" rather than "0 17.3 34.6". The range
// always contains zero and every finite value given; counts (integer steps) never get a
// step below 1. All-zero or empty data gets the range 0..1 (0..maxTicks for counts), so an
// empty chart still shows a labelled axis. Values that are not finite are ignored.
#include "runtime/VyString.h"

#include <vector>

class VyChartScale {
public:
    VyChartScale() = default;

    // `maxTicks` intervals at most (at least 1); a huge outlier widens the step, it never
    // makes more ticks than that.
    static VyChartScale fit(const std::vector<double>& values, int maxTicks, bool integerSteps);
    static VyChartScale fit(double minimum, double maximum, int maxTicks, bool integerSteps);

    double minimum() const { return m_minimum; }
    double maximum() const { return m_maximum; }
    double step() const { return m_step; }
    int tickCount() const; // ticks drawn, both ends included
    double tick(int index) const { return m_minimum + index * m_step; }
    // Where a value lies between minimum (0) and maximum (1); outside values lie outside.
    double fraction(double value) const;
    // A tick's label: no decimals for steps of 1 and more, as many as the step needs
    // otherwise; steps of thousands and above in k, M or G (from 10k on for k).
    VyString label(double value) const;

    // The round step at or above `rough`: 1, 2 or 5 times a power of ten.
    static double niceStep(double rough);

private:
    double m_minimum = 0;
    double m_maximum = 1;
    double m_step = 0.2;
};
