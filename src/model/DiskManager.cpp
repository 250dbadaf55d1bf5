#include "model/DiskManager.h"

#include "model/SystemInfo.h"

DiskManager* DiskManager::instance() {
    static DiskManager* manager = new DiskManager; // lives to process end
    return manager;
}

DiskManager::DiskManager()
    : m_states(SystemInfo::record().diskCount, Absent) {}

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
