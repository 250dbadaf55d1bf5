#pragma once
// The base of every clickable control: pressed, released, clicked and toggled signals, an
// optional checked state (exclusive among its sibling buttons when auto-exclusive), auto-repeat
// while held, and the short press animation the OK key shows before the click lands.
#include "runtime/VyBitmap.h"
#include "runtime/VyString.h"
#include "toolkit/core/VyWidget.h"

class VyAbstractButton : public VyWidget {
    VY_OBJECT(VyAbstractButton, VyWidget)
public:
    static constexpr int kAnimateClickMs = 100;
    static constexpr int kAutoRepeatDelayMs = 300;
    static constexpr int kAutoRepeatIntervalMs = 100;

    explicit VyAbstractButton(VyWidget* parent = nullptr);
    ~VyAbstractButton() override;

    VySignal pressed;
    VySignal released;
    VySignal clicked;
    VySignal toggled; // after the checked state changed, whatever changed it

    void setText(const VyString& text);
    const VyString& text() const { return m_text; }
    void setIcon(const VyBitmap& icon);
    const VyBitmap& icon() const { return m_icon; }

    void setCheckable(bool checkable);
    bool isCheckable() const { return m_checkable; }
    void setChecked(bool checked);
    bool isChecked() const { return m_checked; }
    void toggle() { setChecked(!m_checked); }
    // Checking an auto-exclusive button unchecks its auto-exclusive siblings, and clicking a
    // checked one leaves it checked.
    void setAutoExclusive(bool on) { m_autoExclusive = on; }
    bool autoExclusive() const { return m_autoExclusive; }

    // While held, clicked is emitted after the delay and then every interval.
    void setAutoRepeat(bool on);
    bool autoRepeat() const { return m_autoRepeat; }
    void setAutoRepeatDelay(int ms) { m_repeatDelay = ms; }
    void setAutoRepeatInterval(int ms) { m_repeatInterval = ms; }

    bool isDown() const { return m_down; }
    bool isHovered() const { return m_hovered; }

    // A full click at once: pressed, released, the check change and clicked.
    void click();
    // Shows the button pressed for `ms`, then clicks it (the OK key's activation).
    void animateClick(int ms = kAnimateClickMs);
    bool isAnimating() const { return m_animateTimer != 0; }

    // The style slot the button draws with.
    int styleSlot() const;

protected:
    // True when a press at this point (widget coordinates) belongs to the button.
    virtual bool hitButton(VyPoint pos) const;
    // The check change of a click; the base toggles a checkable button.
    virtual void nextCheckState();

    void mousePressEvent(VyMouseEvent* e) override;
    void mouseReleaseEvent(VyMouseEvent* e) override;
    void mouseMoveEvent(VyMouseEvent* e) override;
    void keyPressEvent(VyKeyEvent* e) override;
    void hoverEnterEvent(VyHoverEvent* e) override;
    void hoverLeaveEvent(VyHoverEvent* e) override;
    void focusInEvent(VyFocusEvent* e) override;
    void focusOutEvent(VyFocusEvent* e) override;
    void hideEvent(VyHideEvent* e) override;
    void timerEvent(VyTimerEvent* e) override;

private:
    void setDown(bool down);
    void finishClick();
    void stopTimers();
    void uncheckSiblings();

    VyString m_text;
    VyBitmap m_icon;
    int m_repeatDelay = kAutoRepeatDelayMs;
    int m_repeatInterval = kAutoRepeatIntervalMs;
    int m_repeatTimer = 0;
    int m_animateTimer = 0;
    bool m_checkable = false;
    bool m_checked = false;
    bool m_autoExclusive = false;
    bool m_autoRepeat = false;
    bool m_down = false;
    bool m_mousePressed = false; // the left button went down on this button and is still held
    bool m_hovered = false;
    bool m_repeating = false; // the repeat timer runs at the interval, no longer the delay
};
