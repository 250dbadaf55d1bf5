#include "model/IpcRecorderLink.h"

#include "ipc/IpcClient.h"

uint32_t IpcRecorderLink::send(uint16_t mainType, uint16_t subType, const void* body,
                               uint32_t len) {
    return m_client.send(mainType, subType, body, len);
}

void IpcRecorderLink::request(uint16_t mainType, uint16_t subType, const void* body, uint32_t len,
                              std::vector<uint8_t>& reply) {
    reply.clear();
    const WaitingScope waiting;
    // False only once the client was stopped at process end; the reply stays empty then.
    m_client.request(reply, mainType, subType, body, len);
}

void IpcRecorderLink::setWaiterMode(bool on) {
    m_client.setWaiterMode(on);
}

void IpcRecorderLink::setEventReceiver(VyObject* receiver) {
    m_client.setEventReceiver(receiver);
}
