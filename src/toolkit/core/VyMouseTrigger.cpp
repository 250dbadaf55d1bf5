#include "toolkit/core/VyMouseTrigger.h"

#include <algorithm>
#include <vector>

namespace {

std::vector<VyMouseTrigger*>& triggers() {
    static std::vector<VyMouseTrigger*> list;
    return list;
}

} // namespace

VyMouseTrigger::VyMouseTrigger(int threshold)
    : m_threshold(threshold) {
    triggers().push_back(this);
}

VyMouseTrigger::~VyMouseTrigger() {
    auto& list = triggers();
    list.erase(std::remove(list.begin(), list.end(), this), list.end());
}

int VyMouseTrigger::triggerCount() {
    return static_cast<int>(triggers().size());
}

void VyMouseTrigger::update(int count) {
    if (!m_enabled)
        return;
    if (m_timedOut && count < m_threshold) {
        m_timedOut = 0;
        onActivity();
    } else if (!m_timedOut && count > m_threshold) {
        m_timedOut = 1;
        onIdleTimeout();
    }
}

void VyMouseTrigger::idleCountChanged(int count) {
    // A copy: a trigger's operation may create or destroy triggers (a menu closed on
    // time-out takes its own with it).
    const std::vector<VyMouseTrigger*> snapshot = triggers();
    for (VyMouseTrigger* trigger : snapshot) {
        const auto& live = triggers();
        if (std::find(live.begin(), live.end(), trigger) != live.end())
            trigger->update(count);
    }
}
