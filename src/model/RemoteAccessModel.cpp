#include "model/RemoteAccessModel.h"

#include "model/ParamAccess.h"
#include "model/VyKeyManager.h"

#include <cstring>

RemoteAccessModel* RemoteAccessModel::instance() {
    static RemoteAccessModel* model = new RemoteAccessModel; // lives to process end
    return model;
}

RemoteAccessModel::RemoteAccessModel() {
    std::memset(&m_block, 0, sizeof m_block);
}

void RemoteAccessModel::load() {
    m_block = ParamAccess::get<DeviceParamBlock>();
    ++m_loadCount;
    // The key manager answers the remote control only when it addresses this device.
    VyKeyManager::instance()->setDeviceId(m_block.deviceId);
    emitSignal(this, &changed);
}

void RemoteAccessModel::start() {
    m_pendingStart = 0;
    load();
}

void RemoteAccessModel::refresh() {
    if (!pendingStart())
        load();
}
