#pragma once
// An int held within [minimum, maximum]: the range and the clamping that the value controls
// (sliders, scroll bars, spin boxes, progress bars) share. Steps saturate at the ends
// instead of overflowing.
#include <algorithm>
#include <climits>
#include <cstdint>

class VyBoundedValue {
public:
    VyBoundedValue(int minimum, int maximum)
        : m_minimum(std::min(minimum, maximum))
        , m_maximum(std::max(minimum, maximum))
        , m_value(m_minimum) {}

    int minimum() const { return m_minimum; }
    int maximum() const { return m_maximum; }
    int value() const { return m_value; }

    // A minimum above the maximum is swapped with it; the value is clamped into the new
    // range. False when the range was that already (nothing changed).
    bool setRange(int minimum, int maximum) {
        if (minimum > maximum)
            std::swap(minimum, maximum);
        if (minimum == m_minimum && maximum == m_maximum)
            return false;
        m_minimum = minimum;
        m_maximum = maximum;
        m_value = clamped(m_value);
        return true;
    }
    // Clamped into the range; false when the value stays what it was.
    bool setValue(long long value) {
        const int v = clamped(value);
        if (v == m_value)
            return false;
        m_value = v;
        return true;
    }
    int clamped(long long value) const {
        return static_cast<int>(
            std::max<long long>(m_minimum, std::min<long long>(value, m_maximum)));
    }
    // The value moved by delta, clamped: what a step would make it.
    int offset(long long delta) const { return clamped(static_cast<long long>(m_value) + delta); }
    long long span() const { return static_cast<long long>(m_maximum) - m_minimum; }
    // How far the value lies from minimum to maximum, 0 to 100; 0 for an empty range.
    int percent() const {
        return span() <= 0
                   ? 0
                   : static_cast<int>((static_cast<long long>(m_value) - m_minimum) * 100 / span());
    }

private:
    int m_minimum;
    int m_maximum;
    int m_value;
};
