#pragma once
// A received message lives in one malloc'ed block: the 24 header bytes as they came off the
// wire, then the body. The block travels from the receive thread to its consumer without
// being copied; whoever consumes it last frees it with free() (an IPC event carries it with
// free as its deleter).
#include "protocol/IpcMsgHeader.h"

#include <cstdlib>
#include <memory>

struct IpcBlockFree {
    void operator()(uint8_t* block) const { std::free(block); }
};
using IpcMsgBlock = std::unique_ptr<uint8_t, IpcBlockFree>;

// Allocates a block for `h` with its header bytes filled in; null when out of memory.
inline IpcMsgBlock ipcAllocBlock(const IpcMsgHeader& h) {
    IpcMsgBlock block(static_cast<uint8_t*>(std::malloc(kIpcHeaderSize + size_t(h.dataLen))));
    if (block)
        ipcEncodeHeader(h, block.get());
    return block;
}

inline IpcMsgHeader ipcBlockHeader(const void* block) {
    return ipcDecodeHeader(static_cast<const uint8_t*>(block));
}

inline uint8_t* ipcBlockBody(void* block) {
    return static_cast<uint8_t*>(block) + kIpcHeaderSize;
}
inline const uint8_t* ipcBlockBody(const void* block) {
    return static_cast<const uint8_t*>(block) + kIpcHeaderSize;
}
