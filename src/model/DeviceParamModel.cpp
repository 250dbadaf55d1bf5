#include "model/DeviceParamModel.h"

#include "model/ModelInstance.h"

#include "protocol/ParamBlock.h"
#include "runtime/VyLog.h"

namespace {

// Part -> its block; null: the part is unused.
const ParamBlockId* const kParts[DeviceParamModel::kPartCount] = {
    &ParamBlock::AlarmInput,        // 0: alarm input settings
    &ParamBlock::Network,           // 1: network settings
    &ParamBlock::Camera,            // 2: camera settings
    &ParamBlock::Record,            // 3: record settings
    &ParamBlock::Ptz,               // 4: PTZ settings
    &ParamBlock::Motion,            // 5: motion settings
    &ParamBlock::VideoLoss,         // 6: video loss settings
    &ParamBlock::AlarmOutput,       // 7: alarm output settings
    &ParamBlock::Email,             // 8: email settings
    &ParamBlock::Ddns,              // 9: DDNS settings
    &ParamBlock::Ntp,               // 10: NTP settings
    &ParamBlock::Cloud,             // 11: cloud settings
    &ParamBlock::Encode,            // 12: encode settings
    &ParamBlock::Schedule,          // 13: schedule settings
    &ParamBlock::User,              // 14: user settings
    &ParamBlock::Colour,            // 15: colour settings
    nullptr,                        // 16: unused
    nullptr,                        // 17: unused
    nullptr,                        // 18: unused
    nullptr,                        // 19: unused
    &ParamBlock::Exception,         // 20: exception settings
    nullptr,                        // 21: unused
    &ParamBlock::AnalyticsRules,    // 22: analytics rules
    &ParamBlock::AnalyticsSchedule, // 23: analytics schedule
    &ParamBlock::P2p,               // 24: P2P settings
    nullptr,                        // 25: unused
    &ParamBlock::DiskGroup,         // 26: disk group settings
};

} // namespace

DeviceParamModel* DeviceParamModel::instance() {
    return ModelInstance<DeviceParamModel>::get();
}

DeviceParamModel::DeviceParamModel() {
    ModelInstance<DeviceParamModel>::set(this);
    m_parts.resize(kPartCount);
    for (int i = 0; i < kPartCount; ++i) {
        if (kParts[i] != nullptr)
            m_parts[size_t(i)] =
                std::make_unique<CachedParamBlock>(kParts[i]->number, kParts[i]->size);
    }
}

DeviceParamModel::~DeviceParamModel() {
    ModelInstance<DeviceParamModel>::clear(this);
}

int DeviceParamModel::blockOfPart(int part) {
    return part >= 0 && part < kPartCount && kParts[part] != nullptr ? int(kParts[part]->number)
                                                                     : -1;
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
