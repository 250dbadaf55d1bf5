#pragma once
// The bar along the bottom of the main view: the start button, the layout, sequence and
// stream buttons, and the status icons (USB stick, alarm, connection, disk state through
// the USB icon's hover) with the time at the right. Each button emits buttonClicked with
// lastButton(); the main view opens the menu or acts.
#include "toolkit/core/VyWidget.h"
#include "toolkit/input/VyKeyTarget.h"

#include <cstdint>
#include <vector>

class ImageButton;

class MainViewTaskBar : public VyWidget, public VyKeyTarget {
    VY_OBJECT(MainViewTaskBar, VyWidget)
public:
    enum Button {
        Start,
        Layout4,
        Layout9,
        Layout16,
        MoreLayouts,
        Sequence,
        StreamSwitch,
        PreviewPolicy,
        Pairing,
        Manual,
        Info,
        UsbStick,
        Alarm,
        Connection,
        Light,
        OpenWizard,
        Usb,
        ButtonCount
    };

    explicit MainViewTaskBar(VyWidget* parent = nullptr);

    static int barHeight();
    ImageButton* button(Button b) const { return m_buttons[size_t(b)]; }
    Button lastButton() const { return m_last; }

    // Network status from App: 0 not connected, 1 connected, otherwise disabled.
    void setConnectionState(uint32_t status);
    // DeviceState bits: the USB-stick icon shows while one is plugged in, the alarm icon
    // while an alarm output is on.
    void setDeviceState(uint32_t state);
    void setLightOn(bool on);
    void setClockText(const VyString& text);
    // "Sequence: 8 s" beside the clock while a sequence runs; empty hides it.
    void setSequenceText(const VyString& text);
    const VyString& sequenceText() const { return m_sequence; }

    // The task bar's device keys click its buttons: 74 start, 76 more layouts, 77 sequence,
    // 83 stream switch, 93 information, 94 light, 95 open wizard.
    bool keyAction(uint32_t deviceKey) override;

    VySignal buttonClicked;

protected:
    void paintEvent(VyPaintEvent* e) override;
    void resizeEvent(VyResizeEvent* e) override;

private:
    static void clickedSlot(VyObject* sender, VyObject* receiver);
    void arrange();
    VyRect sequenceRect() const;

    std::vector<ImageButton*> m_buttons; // children
    VyString m_clock;
    VyString m_sequence;
    Button m_last = Start;
};
