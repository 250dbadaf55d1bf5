#pragma once
// The disks as App reports them: one state per slot, and whether recording has space.
#include "toolkit/core/VyObject.h"

#include <cstdint>
#include <vector>

struct SystemInfoRecord;

class DiskManager : public VyObject {
    VY_OBJECT(DiskManager, VyObject)
public:
    enum DiskState : uint8_t { Absent = 0, Unformatted = 1, Normal = 2, Faulty = 3 };

    explicit DiskManager(const SystemInfoRecord& info);
    ~DiskManager() override;

    // The live one, owned by the UiModels set; null when there is none.
    static DiskManager* instance();

    int slotCount() const { return int(m_states.size()); }
    DiskState state(int slot) const;
    void setState(int slot, DiskState state);
    // True when at least one disk can take recordings.
    bool hasUsableDisk() const;
    VySignal disksChanged;

private:
    std::vector<DiskState> m_states;
};
