#pragma once
// A bar filled in proportion to its value between minimum and maximum, with an optional
// percentage text. Values outside the range are clamped.
#include "toolkit/core/VyWidget.h"
#include "toolkit/widgets/VyBoundedValue.h"

class VyProgressBar : public VyWidget {
    VY_OBJECT(VyProgressBar, VyWidget)
public:
    explicit VyProgressBar(VyWidget* parent = nullptr);

    VySignal valueChanged;

    // A minimum above the maximum is swapped with it.
    void setRange(int minimum, int maximum);
    int minimum() const { return m_range.minimum(); }
    int maximum() const { return m_range.maximum(); }
    void setValue(int value);
    int value() const { return m_range.value(); }
    void setTextVisible(bool on);
    bool isTextVisible() const { return m_textVisible; }
    // 0..100, rounded down; 0 for an empty range.
    int percent() const;
    VyString text() const;

protected:
    void paintEvent(VyPaintEvent* e) override;

private:
    VyBoundedValue m_range{0, 100};
    bool m_textVisible = true;
};
