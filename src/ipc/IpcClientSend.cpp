// IpcClient: framing and sending.
#include "ipc/IpcClient.h"

#include "ipc/IpcSocketIo.h"
#include "runtime/VyLog.h"

int IpcClient::UI_IPC_ClientSendReqMsg(const IpcMsgHeader* header, const void* body) {
    if (!waitConnected())
        return -1;
    if (!header)
        return -1;
    std::lock_guard<std::mutex> lock(m_sendMutex);
    int sock = m_sock.load();
    if (sock == -1)
        return -1;
    uint8_t raw[kIpcHeaderSize];
    ipcEncodeHeader(*header, raw);
    // Header, then body, in one gathered write: App wakes once per message.
    bool headerSent = false;
    if (WriteFrame(sock, raw, body, int(header->dataLen), &headerSent) != 0) {
        if (!headerSent)
            VY_IPC_LOG("send msg head error\n");
        else
            VY_IPC_LOG("send msg error\n");
        return -1;
    }
    return 0;
}

uint32_t IpcClient::send(uint16_t mainType, uint16_t subType, const void* body, uint32_t dataLen) {
    uint32_t current = m_seqCounter.load();
    uint32_t next = 0;
    uint32_t seq = 0;
    do {
        next = current;
        seq = ipcNextSeqNumber(next);
    } while (!m_seqCounter.compare_exchange_weak(current, next));

    IpcMsgHeader h;
    h.MainType = mainType;
    h.SubType = subType;
    h.dataLen = body ? dataLen : 0;
    h.seqNumber = seq;
    UI_IPC_ClientSendReqMsg(&h, body);
    return seq;
}
