#include "toolkit/widgets/WndTimeoutManager.h"

#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyTimer.h"
#include "toolkit/core/VyWidget.h"
#include "toolkit/events/VyEvent.h"

namespace {

constexpr int kMsPerSecond = 1000;

bool isInput(int type) {
    return (type >= VyEvent::RawMouse && type <= VyEvent::Wheel) || type == VyEvent::KeyPress;
}

} // namespace

WndTimeoutManager::WndTimeoutManager(VyObject* parent)
    : VyObject(parent)
    , m_timer(new VyTimer(this)) {
    m_timer->setSingleShot(true);
    connect(m_timer, &m_timer->timeout, this, VY_SLOT(WndTimeoutManager, onTimeout));
    if (VyApplication* app = VyApplication::instance())
        app->installEventFilter(this);
}

WndTimeoutManager::~WndTimeoutManager() {
    if (VyApplication* app = VyApplication::instance())
        app->removeEventFilter(this);
}

void WndTimeoutManager::setEnabled(bool enabled) {
    m_enabled = enabled;
    if (enabled)
        restart();
    else
        m_timer->stop();
}

void WndTimeoutManager::setTimeoutSeconds(int seconds) {
    m_timeoutSeconds = seconds < 0 ? 0 : seconds;
    if (m_timer->isActive())
        restart();
}

int WndTimeoutManager::currentIntervalMs() const {
    return m_timer->isActive() ? m_timer->interval() : 0;
}

bool WndTimeoutManager::isTimerActive() const {
    return m_timer->isActive();
}

void WndTimeoutManager::restart() {
    int seconds = m_timeoutSeconds == 0 ? kZeroTimeoutSeconds : m_timeoutSeconds;
    m_timer->start(kMsPerSecond * seconds);
}

void WndTimeoutManager::notifyActivity() {
    if (m_enabled)
        restart();
}

bool WndTimeoutManager::eligible(const VyWidget* window) const {
    if (!window || !window->isVisible())
        return false;
    if (window->isPopup())
        return (m_flags & ClosePopups) != 0;
    return (m_flags & CloseModalWindows) != 0 && window->testAttribute(VyWidget::Modal);
}

void WndTimeoutManager::onTimeout() {
    VyApplication* app = VyApplication::instance();
    if (!m_enabled || !app)
        return;
    VyWidget* top = app->activeModalWidget();
    if (!eligible(top))
        return; // something that must stay open is on top: wait for input
    top->close();
    if (app->activeModalWidget())
        restart();
}

bool WndTimeoutManager::eventFilter(VyObject*, VyEvent* e) {
    if (isInput(e->type()))
        notifyActivity();
    return false;
}
