#include "ui/DialogButton.h"

#include "toolkit/events/VyMouseEvent.h"
#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/i18n/VyTranslation.h"
#include "ui/UiLook.h"

namespace {
constexpr uint8_t kLeftButton = 1;
} // namespace

DialogButton::DialogButton(uint32_t textId, VyWidget* parent)
    : CWidget(parent)
    , m_textId(textId)
    , m_text(VyTranslation::tr(textId)) {
    setFocusPolicy(StrongFocus);
}

void DialogButton::retranslate() {
    m_text = VyTranslation::tr(m_textId);
    update();
}

void DialogButton::paintEvent(VyPaintEvent*) {
    VyCanvas* c = canvas();
    if (c == nullptr)
        return;
    const UiLook& look = UiLook::instance();
    c->fillRect(rect(), hasFocus() ? look.buttonFocusBackground : look.buttonBackground);
    c->drawRect(rect(), look.buttonBorder);
    c->drawText(rect(), VyCanvas::AlignCenter, m_text, look.fontPixelSize(), look.buttonForeground);
}

void DialogButton::mousePressEvent(VyMouseEvent* e) {
    m_pressed = e->button() == kLeftButton;
    e->accept();
}

void DialogButton::mouseReleaseEvent(VyMouseEvent* e) {
    e->accept();
    const bool inside = rect().contains(e->pos());
    const bool wasPressed = m_pressed;
    m_pressed = false;
    if (wasPressed && inside && e->button() == kLeftButton)
        emitSignal(this, &clicked);
}

bool DialogButton::keyActivate() {
    emitSignal(this, &clicked);
    return true;
}
