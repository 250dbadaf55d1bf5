#include "ui/liveview/VyPtzWidget.h"

#include "model/MainViewManager.h"
#include "protocol/PreviewControl.h"
#include "runtime/VyIniSettings.h"
#include "runtime/VyLog.h"
#include "runtime/VyResources.h"
#include "toolkit/events/VyPaintEvent.h"
#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/widgets/VyLabel.h"
#include "toolkit/widgets/VyPushButton.h"
#include "toolkit/widgets/VySpinBox.h"
#include "ui/UiLook.h"
#include "ui/liveview/ImageButton.h"
#include "ui/liveview/LiveViewLook.h"
#include "ui/liveview/PtzPadButton.h"

#include <algorithm>

namespace {

// Design pixels at 1920x1080.
constexpr int kWidthPx = 360;
constexpr int kMarginPx = 12;
constexpr int kTitlePx = 36;
constexpr int kPadCellPx = 56;
constexpr int kRowPx = 40;
constexpr int kGapPx = 8;
constexpr int kRowCount = 5;             // zoom, focus, iris, speed, preset
constexpr int kRowsHigh = kRowCount + 1; // and the preset's buttons below its number
constexpr int kDefaultSpeed = 4;

struct PtzLook {
    vyargb background = 0xFF181A1E;
    vyargb border = 0xFF464A52;
    vyargb direction = 0xFF8C929C;
    vyargb directionHover = 0xFF0096DC;

    static const PtzLook& instance() {
        static const PtzLook look = [] {
            PtzLook l;
            const VyIniSettings ini(VyResources::path("style/ptz.ini"));
            // Drawn over the video plane, where the overlay's one alpha bit cannot blend.
            l.background =
                LiveViewLook::opaque(UiLook::colourOr(ini, "Ptz/Background", l.background));
            l.border = LiveViewLook::opaque(UiLook::colourOr(ini, "Ptz/Border", l.border));
            l.direction = UiLook::colourOr(ini, "Ptz/Direction/Normal", l.direction);
            l.directionHover = UiLook::colourOr(ini, "Ptz/Direction/Hover", l.directionHover);
            return l;
        }();
        return look;
    }
};

struct PadPlace {
    int dx, dy;
};
// Button order: Up, Down, Left, Right, UpLeft, UpRight, DownLeft, DownRight.
constexpr PadPlace kPad[8] = {{0, -1}, {0, 1}, {-1, 0}, {1, 0}, {-1, -1}, {1, -1}, {-1, 1}, {1, 1}};

constexpr int kMoves[VyPtzWidget::ButtonCount] = {
    PreviewControl::kPtzUp,        PreviewControl::kPtzDown,      PreviewControl::kPtzLeft,
    PreviewControl::kPtzRight,     PreviewControl::kPtzUpLeft,    PreviewControl::kPtzUpRight,
    PreviewControl::kPtzDownLeft,  PreviewControl::kPtzDownRight, PreviewControl::kPtzZoomOut,
    PreviewControl::kPtzZoomIn,    PreviewControl::kPtzFocusNear, PreviewControl::kPtzFocusFar,
    PreviewControl::kPtzIrisClose, PreviewControl::kPtzIrisOpen,
};

constexpr uint32_t kRowTexts[kRowCount] = {TextId::LiveView::PtzZoom, TextId::LiveView::PtzFocus,
                                           TextId::LiveView::PtzIris, TextId::LiveView::PtzSpeed,
                                           TextId::LiveView::PtzPreset};

} // namespace

VyPtzWidget::VyPtzWidget(VyWidget* parent)
    : VyWidget(parent)
    , m_title(new VyLabel(this))
    , m_speed(new VySpinBox(this))
    , m_preset(new VySpinBox(this))
    , m_call(new VyPushButton(VyTranslation::tr(TextId::LiveView::PtzCall), this))
    , m_store(new VyPushButton(VyTranslation::tr(TextId::LiveView::PtzSet), this))
    , m_close(new ImageButton(VyString("images/close.png"), this)) {
    const PtzLook& look = PtzLook::instance();
    for (int b = 0; b < ButtonCount; ++b) {
        VyAbstractButton* button = nullptr;
        if (b <= DownRight) {
            auto* pad = new PtzPadButton(kPad[b].dx, kPad[b].dy, this);
            pad->setColours(look.direction, look.directionHover, look.background);
            button = pad;
        } else {
            // Each row's first button lessens (-), the second adds (+).
            button = new VyPushButton(VyString((b - ZoomOut) % 2 == 0 ? "-" : "+"), this);
        }
        connect(button, &button->pressed, this, &VyPtzWidget::pressedSlot);
        connect(button, &button->released, this, &VyPtzWidget::releasedSlot);
        m_buttons.push_back(button);
    }
    for (uint32_t id : kRowTexts) {
        auto* label = new VyLabel(this);
        label->setTextId(id);
        label->setAlignment(VyCanvas::AlignLeft | VyCanvas::AlignVCenter);
        m_rowLabels.push_back(label);
    }
    m_title->setAlignment(VyCanvas::AlignLeft | VyCanvas::AlignVCenter);
    m_speed->setRange(PreviewControl::kPtzMinSpeed, PreviewControl::kPtzMaxSpeed);
    m_speed->setValue(kDefaultSpeed);
    m_preset->setRange(PreviewControl::kFirstPreset, PreviewControl::kLastPreset);
    m_preset->setValue(PreviewControl::kFirstPreset);
    connect(m_call, &m_call->clicked, this, VY_SLOT(VyPtzWidget, onCall));
    connect(m_store, &m_store->clicked, this, VY_SLOT(VyPtzWidget, onStore));
    connect(m_close, &m_close->clicked, this, VY_SLOT(VyPtzWidget, onClose));
    setChannel(0);
    const VySize hint = sizeHint();
    resize(hint.width, hint.height);
    // Hidden widgets get no resize event: lay the children out once now.
    arrange();
    for (VyObject* child : children())
        if (child->isWidgetType())
            static_cast<VyWidget*>(child)->show();
}

VyPtzWidget::~VyPtzWidget() = default;

VyAbstractButton* VyPtzWidget::callButton() const {
    return m_call;
}

VyAbstractButton* VyPtzWidget::storeButton() const {
    return m_store;
}

VyAbstractButton* VyPtzWidget::closeButton() const {
    return m_close;
}

int VyPtzWidget::moveOf(Button b) {
    return b >= 0 && b < ButtonCount ? kMoves[b] : 0;
}

void VyPtzWidget::setChannel(int channel) {
    // A move of the old camera must not outlive the switch.
    if (m_held >= 0 && channel != m_channel)
        sendMove(Button(m_held), false);
    m_channel = std::max(0, channel);
    VyString number = VyString::number(m_channel + 1);
    if (m_channel + 1 < 10)
        number = VyString("0") + number;
    m_title->setText(VyTranslation::tr(TextId::LiveView::PtzTitle) + VyString(" - CH") + number);
}

int VyPtzWidget::speed() const {
    return m_speed->value();
}

void VyPtzWidget::setSpeed(int speed) {
    m_speed->setValue(speed);
}

int VyPtzWidget::preset() const {
    return m_preset->value();
}

void VyPtzWidget::pressedSlot(VyObject* sender, VyObject* receiver) {
    static_cast<VyPtzWidget*>(receiver)->onPressed(sender);
}

void VyPtzWidget::releasedSlot(VyObject* sender, VyObject* receiver) {
    static_cast<VyPtzWidget*>(receiver)->onReleased(sender);
}

void VyPtzWidget::onPressed(VyObject* sender) {
    const auto it = std::find(m_buttons.begin(), m_buttons.end(), sender);
    if (it == m_buttons.end())
        return;
    // One move at a time: a second press (another pointer source) ends the first.
    if (m_held >= 0)
        sendMove(Button(m_held), false);
    m_held = int(it - m_buttons.begin());
    sendMove(Button(m_held), true);
}

void VyPtzWidget::onReleased(VyObject* sender) {
    const auto it = std::find(m_buttons.begin(), m_buttons.end(), sender);
    if (it == m_buttons.end() || int(it - m_buttons.begin()) != m_held)
        return;
    sendMove(Button(m_held), false);
}

void VyPtzWidget::hideEvent(VyHideEvent*) {
    if (m_held >= 0)
        sendMove(Button(m_held), false);
}

void VyPtzWidget::sendMove(Button b, bool start) {
    if (!start)
        m_held = -1;
    MainViewManager* m = MainViewManager::instance();
    if (m == nullptr)
        return;
    PreviewControl c;
    c.command = PreviewControl::kPtz;
    c.channel = uint8_t(m_channel);
    c.action = start ? PreviewControl::kStart : PreviewControl::kStop;
    c.value = moveOf(b);
    c.value2 = speed();
    m->sendControl(c);
}

void VyPtzWidget::sendPreset(bool call) {
    MainViewManager* m = MainViewManager::instance();
    if (m == nullptr)
        return;
    PreviewControl c;
    c.command = PreviewControl::kPtzPreset;
    c.channel = uint8_t(m_channel);
    c.action = call ? PreviewControl::kOn : PreviewControl::kOff;
    c.value = preset();
    m->sendControl(c);
}

void VyPtzWidget::onCall() {
    sendPreset(true);
}

void VyPtzWidget::onStore() {
    sendPreset(false);
}

void VyPtzWidget::onClose() {
    hide();
    emitSignal(this, &closeRequested);
}

VySize VyPtzWidget::sizeHint() const {
    const int h =
        kMarginPx + kTitlePx + kGapPx + 3 * kPadCellPx + kGapPx + kRowsHigh * kRowPx + kMarginPx;
    return VySize(UiLook::scaledX(kWidthPx), UiLook::scaledY(h));
}

void VyPtzWidget::resizeEvent(VyResizeEvent*) {
    arrange();
}

void VyPtzWidget::arrange() {
    const int m = UiLook::scaledX(kMarginPx);
    const int gap = UiLook::scaledY(kGapPx);
    const int titleH = UiLook::scaledY(kTitlePx);
    const int closeSize = UiLook::scaledY(24);
    m_title->setGeometry(m, m, width() - 3 * m - closeSize, titleH);
    m_close->setGeometry(width() - m - closeSize, m + (titleH - closeSize) / 2, closeSize,
                         closeSize);
    // The pad, centred: row -1..1, column -1..1; the middle stays empty.
    const int cell = std::min(UiLook::scaledX(kPadCellPx), UiLook::scaledY(kPadCellPx));
    const int padLeft = (width() - 3 * cell) / 2;
    const int padTop = m + titleH + gap;
    for (int b = Up; b <= DownRight; ++b)
        m_buttons[size_t(b)]->setGeometry(padLeft + (kPad[b].dx + 1) * cell,
                                          padTop + (kPad[b].dy + 1) * cell, cell, cell);
    const int rowH = UiLook::scaledY(kRowPx);
    const int labelW = (width() - 2 * m) * 9 / 20;
    const int fieldLeft = m + labelW;
    const int fieldW = width() - m - fieldLeft;
    const int inner = rowH - UiLook::scaledY(6);
    int y = padTop + 3 * cell + gap;
    for (int row = 0; row < kRowCount; ++row, y += rowH) {
        m_rowLabels[size_t(row)]->setGeometry(m, y, labelW, rowH);
        const int top = y + (rowH - inner) / 2;
        if (row < 3) {
            const int half = (fieldW - gap) / 2;
            const int lessen = ZoomOut + 2 * row; // then its + button
            button(Button(lessen))->setGeometry(fieldLeft, top, half, inner);
            button(Button(lessen + 1))->setGeometry(fieldLeft + half + gap, top, half, inner);
        } else if (row == 3) {
            m_speed->setGeometry(fieldLeft, top, fieldW, inner);
        } else {
            // Go to and store share the row below the number: long words in some languages.
            m_preset->setGeometry(fieldLeft, top, fieldW, inner);
            const int half = (fieldW - gap) / 2;
            m_call->setGeometry(fieldLeft, top + rowH, half, inner);
            m_store->setGeometry(fieldLeft + half + gap, top + rowH, half, inner);
        }
    }
}

void VyPtzWidget::paintEvent(VyPaintEvent*) {
    VyCanvas* c = canvas();
    if (c == nullptr)
        return;
    const PtzLook& look = PtzLook::instance();
    c->fillRect(rect(), look.background);
    c->setPenWidth(1);
    c->drawRect(rect(), look.border);
}
