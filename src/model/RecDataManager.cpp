#include "model/RecDataManager.h"

#include "model/ModelInstance.h"

#include "protocol/SystemInfoRecord.h"
#include "runtime/VyLog.h"

RecDataManager* RecDataManager::instance() {
    return ModelInstance<RecDataManager>::get();
}

RecDataManager::RecDataManager(const SystemInfoRecord& info)
    : m_channelCount(info.channelCount) {
    m_playbackMask.fill(0);
    for (int c = 0; c < m_channelCount && c < PlaybackChannelBits::kMaxChannels; ++c)
        m_playbackMask[size_t(c / 8)] |= uint8_t(1u << (c % 8));
    m_backupMask = m_playbackMask;
    ModelInstance<RecDataManager>::set(this);
}

RecDataManager::~RecDataManager() {
    ModelInstance<RecDataManager>::clear(this);
}

void RecDataManager::refresh() {
    m_recordSettings.load();
    emitSignal(this, &recordSettingsChanged);
}

std::vector<uint8_t> RecDataManager::channelToBitArray(int channel) const {
    const int channels = m_channelCount;
    if (channel < 0 || channel >= channels) {
        VY_GUI_LOG("chnIndex invalid:%d !!!\n", channel);
        return {};
    }
    std::vector<uint8_t> bits(size_t((channels + 7) / 8), 0);
    bits[size_t(channel / 8)] = uint8_t(1u << (channel % 8));
    return bits;
}
