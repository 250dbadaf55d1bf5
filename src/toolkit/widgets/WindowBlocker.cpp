#include "toolkit/widgets/WindowBlocker.h"

#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyWidget.h"
#include "toolkit/events/VyEvent.h"

#include <algorithm>
#include <vector>

namespace {

// The live blockers; GUI thread only, like every widget.
std::vector<WindowBlocker*>& liveBlockers() {
    static std::vector<WindowBlocker*> blockers;
    return blockers;
}

bool isMouse(int type) {
    return type >= VyEvent::MouseButtonPress && type <= VyEvent::Wheel;
}

} // namespace

WindowBlocker::WindowBlocker(VyWidget* window, int flags)
    : m_window(window ? window->window() : nullptr)
    , m_flags(flags) {
    liveBlockers().push_back(this);
    if (VyApplication* app = VyApplication::instance())
        app->installEventFilter(this);
}

WindowBlocker::~WindowBlocker() {
    if (VyApplication* app = VyApplication::instance())
        app->removeEventFilter(this);
    auto& blockers = liveBlockers();
    blockers.erase(std::remove(blockers.begin(), blockers.end(), this), blockers.end());
}

bool WindowBlocker::isBlocked(const VyWidget* widget) {
    if (!widget)
        return false;
    const VyWidget* window = widget->window();
    for (const WindowBlocker* b : liveBlockers())
        if (b->m_window.data() == window)
            return true;
    return false;
}

bool WindowBlocker::eventFilter(VyObject* watched, VyEvent* e) {
    bool mouse = isMouse(e->type()) && (m_flags & BlockMouse);
    bool key = e->type() == VyEvent::KeyPress && (m_flags & BlockKeys);
    if ((!mouse && !key) || !m_window || !watched->isWidgetType())
        return false;
    if (static_cast<VyWidget*>(watched)->window() != m_window.data())
        return false;
    ++m_swallowed;
    return true;
}
