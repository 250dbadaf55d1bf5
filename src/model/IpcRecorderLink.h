#pragma once
// The production link to App: the process-wide IPC client behind the RecorderLink calls.
#include "model/RecorderLink.h"

class IpcClient;

class IpcRecorderLink : public RecorderLink {
public:
    explicit IpcRecorderLink(IpcClient& client)
        : m_client(client) {}

    uint32_t send(uint16_t mainType, uint16_t subType, const void* body, uint32_t len) override;
    void request(uint16_t mainType, uint16_t subType, const void* body, uint32_t len,
                 std::vector<uint8_t>& reply) override;
    void setWaiterMode(bool on) override;
    void setEventReceiver(VyObject* receiver) override;

private:
    IpcClient& m_client;
};
