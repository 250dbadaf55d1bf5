#include "toolkit/widgets/WndTimeoutManager.h"

#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyWidget.h"
#include "toolkit/events/VyEvent.h"

namespace {

bool isInput(int type) {
    return (type >= VyEvent::RawMouse && type <= VyEvent::Wheel) || type == VyEvent::KeyPress;
}

} // namespace

WndTimeoutManager::WndTimeoutManager(VyObject* parent)
    : VyObject(parent)
    , VyMouseTrigger(kDefaultTimeoutSeconds) {
    VyMouseTrigger::setEnabled(false);
    if (VyApplication* app = VyApplication::instance())
        app->installEventFilter(this);
}

WndTimeoutManager::~WndTimeoutManager() {
    if (VyApplication* app = VyApplication::instance())
        app->removeEventFilter(this);
}

int WndTimeoutManager::periodTicks() const {
    return m_timeoutSeconds == 0 ? kZeroTimeoutSeconds : m_timeoutSeconds;
}

void WndTimeoutManager::setTimeoutSeconds(int seconds) {
    m_timeoutSeconds = seconds < 0 ? 0 : seconds;
    setThreshold(periodTicks());
}

void WndTimeoutManager::rearm() {
    setThreshold(periodTicks());
}

void WndTimeoutManager::notifyActivity() {
    rearm();
    if (VyApplication* app = VyApplication::instance())
        app->noteInput();
}

void WndTimeoutManager::onActivity() {
    rearm();
}

bool WndTimeoutManager::eligible(const VyWidget* window) const {
    if (!window || !window->isVisible())
        return false;
    if (window->isPopup())
        return (m_flags & ClosePopups) != 0;
    return (m_flags & CloseModalWindows) != 0 && window->testAttribute(VyWidget::Modal);
}

void WndTimeoutManager::onIdleTimeout() {
    emitSignal(this, &timedOut);
    VyApplication* app = VyApplication::instance();
    if (!app)
        return;
    VyWidget* top = app->activeModalWidget();
    if (!eligible(top))
        return; // something that must stay open is on top: wait for input
    top->close();
    if (eligible(app->activeModalWidget())) {
        // The count, one past the threshold now, keeps rising: the next window goes a
        // whole period later.
        setThreshold(threshold() + 1 + periodTicks());
        setTimedOut(false);
    }
}

bool WndTimeoutManager::eventFilter(VyObject*, VyEvent* e) {
    // The idle count drops back to 0 on input, but this trigger only hears of it when it
    // had timed out; a manager waiting for its next window must start over too.
    if (isInput(e->type()))
        rearm();
    return false;
}
