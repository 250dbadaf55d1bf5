#include "toolkit/widgets/VyChartScale.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace {

// Ticks are compared after this much rounding, so that 0.1 + 0.2 lands on the 0.3 tick.
constexpr double kTickEpsilon = 1e-9;
// Beyond this a double no longer tells neighbouring integers apart; such data is clipped.
constexpr double kLargestValue = 1e15;

} // namespace

double VyChartScale::niceStep(double rough) {
    if (!(rough > 0) || !std::isfinite(rough))
        return 1;
    const double power = std::pow(10.0, std::floor(std::log10(rough)));
    const double mantissa = rough / power;
    // The last factor of 10 also catches a mantissa a rounding step above 5.
    for (double f : {1.0, 2.0, 5.0, 10.0})
        if (mantissa <= f * (1 + kTickEpsilon))
            return f * power;
    return 10 * power;
}

VyChartScale VyChartScale::fit(const std::vector<double>& values, int maxTicks, bool integerSteps) {
    double lo = 0, hi = 0;
    for (double v : values) {
        if (!std::isfinite(v))
            continue;
        lo = std::min(lo, v);
        hi = std::max(hi, v);
    }
    return fit(lo, hi, maxTicks, integerSteps);
}

VyChartScale VyChartScale::fit(double minimum, double maximum, int maxTicks, bool integerSteps) {
    maxTicks = std::max(1, maxTicks);
    double lo = std::isfinite(minimum) ? std::min(0.0, minimum) : 0.0;
    double hi = std::isfinite(maximum) ? std::max(0.0, maximum) : 0.0;
    lo = std::max(lo, -kLargestValue);
    hi = std::min(hi, kLargestValue);
    if (hi < lo)
        std::swap(lo, hi);
    VyChartScale s;
    if (hi - lo <= 0) {
        // Nothing to scale: a plain axis of the smallest readable unit.
        s.m_step = integerSteps ? 1 : niceStep(1.0 / maxTicks);
        s.m_minimum = 0;
        s.m_maximum = s.m_step * std::max(1, integerSteps ? std::min(maxTicks, 5) : maxTicks);
        return s;
    }
    double step = niceStep((hi - lo) / maxTicks);
    if (integerSteps)
        step = std::max(1.0, step);
    // Rounding outwards can add one interval at each end; a step up keeps within maxTicks.
    for (;;) {
        const double first = std::floor(lo / step + kTickEpsilon) * step;
        const double last = std::ceil(hi / step - kTickEpsilon) * step;
        if (std::lround((last - first) / step) <= maxTicks) {
            s.m_minimum = first;
            s.m_maximum = last;
            break;
        }
        step = niceStep(step * (1 + 1e-6) * 1.5);
    }
    s.m_step = step;
    return s;
}

int VyChartScale::tickCount() const {
    if (!(m_step > 0))
        return 1;
    return int(std::lround((m_maximum - m_minimum) / m_step)) + 1;
}

double VyChartScale::fraction(double value) const {
    const double span = m_maximum - m_minimum;
    return span > 0 ? (value - m_minimum) / span : 0;
}

VyString VyChartScale::label(double value) const {
    if (std::fabs(value) < m_step * kTickEpsilon)
        value = 0; // not "-0" nor "1e-17"
    const double magnitude = std::max(std::fabs(m_minimum), std::fabs(m_maximum));
    const char* suffix = "";
    double divisor = 1;
    // The largest unit the step is a whole multiple of, so labels stay whole numbers.
    if (m_step >= 1e9) {
        suffix = "G";
        divisor = 1e9;
    } else if (m_step >= 1e6) {
        suffix = "M";
        divisor = 1e6;
    } else if (magnitude >= 1e4 && m_step >= 1e3) {
        suffix = "k";
        divisor = 1e3;
    }
    const double shown = value / divisor;
    const double shownStep = m_step / divisor;
    int decimals = 0;
    if (shownStep < 1)
        decimals = std::min(9, int(std::ceil(-std::log10(shownStep) - kTickEpsilon)));
    char buf[48];
    std::snprintf(buf, sizeof buf, "%.*f%s", decimals, shown, suffix);
    return VyString(buf);
}
