#pragma once
// The key manager's link to the recorder service: parameter blocks 18 and 22 through the
// parameter access, the point-of-sale text and PTZ commands as one-way messages, the channel
// count from the system information. Start-up sets the device's feature switches.
#include "toolkit/input/VyKeyRecorderLink.h"

class KeyManagerLink : public VyKeyRecorderLink {
public:
    void setFeatures(const Features& features) { m_features = features; }

    Features features() const override { return m_features; }
    int channelCount() const override;
    SerialKeyboardBlock serialKeyboard() override;
    DeviceParamBlock deviceParams() override;
    void storeDeviceParams(const DeviceParamBlock& block) override;
    void sendPointOfSaleText(const uint8_t* buffer, uint32_t length) override;
    void sendPtzCommand(const PTZ_keyvaluet& command) override;

private:
    Features m_features;
};
