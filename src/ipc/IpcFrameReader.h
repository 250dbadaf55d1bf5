#pragma once
// The receive thread's framing: reads one message at a time off the App socket into a
// message block. While messages stream in back to back, the body of one and the header of
// the next come in with a single receive; the header bytes taken ahead are the start of the
// stream for the next call, so nothing about the framing changes: a header with validFlag
// <= 0 is dropped and the bytes behind it are read as the next header.
#include "ipc/IpcMsgBlock.h"
#include "runtime/VyGlobal.h"

#include <cstdint>

class IpcFrameReader {
public:
    enum class Result {
        Message,   // *out holds the block
        Skipped,   // validFlag <= 0: header dropped, its body left in the stream
        HeadError, // the header could not be read: the connection is over
        TooLarge,  // dataLen above kIpcMaxDataLen: the stream is out of step
        NoMemory,  // the block could not be allocated
        BodyError, // the body could not be read: the connection is over
    };

    IpcFrameReader() = default;
    VY_DISABLE_COPY_MOVE(IpcFrameReader)

    // Reads the next frame from `sock`. Only Message sets *out.
    Result read(int sock, IpcMsgBlock* out);

    // A new connection: header bytes taken ahead from the old one are void.
    void reset() { m_aheadBytes = 0; }

    // The header of the last frame whose header was complete (for the callers' log lines).
    const IpcMsgHeader& header() const { return m_header; }

private:
    uint8_t m_ahead[kIpcHeaderSize] = {};
    int m_aheadBytes = 0; // bytes of the next header already received
    IpcMsgHeader m_header;
};
