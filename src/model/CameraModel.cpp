#include "model/CameraModel.h"

#include "model/ModelInstance.h"

#include "protocol/SystemInfoRecord.h"

CameraModel* CameraModel::instance() {
    return ModelInstance<CameraModel>::get();
}

CameraModel::CameraModel(const SystemInfoRecord& info) {
    ModelInstance<CameraModel>::set(this);
    m_channelCount = info.channelCount;
    m_analogChannelCount = info.analogChannelCount;
    m_ipChannelCount = info.ipChannelCount;
    m_hasCamera.assign(size_t(m_channelCount), 0);
}

CameraModel::~CameraModel() {
    ModelInstance<CameraModel>::clear(this);
}

bool CameraModel::hasCamera(int channel) const {
    return channel >= 0 && channel < m_channelCount && m_hasCamera[size_t(channel)] != 0;
}

void CameraModel::setHasCamera(int channel, bool present) {
    if (channel < 0 || channel >= m_channelCount || hasCamera(channel) == present)
        return;
    m_hasCamera[size_t(channel)] = present ? 1 : 0;
    emitSignal(this, &camerasChanged);
}
