#include "model/DeviceParamModel.h"

#include "runtime/VyLog.h"

namespace {

// Part -> (block, size in bytes). The sizes are the blocks' wire sizes as App declares
// them for the pages that read these parts.
struct PartRow {
    int block;
    uint32_t size;
};

const PartRow kParts[DeviceParamModel::kPartCount] = {
    {11, 1024}, // 0: alarm input settings
    {32, 512},  // 1: network settings
    {3, 2048},  // 2: camera settings
    {14, 1024}, // 3: record settings
    {57, 256},  // 4: PTZ settings
    {45, 512},  // 5: motion settings
    {46, 512},  // 6: video loss settings
    {47, 512},  // 7: alarm output settings
    {53, 256},  // 8: email settings
    {54, 256},  // 9: DDNS settings
    {55, 256},  // 10: NTP settings
    {87, 256},  // 11: cloud settings
    {5, 1024},  // 12: encode settings
    {7, 1024},  // 13: schedule settings
    {38, 512},  // 14: user settings
    {6, 512},   // 15: colour settings
    {-1, 0},    // 16: unused
    {-1, 0},    // 17: unused
    {-1, 0},    // 18: unused
    {-1, 0},    // 19: unused
    {17, 512},  // 20: exception settings
    {-1, 0},    // 21: unused
    {68, 512},  // 22: analytics rules
    {69, 512},  // 23: analytics schedule
    {59, 256},  // 24: P2P settings
    {-1, 0},    // 25: unused
    {49, 512},  // 26: disk group settings
};

} // namespace

DeviceParamModel* DeviceParamModel::instance() {
    static DeviceParamModel* model = new DeviceParamModel; // lives to process end
    return model;
}

DeviceParamModel::DeviceParamModel() {
    m_parts.resize(kPartCount);
    for (int i = 0; i < kPartCount; ++i) {
        if (kParts[i].block >= 0)
            m_parts[size_t(i)] =
                std::make_unique<CachedParamBlock>(uint32_t(kParts[i].block), kParts[i].size);
    }
}

int DeviceParamModel::blockOfPart(int part) {
    return part >= 0 && part < kPartCount ? kParts[part].block : -1;
}

const CachedParamBlock* DeviceParamModel::part(int part) {
    if (blockOfPart(part) < 0)
        return nullptr;
    CachedParamBlock* p = m_parts[size_t(part)].get();
    if (!p->isLoaded())
        p->load();
    return p;
}

bool DeviceParamModel::reloadPart(int part) {
    if (blockOfPart(part) < 0) {
        vyFrameworkLog("reload of unknown parameter part %d !!!\n", part);
        return false;
    }
    CachedParamBlock* p = m_parts[size_t(part)].get();
    if (p->isLoaded())
        p->load();
    m_lastChangedPart = part;
    emitSignal(this, &partChanged);
    return true;
}
