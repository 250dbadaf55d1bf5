#include "ui/users/ScreenLockWindow.h"

#include "model/UserAccess.h"
#include "runtime/VyLog.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/events/VyKeyEvent.h"
#include "toolkit/events/VyMouseEvent.h"
#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/style/VyStyle.h"
#include "ui/UiLook.h"

#include <algorithm>

namespace {
// Design metrics, pixels at 1920x1080.
constexpr int kNoticeWidth = 1100;
constexpr int kNoticeHeight = 72;
constexpr int kNoticeBottomGap = 140; // clear of the task bar
constexpr int kIconPx = 40;
constexpr int kPadding = 16;
} // namespace

ScreenLockWindow::ScreenLockWindow(UserAccess* access)
    : CWidget(nullptr, Window)
    , m_access(access) {
    setAttribute(Modal);
    if (VyApplication* app = VyApplication::instance(); app != nullptr && app->screen()) {
        const int sw = app->screen()->width();
        const int sh = app->screen()->height();
        const int w = std::min(sw, UiLook::scaledX(kNoticeWidth));
        const int h = UiLook::scaledY(kNoticeHeight);
        setGeometry((sw - w) / 2, sh - UiLook::scaledY(kNoticeBottomGap) - h, w, h);
    }
    if (access != nullptr)
        connect(access, &access->lockChanged, this, VY_SLOT(ScreenLockWindow, followLock));
    followLock();
}

void ScreenLockWindow::followLock() {
    const bool locked = m_access && m_access->isScreenLocked();
    setVisible(locked);
    if (locked) {
        raise();
        setFocus();
    }
}

void ScreenLockWindow::requestUnlock() {
    ++m_requests;
    VY_GUI_LOG("screen unlock asked for\n");
    // The login runs its own loop: this window may be hidden (unlocked) when it returns.
    if (m_access)
        m_access->unlockScreen();
}

bool ScreenLockWindow::keyActivate() {
    requestUnlock();
    return true;
}

void ScreenLockWindow::keyPressEvent(VyKeyEvent* e) {
    if (e->key() == VyKeyEvent::KeyEscape) {
        e->accept();
        requestUnlock();
        return;
    }
    CWidget::keyPressEvent(e);
}

void ScreenLockWindow::mousePressEvent(VyMouseEvent* e) {
    e->accept();
    requestUnlock();
}

void ScreenLockWindow::paintEvent(VyPaintEvent*) {
    VyCanvas* c = canvas();
    if (c == nullptr)
        return;
    const UiLook& look = UiLook::instance();
    const VyRect notice = rect();
    c->fillRect(notice, look.dialogBackground);
    c->setPenWidth(std::max(1, UiLook::scaledX(look.dialogBorderWidth)));
    c->drawRect(notice, look.dialogBorder);
    c->setPenWidth(1);
    const int pad = UiLook::scaledX(kPadding);
    const int icon = UiLook::scaledY(kIconPx);
    const float scale = VyApplication::instance() && VyApplication::instance()->screen()
                            ? VyApplication::instance()->screen()->horizontalScale()
                            : 1.0f;
    const VyBitmap image = VyStyle::instance()->imageForScale("images/locked.png", scale);
    if (!image.isNull())
        c->drawImage(
            VyRect(notice.left + pad, notice.top + (notice.height() - icon) / 2, icon, icon),
            image);
    const int textLeft = notice.left + 2 * pad + icon;
    c->drawText(VyRect(textLeft, notice.top, notice.right - pad - textLeft, notice.height()),
                VyCanvas::AlignLeft | VyCanvas::AlignVCenter,
                VyTranslation::tr(TextId::User::ScreenLocked), look.fontPixelSize(),
                look.textForeground);
}
