#pragma once
// The 24-byte frame header that starts every message on the GUI <-> App socket.
//
// The struct mirrors the wire layout with native alignment; the encode/decode functions
// below go byte by byte through ByteOrder, so they hold on any host.
#include "protocol/ByteOrder.h"

#include <cstddef>
#include <cstdint>

struct IpcMsgHeader {
    uint32_t headTag = 1;   // always 1 when the GUI sends; ignored on receipt
    int16_t validFlag = 1;  // <= 0: the receiver drops the header and leaves the body unread
    uint16_t reserved6 = 1; // ignored on receipt
    uint16_t MainType = 0;  // message family
    uint16_t SubType = 0;   // message within the family
    uint32_t dataLen = 0;   // body bytes following the header
    uint32_t seqNumber = 0; // a reply carries the number of its request
    uint32_t msgValue = 0;  // small argument of App's notifications
};

constexpr size_t kIpcHeaderSize = 24; // bytes

static_assert(sizeof(IpcMsgHeader) == kIpcHeaderSize, "wire header is 24 bytes");
static_assert(offsetof(IpcMsgHeader, headTag) == 0, "wire offset");
static_assert(offsetof(IpcMsgHeader, validFlag) == 4, "wire offset");
static_assert(offsetof(IpcMsgHeader, reserved6) == 6, "wire offset");
static_assert(offsetof(IpcMsgHeader, MainType) == 8, "wire offset");
static_assert(offsetof(IpcMsgHeader, SubType) == 10, "wire offset");
static_assert(offsetof(IpcMsgHeader, dataLen) == 12, "wire offset");
static_assert(offsetof(IpcMsgHeader, seqNumber) == 16, "wire offset");
static_assert(offsetof(IpcMsgHeader, msgValue) == 20, "wire offset");

// Largest body the GUI accepts. The biggest real block (the device default record) is
// 692,696 bytes; anything far above it means the stream is out of step, and allocating it
// would let one bad header exhaust the device.
constexpr uint32_t kIpcMaxDataLen = 16u * 1024u * 1024u; // bytes (16 MiB)

// Writes the 24 wire bytes of `h` to `out`.
inline void ipcEncodeHeader(const IpcMsgHeader& h, uint8_t* out) {
    using namespace ByteOrder;
    storeLe32(out + 0, h.headTag);
    storeLe16(out + 4, uint16_t(h.validFlag));
    storeLe16(out + 6, h.reserved6);
    storeLe16(out + 8, h.MainType);
    storeLe16(out + 10, h.SubType);
    storeLe32(out + 12, h.dataLen);
    storeLe32(out + 16, h.seqNumber);
    storeLe32(out + 20, h.msgValue);
}

// Reads a header from 24 wire bytes. Every bit pattern is a header; whether it is usable is
// for ipcCheckHeader to say.
inline IpcMsgHeader ipcDecodeHeader(const uint8_t* in) {
    using namespace ByteOrder;
    IpcMsgHeader h;
    h.headTag = loadLe32(in + 0);
    h.validFlag = int16_t(loadLe16(in + 4));
    h.reserved6 = loadLe16(in + 6);
    h.MainType = loadLe16(in + 8);
    h.SubType = loadLe16(in + 10);
    h.dataLen = loadLe32(in + 12);
    h.seqNumber = loadLe32(in + 16);
    h.msgValue = loadLe32(in + 20);
    return h;
}

enum class IpcHeaderCheck {
    Ok,
    Invalid,  // validFlag <= 0: drop the header, the body stays in the stream
    TooLarge, // dataLen above kIpcMaxDataLen: the stream cannot be trusted any more
};

inline IpcHeaderCheck ipcCheckHeader(const IpcMsgHeader& h) {
    if (h.validFlag <= 0)
        return IpcHeaderCheck::Invalid;
    if (h.dataLen > kIpcMaxDataLen)
        return IpcHeaderCheck::TooLarge;
    return IpcHeaderCheck::Ok;
}

// The sequence counter step: a send numbers itself with the counter's value and stores
// value + 1, except that 0 is never handed out (it means "no request"): a counter of 0
// yields 1 and stores 2. Returns the number to use; `counter` is updated.
inline uint32_t ipcNextSeqNumber(uint32_t& counter) {
    uint32_t used = counter == 0 ? 1 : counter;
    counter = used + 1;
    return used;
}
