#include "model/DiskManager.h"

#include "model/ModelInstance.h"

#include "protocol/SystemInfoRecord.h"

DiskManager* DiskManager::instance() {
    return ModelInstance<DiskManager>::get();
}

DiskManager::DiskManager(const SystemInfoRecord& info)
    : m_states(info.diskCount, Absent) {
    ModelInstance<DiskManager>::set(this);
}

DiskManager::~DiskManager() {
    ModelInstance<DiskManager>::clear(this);
}

DiskManager::DiskState DiskManager::state(int slot) const {
    return slot >= 0 && slot < slotCount() ? m_states[size_t(slot)] : Absent;
}

void DiskManager::setState(int slot, DiskState state) {
    if (slot < 0 || slot >= slotCount() || m_states[size_t(slot)] == state)
        return;
    m_states[size_t(slot)] = state;
    emitSignal(this, &disksChanged);
}

bool DiskManager::hasUsableDisk() const {
    for (DiskState s : m_states) {
        if (s == Normal)
            return true;
    }
    return false;
}
