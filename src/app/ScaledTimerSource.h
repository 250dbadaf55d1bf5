#pragma once
// Arms the delayed start on the toolkit's timer service, optionally shortened by a factor
// from $VY_DELAYED_START_SCALE (end-to-end runs use it to see the first screen without
// waiting seconds; the interval printed at start-up stays the real one). The dialogs'
// countdowns follow the same factor.
#include "model/UiTimerSource.h"

class ScaledTimerSource : public UiTimerSource {
public:
    // From the environment; 1 when unset or not a positive number.
    ScaledTimerSource();
    explicit ScaledTimerSource(double scale)
        : m_scale(scale > 0 ? scale : 1.0) {}

    void singleShot(int ms, VyObject* receiver, VySlot slot) override;
    double scale() const { return m_scale; }
    int scaled(int ms) const;

private:
    double m_scale = 1.0;
};
