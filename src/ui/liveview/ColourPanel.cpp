#include "ui/liveview/ColourPanel.h"

#include "model/ParamAccess.h"
#include "toolkit/events/VyPaintEvent.h"
#include "toolkit/events/VyTimerEvent.h"
#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/widgets/VyLabel.h"
#include "toolkit/widgets/VyPushButton.h"
#include "toolkit/widgets/VySlider.h"
#include "ui/UiLook.h"
#include "ui/liveview/LiveViewLook.h"

namespace {

// Design pixels at 1920x1080.
constexpr int kWidthPx = 420;
constexpr int kMarginPx = 12;
constexpr int kRowPx = 44;
constexpr int kLabelPx = 130;
constexpr int kButtonPx = 150;
constexpr int kLevels = 255;

constexpr uint32_t kTexts[ColourPanel::ItemCount] = {
    TextId::Settings::Brightness, TextId::Settings::Contrast, TextId::Settings::Saturation,
    TextId::Settings::Hue};

uint8_t* field(CameraBlock& b, int item) {
    uint8_t* fields[ColourPanel::ItemCount] = {&b.brightness, &b.contrast, &b.saturation, &b.hue};
    return fields[item];
}

} // namespace

ColourPanel::ColourPanel(VyWidget* parent)
    : VyWidget(parent)
    , m_title(new VyLabel(this))
    , m_default(new VyPushButton(VyTranslation::tr(TextId::Settings::Default), this))
    , m_close(new VyPushButton(VyTranslation::tr(TextId::Common::Close), this)) {
    m_title->setTextId(TextId::LiveView::ColourTitle);
    m_title->setAlignment(VyCanvas::AlignLeft | VyCanvas::AlignVCenter);
    for (int i = 0; i < ItemCount; ++i) {
        m_labels[i] = new VyLabel(this);
        m_labels[i]->setTextId(kTexts[i]);
        m_labels[i]->setAlignment(VyCanvas::AlignLeft | VyCanvas::AlignVCenter);
        m_sliders[i] = new VySlider(this);
        m_sliders[i]->setRange(0, kLevels);
        connect(m_sliders[i], &m_sliders[i]->valueChanged, this,
                VY_SLOT(ColourPanel, onSliderChanged));
    }
    connect(m_default, &m_default->clicked, this, VY_SLOT(ColourPanel, onDefault));
    connect(m_close, &m_close->clicked, this, VY_SLOT(ColourPanel, onClose));
    const VySize hint = sizeHint();
    resize(hint.width, hint.height);
    // Hidden widgets get no resize event: lay the children out once now.
    arrange();
    for (VyObject* child : children())
        if (child->isWidgetType())
            static_cast<VyWidget*>(child)->show();
}

void ColourPanel::open(int channel) {
    flush();
    m_block = ParamAccess::get<CameraBlock>(uint8_t(channel));
    // App's reply names its channel; a reply for another (or none) is taken as this one's.
    m_block.channel = uint8_t(channel);
    m_loading = true;
    for (int i = 0; i < ItemCount; ++i)
        m_sliders[i]->setValue(*field(m_block, i));
    m_loading = false;
}

int ColourPanel::value(Item item) const {
    return m_sliders[item]->value();
}

void ColourPanel::onSliderChanged() {
    if (m_loading)
        return;
    // Every change restarts the wait: a drag is one burst, written once it rests.
    if (m_settleTimer != 0)
        killTimer(m_settleTimer);
    m_settleTimer = startTimer(kSettleMs);
}

void ColourPanel::timerEvent(VyTimerEvent* e) {
    if (e->timerId() != m_settleTimer) {
        VyWidget::timerEvent(e);
        return;
    }
    flush();
}

void ColourPanel::flush() {
    if (m_settleTimer == 0)
        return;
    killTimer(m_settleTimer);
    m_settleTimer = 0;
    for (int i = 0; i < ItemCount; ++i)
        *field(m_block, i) = uint8_t(m_sliders[i]->value());
    ParamAccess::set(m_block);
    ++m_writes;
}

void ColourPanel::onDefault() {
    for (int i = 0; i < ItemCount; ++i)
        m_sliders[i]->setValue(CameraBlock::kDefaultImageValue);
}

void ColourPanel::onClose() {
    flush();
    hide();
    emitSignal(this, &closeRequested);
}

VySize ColourPanel::sizeHint() const {
    return VySize(UiLook::scaledX(kWidthPx),
                  UiLook::scaledY(2 * kMarginPx + (ItemCount + 2) * kRowPx));
}

void ColourPanel::resizeEvent(VyResizeEvent*) {
    arrange();
}

void ColourPanel::arrange() {
    const int m = UiLook::scaledX(kMarginPx);
    const int row = UiLook::scaledY(kRowPx);
    const int label = UiLook::scaledX(kLabelPx);
    m_title->setGeometry(m, m, width() - 2 * m, row);
    int y = m + row;
    for (int i = 0; i < ItemCount; ++i, y += row) {
        m_labels[i]->setGeometry(m, y, label, row);
        m_sliders[i]->setGeometry(m + label, y, width() - 2 * m - label, row);
    }
    const int bw = UiLook::scaledX(kButtonPx);
    const int bh = row - UiLook::scaledY(8);
    m_close->setGeometry(width() - m - bw, y + (row - bh) / 2, bw, bh);
    m_default->setGeometry(width() - 2 * (m + bw), y + (row - bh) / 2, bw, bh);
}

void ColourPanel::paintEvent(VyPaintEvent*) {
    VyCanvas* c = canvas();
    if (c == nullptr)
        return;
    const LiveViewLook& look = LiveViewLook::instance();
    c->fillRect(rect(), LiveViewLook::opaque(look.toolBarBackground));
    c->setPenWidth(1);
    c->drawRect(rect(), LiveViewLook::opaque(look.toolBarBorder));
}
