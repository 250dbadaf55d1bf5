#include "model/RemoteAccessModel.h"

#include "model/ModelInstance.h"

#include "model/ParamAccess.h"
#include "toolkit/input/VyKeyManager.h"

#include <cstring>

RemoteAccessModel* RemoteAccessModel::instance() {
    return ModelInstance<RemoteAccessModel>::get();
}

RemoteAccessModel::RemoteAccessModel() {
    std::memset(&m_block, 0, sizeof m_block);
    ModelInstance<RemoteAccessModel>::set(this);
}

RemoteAccessModel::~RemoteAccessModel() {
    ModelInstance<RemoteAccessModel>::clear(this);
}

void RemoteAccessModel::load() {
    m_block = ParamAccess::get<DeviceParamBlock>();
    ++m_loadCount;
    // The key manager answers the remote control only when it addresses this device.
    if (m_keyManager != nullptr)
        m_keyManager->setDeviceId(m_block.deviceId);
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
