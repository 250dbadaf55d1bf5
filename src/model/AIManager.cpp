#include "model/AIManager.h"

AIManager* AIManager::instance() {
    static AIManager* manager = new AIManager; // lives to process end
    return manager;
}

void AIManager::refresh() {
    m_rules.load();
    emitSignal(this, &changed);
}

void AIManager::setAnalysedChannels(uint64_t mask) {
    if (mask == m_analysedChannels)
        return;
    m_analysedChannels = mask;
    emitSignal(this, &changed);
}
