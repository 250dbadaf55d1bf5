#pragma once
// The device's identity and its remote-access registration (parameter block 22). It starts
// late: registration waits for the delayed start, when App's network is up, so the model is
// created with its pending-start flag set and the delayed start runs start().
#include "protocol/DeviceParamBlock.h"
#include "toolkit/core/VyObject.h"

#include <cstdint>
#include <string>

class VyKeyManager;

class RemoteAccessModel : public VyObject {
    VY_OBJECT(RemoteAccessModel, VyObject)
public:
    RemoteAccessModel();
    ~RemoteAccessModel() override;

    // The live one, owned by the UiModels set; null when there is none.
    static RemoteAccessModel* instance();

    bool pendingStart() const { return m_pendingStart != 0; }
    // Reads block 22 and clears the pending flag.
    void start();
    // Rereads block 22 (App reported a change); only once started.
    void refresh();

    uint32_t deviceId() const { return m_block.deviceId; }
    bool remoteAccessEnabled() const { return m_block.remoteAccessEnabled != 0; }
    std::string remoteAddress() const { return m_block.remoteAddressText(); }
    int loadCount() const { return m_loadCount; }
    // The key manager that learns the device's address on the remote bus at each load.
    void setKeyManager(VyKeyManager* keyManager) { m_keyManager = keyManager; }
    VySignal changed;

private:
    void load();
    DeviceParamBlock m_block;
    VyKeyManager* m_keyManager = nullptr; // a sibling in the same UiModels set
    int m_loadCount = 0;
    uint8_t m_pendingStart = 1;
};
