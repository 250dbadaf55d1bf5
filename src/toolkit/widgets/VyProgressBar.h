#pragma once
// A bar filled in proportion to its value between minimum and maximum, with an optional
// percentage text. Values outside the range are clamped.
#include "toolkit/core/VyWidget.h"

class VyProgressBar : public VyWidget {
    VY_OBJECT(VyProgressBar, VyWidget)
public:
    explicit VyProgressBar(VyWidget* parent = nullptr);

    VySignal valueChanged;

    // A minimum above the maximum is swapped with it.
    void setRange(int minimum, int maximum);
    int minimum() const { return m_minimum; }
    int maximum() const { return m_maximum; }
    void setValue(int value);
    int value() const { return m_value; }
    void setTextVisible(bool on);
    bool isTextVisible() const { return m_textVisible; }
    // 0..100, rounded down; 0 for an empty range.
    int percent() const;
    VyString text() const;

protected:
    void paintEvent(VyPaintEvent* e) override;

private:
    int m_minimum = 0;
    int m_maximum = 100;
    int m_value = 0;
    bool m_textVisible = true;
};
