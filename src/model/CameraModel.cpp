#include "model/CameraModel.h"

#include "model/SystemInfo.h"

CameraModel* CameraModel::instance() {
    static CameraModel* model = new CameraModel; // lives to process end
    return model;
}

CameraModel::CameraModel() {
    const SystemInfoRecord& info = SystemInfo::record();
    m_channelCount = info.channelCount;
    m_analogChannelCount = info.analogChannelCount;
    m_ipChannelCount = info.ipChannelCount;
    m_hasCamera.assign(size_t(m_channelCount), 0);
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
