#pragma once
// What the key manager needs from the recorder service and the device description: the
// parameter blocks of the serial keyboard (18) and of the device (22), the point-of-sale
// and PTZ messages, the channel count and the device's feature switches. The toolkit
// cannot reach the IPC client or the parameter cache, so start-up installs an
// implementation from the model layer (VyKeyManager::Setup); without one the key manager
// runs as a device without serial keyboard, with ID 0 and no channels.
#include <cstdint>

#include "protocol/DeviceParamBlock.h"
#include "protocol/SerialKeyboardBlock.h"

struct PTZ_keyvaluet;

class VyKeyRecorderLink {
public:
    struct Features {
        bool serialKeyboard = false; // an EIA-485 control keyboard can be attached
        bool pointOfSale = false;    // the point-of-sale feature is built in
        bool pointOfSaleOn = false;  // ... and switched on
        bool serialKeyMux = false;   // the serial port is shared between keys and PTZ
    };

    virtual ~VyKeyRecorderLink() = default;

    virtual Features features() const = 0;
    virtual int channelCount() const = 0;
    virtual SerialKeyboardBlock serialKeyboard() = 0;
    virtual DeviceParamBlock deviceParams() = 0;
    virtual void storeDeviceParams(const DeviceParamBlock& block) = 0;
    // Request 189: `length` bytes (the text and its terminator) of a zeroed 512-byte buffer.
    // Called from the key poll thread.
    virtual void sendPointOfSaleText(const uint8_t* buffer, uint32_t length) = 0;
    // A command of the serial PTZ keyboard (1..17) for App.
    virtual void sendPtzCommand(const PTZ_keyvaluet& command) = 0;
};
