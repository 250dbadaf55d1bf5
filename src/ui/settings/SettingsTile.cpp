#include "ui/settings/SettingsTile.h"

#include "runtime/VyIniSettings.h"
#include "runtime/VyResources.h"
#include "toolkit/events/VyMouseEvent.h"
#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/i18n/VyTranslation.h"
#include "ui/UiLook.h"

namespace {

constexpr uint8_t kLeftButton = 1;
constexpr int kTitleScale = 2; // the caption is drawn at twice the text size

} // namespace

SettingsTile::SettingsTile(int category, uint32_t textId, VyWidget* parent)
    : CWidget(parent)
    , m_category(category)
    , m_textId(textId) {
    setFocusPolicy(StrongFocus);
    const VyIniSettings ini(VyResources::path(kStyleFile));
    auto colour = [&](const char* key) { return ini.color(VyString(key)).argb(); };
    m_background = colour("SettingsTile/Background/Normal");
    m_backgroundHover = colour("SettingsTile/Background/Hover");
    m_backgroundFocus = colour("SettingsTile/Background/Focus");
    m_foreground = colour("SettingsTile/Foreground/Normal");
    m_foregroundFocus = colour("SettingsTile/Foreground/Focus");
    m_border = colour("SettingsTile/Border");
    m_foregroundDisabled =
        UiLook::colourOr(ini, "SettingsTile/Foreground/Disabled", m_foregroundDisabled);
}

void SettingsTile::paintEvent(VyPaintEvent*) {
    VyCanvas* c = canvas();
    const bool focus = hasFocus();
    c->fillRect(rect(), focus ? m_backgroundFocus : (m_hovered ? m_backgroundHover : m_background));
    c->drawRect(rect(), m_border);
    c->drawText(rect(), VyCanvas::AlignHCenter | VyCanvas::AlignVCenter,
                VyTranslation::tr(m_textId), UiLook::instance().fontPixelSize() * kTitleScale,
                !isEnabled() ? m_foregroundDisabled
                : focus      ? m_foregroundFocus
                             : m_foreground);
}

void SettingsTile::mousePressEvent(VyMouseEvent* e) {
    if (e->button() != kLeftButton) {
        e->ignore();
        return;
    }
    m_pressed = true;
    e->accept();
}

void SettingsTile::mouseReleaseEvent(VyMouseEvent* e) {
    const bool click = m_pressed && e->button() == kLeftButton && rect().contains(e->pos());
    m_pressed = false;
    if (click)
        emitSignal(this, &clicked);
}

bool SettingsTile::keyActivate() {
    emitSignal(this, &clicked);
    return true;
}

void SettingsTile::hoverEnterEvent(VyHoverEvent*) {
    m_hovered = true;
    update();
}

void SettingsTile::hoverLeaveEvent(VyHoverEvent*) {
    m_hovered = false;
    update();
}

void SettingsTile::focusInEvent(VyFocusEvent*) {
    update();
}

void SettingsTile::focusOutEvent(VyFocusEvent*) {
    update();
}
