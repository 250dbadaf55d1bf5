// libFuzzer target: arbitrary bytes as the stream App writes to the GUI's socket, read by
// the client's frame reader through a socket pair. Every message it hands out must be
// exactly the frame that a plain walk over the same bytes finds (header decode, the
// validFlag and size checks, the body behind it), skipped headers must leave their body in
// the stream, and no block may exceed the header plus the largest accepted body. The
// header codec must also reproduce any 24 bytes it decodes.
#include "ipc/IpcFrameReader.h"
#include "protocol/IpcMsgHeader.h"

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <sys/socket.h>
#include <unistd.h>

namespace {

struct Expected {
    bool message = false; // false: the stream ends (broken or out of step)
    size_t offset = 0;    // of the header
    uint32_t dataLen = 0;
};

// The framing written out the slow way: what the next read must produce, starting at *pos.
Expected walk(const uint8_t* data, size_t size, size_t* pos) {
    for (;;) {
        Expected e;
        if (size - *pos < kIpcHeaderSize)
            return e; // the header cannot be completed
        IpcMsgHeader h = ipcDecodeHeader(data + *pos);
        e.offset = *pos;
        *pos += kIpcHeaderSize;
        if (h.validFlag <= 0)
            continue; // dropped; the body bytes are the next header
        if (h.dataLen > kIpcMaxDataLen || size - *pos < h.dataLen)
            return e;
        e.message = true;
        e.dataLen = h.dataLen;
        *pos += h.dataLen;
        return e;
    }
}

void checkCodec(const uint8_t* data, size_t size) {
    if (size < kIpcHeaderSize)
        return;
    uint8_t again[kIpcHeaderSize];
    ipcEncodeHeader(ipcDecodeHeader(data), again);
    if (std::memcmp(again, data, kIpcHeaderSize) != 0)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    checkCodec(data, size);

    int pair[2];
    if (::socketpair(AF_UNIX, SOCK_STREAM, 0, pair) != 0)
        return 0;
    // Whatever the socket buffer takes is the stream; the reader then sees its end.
    size_t fed = 0;
    while (fed < size) {
        ssize_t n = ::send(pair[0], data + fed, size - fed, MSG_DONTWAIT | MSG_NOSIGNAL);
        if (n <= 0)
            break;
        fed += size_t(n);
    }
    ::shutdown(pair[0], SHUT_WR);

    IpcFrameReader reader;
    size_t pos = 0;
    for (;;) {
        Expected want = walk(data, fed, &pos);
        IpcMsgBlock block;
        IpcFrameReader::Result result = IpcFrameReader::Result::Skipped;
        while (result == IpcFrameReader::Result::Skipped)
            result = reader.read(pair[1], &block);
        if (!want.message) {
            if (result == IpcFrameReader::Result::Message)
                std::abort(); // a frame out of nothing
            break;
        }
        if (result != IpcFrameReader::Result::Message || !block)
            std::abort(); // a complete frame was lost
        IpcMsgHeader h = ipcBlockHeader(block.get());
        if (h.dataLen != want.dataLen || h.dataLen > kIpcMaxDataLen)
            std::abort();
        if (std::memcmp(block.get(), data + want.offset, kIpcHeaderSize + h.dataLen) != 0)
            std::abort();
    }
    ::close(pair[0]);
    ::close(pair[1]);
    return 0;
}
