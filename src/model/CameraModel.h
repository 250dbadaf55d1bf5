#pragma once
// The cameras behind the channels: how many channels of each kind the device has (from the
// system information record) and which channels have a camera assigned.
#include "toolkit/core/VyObject.h"

#include <cstdint>
#include <vector>

struct SystemInfoRecord;

class CameraModel : public VyObject {
    VY_OBJECT(CameraModel, VyObject)
public:
    explicit CameraModel(const SystemInfoRecord& info);
    ~CameraModel() override;

    // The live one, owned by the UiModels set; null when there is none.
    static CameraModel* instance();

    int channelCount() const { return m_channelCount; }
    int analogChannelCount() const { return m_analogChannelCount; }
    // Network-camera channels: each needs time to connect after power-up, which is why the
    // first screen waits longer on a device with many of them.
    uint8_t ipChannelCount() const { return m_ipChannelCount; }

    bool hasCamera(int channel) const;
    void setHasCamera(int channel, bool present);
    VySignal camerasChanged;

private:
    std::vector<uint8_t> m_hasCamera;
    int m_channelCount = 0;
    int m_analogChannelCount = 0;
    uint8_t m_ipChannelCount = 0;
};
