#pragma once
// The value model shared by sliders and scroll bars: a range, a value kept inside it, single
// and page steps, an orientation, and the keys and wheel that step it. It keeps all four
// arrows: Right and Up step the value up, Left and Down step it down.
#include "toolkit/core/VyWidget.h"
#include "toolkit/widgets/VyBoundedValue.h"

class VyAbstractSlider : public VyWidget {
    VY_OBJECT(VyAbstractSlider, VyWidget)
public:
    enum Orientation { Horizontal, Vertical };
    enum Action { SingleStepAdd, SingleStepSub, PageStepAdd, PageStepSub, ToMinimum, ToMaximum };

    explicit VyAbstractSlider(VyWidget* parent = nullptr);

    VySignal valueChanged;
    VySignal rangeChanged;
    VySignal sliderPressed;
    VySignal sliderMoved; // while the handle is dragged
    VySignal sliderReleased;

    // A minimum above the maximum is swapped with it; the value is clamped into the range.
    void setRange(int minimum, int maximum);
    int minimum() const { return m_range.minimum(); }
    int maximum() const { return m_range.maximum(); }
    // Clamped into the range.
    void setValue(int value);
    int value() const { return m_range.value(); }
    void setSingleStep(int step) { m_singleStep = step > 0 ? step : 1; }
    int singleStep() const { return m_singleStep; }
    void setPageStep(int step) { m_pageStep = step > 0 ? step : 1; }
    int pageStep() const { return m_pageStep; }
    void setOrientation(Orientation orientation);
    Orientation orientation() const { return m_orientation; }
    bool isSliderDown() const { return m_sliderDown; }
    bool isHovered() const { return m_hovered; }

    void triggerAction(Action action);
    int styleSlot() const;

protected:
    void setSliderDown(bool down);
    // Wheel notches step the value; the sign of one notch differs between sliders and
    // scroll bars.
    virtual int wheelDirection() const { return 1; }

    void keyPressEvent(VyKeyEvent* e) override;
    void wheelEvent(VyWheelEvent* e) override;
    void hoverEnterEvent(VyHoverEvent* e) override;
    void hoverLeaveEvent(VyHoverEvent* e) override;
    void focusInEvent(VyFocusEvent* e) override;
    void focusOutEvent(VyFocusEvent* e) override;
    void resizeEvent(VyResizeEvent* e) override;

private:
    VyBoundedValue m_range{0, 99};
    int m_singleStep = 1;
    int m_pageStep = 10;
    Orientation m_orientation = Horizontal;
    bool m_sliderDown = false;
    bool m_hovered = false;
};
