#pragma once
// An integer field with up and down arrows: a range, a step, optional wrapping at the ends,
// a prefix and suffix around the number. It keeps Up and Down (and the wheel) for stepping;
// digits typed from the remote build a new value, committed by OK or when the focus leaves,
// clamped into the range; Escape drops what was typed.
#include "runtime/VyString.h"
#include "toolkit/core/VyWidget.h"
#include "toolkit/widgets/VyBoundedValue.h"

class VySpinBox : public VyWidget {
    VY_OBJECT(VySpinBox, VyWidget)
public:
    static constexpr int kRepeatDelayMs = 300;
    static constexpr int kRepeatIntervalMs = 100;

    explicit VySpinBox(VyWidget* parent = nullptr);
    ~VySpinBox() override;

    VySignal valueChanged;

    // A minimum above the maximum is swapped with it; the value is clamped into the range.
    void setRange(int minimum, int maximum);
    int minimum() const { return m_range.minimum(); }
    int maximum() const { return m_range.maximum(); }
    // Clamped into the range (never wrapped).
    void setValue(int value);
    int value() const { return m_range.value(); }
    void setSingleStep(int step) { m_step = step > 0 ? step : 1; }
    int singleStep() const { return m_step; }
    void setWrapping(bool on);
    bool wrapping() const { return m_wrapping; }
    void setPrefix(const VyString& prefix);
    void setSuffix(const VyString& suffix);
    const VyString& prefix() const { return m_prefix; }
    const VyString& suffix() const { return m_suffix; }

    void stepUp() { stepBy(1); }
    void stepDown() { stepBy(-1); }
    void stepBy(int steps);

    // What the field shows: prefix, value (or the digits being typed) and suffix.
    VyString text() const;
    bool isTyping() const { return !m_typed.isEmpty(); }
    int styleSlot() const;

    VySize sizeHint() const override;

protected:
    void paintEvent(VyPaintEvent* e) override;
    void keyPressEvent(VyKeyEvent* e) override;
    void wheelEvent(VyWheelEvent* e) override;
    void mousePressEvent(VyMouseEvent* e) override;
    void mouseReleaseEvent(VyMouseEvent* e) override;
    void hoverEnterEvent(VyHoverEvent* e) override;
    void hoverLeaveEvent(VyHoverEvent* e) override;
    void focusInEvent(VyFocusEvent* e) override;
    void focusOutEvent(VyFocusEvent* e) override;
    void hideEvent(VyHideEvent* e) override;
    void timerEvent(VyTimerEvent* e) override;

private:
    void commitTyped();
    void stopRepeat();

    VyBoundedValue m_range{0, 99};
    int m_step = 1;
    VyString m_prefix;
    VyString m_suffix;
    VyString m_typed;      // digits typed since the last commit
    int m_pressedPart = 0; // VyStyle::SpinPart
    int m_repeatTimer = 0;
    bool m_repeating = false;
    bool m_wrapping = false;
    bool m_hovered = false;
};
