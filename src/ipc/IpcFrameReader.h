#pragma once
// The receive thread's framing. Each receive takes whatever the socket holds, up to
// kChunkSize bytes, and every complete message in it is framed from that one read; a busy
// stream then costs one system call per chunk rather than one or two per message. A header
// with validFlag <= 0 is dropped and the bytes behind it are read as the next header. A
// body larger than what is buffered is read straight into its block.
#include "ipc/IpcMsgBlock.h"
#include "runtime/VyGlobal.h"

#include <cstdint>
#include <vector>

class IpcFrameReader {
public:
    static constexpr size_t kChunkSize = 64 * 1024; // bytes taken from the socket at most

    enum class Result {
        Message,   // *out holds the block (or, for readBatch, at least one was appended)
        Skipped,   // validFlag <= 0: header dropped, its body left in the stream
        HeadError, // the header could not be read: the connection is over
        TooLarge,  // dataLen above kIpcMaxDataLen: the stream is out of step
        NoMemory,  // the block could not be allocated
        BodyError, // the body could not be read: the connection is over
    };

    IpcFrameReader();
    VY_DISABLE_COPY_MOVE(IpcFrameReader)

    // Reads the next frame from `sock`, waiting for it. Only Message sets *out.
    Result read(int sock, IpcMsgBlock* out);

    // Appends every message that is complete after at most one wait for data, in stream
    // order, and returns Message. Skipped headers are passed over. An error met after some
    // messages were framed is returned by the next call, so nothing framed is lost.
    Result readBatch(int sock, std::vector<IpcMsgBlock>* out);

    // A new connection: bytes buffered from the old one are void.
    void reset();

    // The header of the last frame whose header was complete (for the callers' log lines).
    const IpcMsgHeader& header() const { return m_header; }

private:
    // One frame from the buffer; with `mayWait` false it returns false (and consumes
    // nothing) when the buffer does not hold the whole frame.
    bool frameOne(int sock, bool mayWait, IpcMsgBlock* out, Result* result);
    // One receive into the buffer; false when the connection is over (logged).
    bool fill(int sock, size_t wanted);
    size_t buffered() const { return m_end - m_begin; }

    std::vector<uint8_t> m_buffer;
    size_t m_begin = 0; // first unread byte
    size_t m_end = 0;   // one past the last received byte
    bool m_pendingError = false;
    Result m_pending = Result::Message;
    IpcMsgHeader m_header;
};
