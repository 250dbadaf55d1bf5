#include "ui/liveview/MainViewTaskBar.h"

#include "protocol/DeviceState.h"
#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/graphics/VyFbCanvas.h"
#include "ui/UiLook.h"
#include "ui/liveview/ImageButton.h"
#include "ui/liveview/LiveViewLook.h"

namespace {

constexpr int kDesignHeightPx = 48;
constexpr int kDesignButtonPx = 40;
constexpr int kGapPx = 6;
constexpr int kClockWidthPx = 230;
constexpr int kSequenceWidthPx = 260; // the remaining dwell, in the middle of the bar

struct ButtonImages {
    const char* image;
    const char* hover; // null: the image with "-hover"
};

const ButtonImages kImages[MainViewTaskBar::ButtonCount] = {
    {"images/start.png", nullptr},
    {"images/layout-4.png", nullptr},
    {"images/layout-9.png", nullptr},
    {"images/layout-16.png", nullptr},
    {"images/more-layout.png", nullptr},
    {"images/sequence.png", nullptr},
    {"images/mainview-streamswtich.png", nullptr},
    {"images/mainview-previewpolicy.png", nullptr},
    {"images/pairing3.png", nullptr},
    {"images/manual.png", nullptr},
    {"images/info.png", nullptr},
    {"images/usb-stick.png", nullptr},
    {"images/alarm.png", nullptr},
    {"images/connect-ok.png", nullptr},
    {"images/light_off.png", nullptr},
    {"images/mainview-open-wizard.png", nullptr},
    {"images/usb.png", "images/usb_hover.png"},
};

// Buttons on the left, status icons gathered at the right before the clock.
bool onTheRight(MainViewTaskBar::Button b) {
    return b >= MainViewTaskBar::UsbStick;
}

} // namespace

MainViewTaskBar::MainViewTaskBar(VyWidget* parent)
    : VyWidget(parent) {
    for (int b = 0; b < ButtonCount; ++b) {
        const ButtonImages& i = kImages[b];
        auto* button =
            new ImageButton(VyString(i.image), this, i.hover ? VyString(i.hover) : VyString());
        connect(button, &button->clicked, this, &MainViewTaskBar::clickedSlot);
        m_buttons.push_back(button);
        button->show();
    }
    button(UsbStick)->hide();
    button(Alarm)->hide();
}

int MainViewTaskBar::barHeight() {
    return UiLook::scaledY(kDesignHeightPx);
}

void MainViewTaskBar::clickedSlot(VyObject* sender, VyObject* receiver) {
    auto* bar = static_cast<MainViewTaskBar*>(receiver);
    for (size_t i = 0; i < bar->m_buttons.size(); ++i) {
        if (bar->m_buttons[i] == sender) {
            bar->m_last = Button(i);
            emitSignal(bar, &bar->buttonClicked);
            return;
        }
    }
}

void MainViewTaskBar::setConnectionState(uint32_t status) {
    const char* image = status == 1   ? "images/connect-ok.png"
                        : status == 0 ? "images/connect-fail.png"
                                      : "images/connect-disable.png";
    button(Connection)->setImages(VyString(image));
}

void MainViewTaskBar::setDeviceState(uint32_t state) {
    const bool stick = (state & DeviceState::kUsbStick) != 0;
    const bool alarm = (state & DeviceState::kAlarmOutput) != 0;
    if (button(UsbStick)->isVisible() == stick && button(Alarm)->isVisible() == alarm)
        return;
    button(UsbStick)->setVisible(stick);
    button(Alarm)->setVisible(alarm);
    arrange();
}

void MainViewTaskBar::setLightOn(bool on) {
    button(Light)->setImages(VyString(on ? "images/light_on.png" : "images/light_off.png"));
}

void MainViewTaskBar::setClockText(const VyString& text) {
    if (m_clock == text)
        return;
    m_clock = text;
    update(VyRect(width() - UiLook::scaledX(kClockWidthPx), 0, UiLook::scaledX(kClockWidthPx),
                  height()));
}

void MainViewTaskBar::setSequenceText(const VyString& text) {
    if (m_sequence == text)
        return;
    m_sequence = text;
    update(sequenceRect());
}

VyRect MainViewTaskBar::sequenceRect() const {
    const int w = UiLook::scaledX(kSequenceWidthPx);
    return VyRect(width() / 2 - w / 2, 0, w, height());
}

void MainViewTaskBar::resizeEvent(VyResizeEvent*) {
    arrange();
}

void MainViewTaskBar::arrange() {
    const int size = UiLook::scaledY(kDesignButtonPx);
    const int gap = UiLook::scaledX(kGapPx);
    const int top = (height() - size) / 2;
    int left = gap;
    for (int b = 0; b < ButtonCount; ++b) {
        if (onTheRight(Button(b)))
            continue;
        m_buttons[size_t(b)]->setGeometry(left, top, size, size);
        left += size + gap;
    }
    int right = width() - UiLook::scaledX(kClockWidthPx);
    for (int b = ButtonCount - 1; b >= 0; --b) {
        if (!onTheRight(Button(b)) || !m_buttons[size_t(b)]->isVisible())
            continue;
        right -= size + gap;
        m_buttons[size_t(b)]->setGeometry(right, top, size, size);
    }
}

void MainViewTaskBar::paintEvent(VyPaintEvent*) {
    VyCanvas* c = canvas();
    if (c == nullptr)
        return;
    const LiveViewLook& look = LiveViewLook::instance();
    c->fillRect(rect(), LiveViewLook::opaque(look.taskBarBackground));
    const int line = std::max(1, look.taskBarLineWidth);
    c->fillRect(VyRect(0, 0, width(), line), LiveViewLook::opaque(look.taskBarLine));
    const int clockWidth = UiLook::scaledX(kClockWidthPx);
    c->drawText(VyRect(width() - clockWidth, 0, clockWidth - UiLook::scaledX(kGapPx), height()),
                VyCanvas::AlignRight | VyCanvas::AlignVCenter, m_clock,
                UiLook::instance().fontPixelSize(), look.labelForeground);
    if (!m_sequence.isEmpty())
        c->drawText(sequenceRect(), VyCanvas::AlignCenter, m_sequence,
                    UiLook::instance().fontPixelSize(), look.labelForeground);
}

bool MainViewTaskBar::keyAction(uint32_t deviceKey) {
    struct KeyButton {
        uint32_t key;
        Button button;
    };
    static const KeyButton kKeys[] = {{74, Start},        {76, MoreLayouts}, {77, Sequence},
                                      {83, StreamSwitch}, {93, Info},        {94, Light},
                                      {95, OpenWizard}};
    for (const KeyButton& k : kKeys) {
        if (k.key == deviceKey) {
            m_last = k.button;
            emitSignal(this, &buttonClicked);
            return true;
        }
    }
    return false;
}
