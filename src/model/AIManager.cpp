#include "model/AIManager.h"

#include "model/ModelInstance.h"

AIManager* AIManager::instance() {
    return ModelInstance<AIManager>::get();
}

AIManager::AIManager() {
    ModelInstance<AIManager>::set(this);
}

AIManager::~AIManager() {
    ModelInstance<AIManager>::clear(this);
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
