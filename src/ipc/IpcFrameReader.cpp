#include "ipc/IpcFrameReader.h"

#include "ipc/IpcSocketIo.h"
#include "runtime/VyLog.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <sys/socket.h>

IpcFrameReader::IpcFrameReader()
    : m_buffer(kChunkSize) {}

void IpcFrameReader::reset() {
    m_begin = m_end = 0;
    m_pendingError = false;
}

bool IpcFrameReader::fill(int sock, size_t wanted) {
    if (m_begin != 0) {
        // Move the partial header to the front: fewer than 24 bytes.
        std::memmove(m_buffer.data(), m_buffer.data() + m_begin, buffered());
        m_end -= m_begin;
        m_begin = 0;
    }
    for (;;) {
        ssize_t n = ::recv(sock, m_buffer.data() + m_end, m_buffer.size() - m_end, 0);
        if (n > 0) {
            m_end += size_t(n);
            return true;
        }
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0)
            VY_IPC_LOG("------!!!-%s\n", std::strerror(errno));
        else
            VY_IPC_LOG("!!!!------Connect rest by peer!\n");
        VY_IPC_LOG("ss32Size=%d,s32ReadSize = %d\n", int(wanted), int(buffered()));
        return false;
    }
}

bool IpcFrameReader::frameOne(int sock, bool mayWait, IpcMsgBlock* out, Result* result) {
    while (buffered() < kIpcHeaderSize) {
        if (!mayWait)
            return false;
        if (!fill(sock, kIpcHeaderSize)) {
            *result = Result::HeadError;
            return true;
        }
    }
    const uint8_t* head = m_buffer.data() + m_begin;
    m_header = ipcDecodeHeader(head);
    switch (ipcCheckHeader(m_header)) {
    case IpcHeaderCheck::Invalid:
        m_begin += kIpcHeaderSize;
        *result = Result::Skipped;
        return true;
    case IpcHeaderCheck::TooLarge:
        m_begin += kIpcHeaderSize;
        *result = Result::TooLarge;
        return true;
    case IpcHeaderCheck::Ok:
        break;
    }
    const size_t bodySize = m_header.dataLen;
    const size_t inBuffer = std::min(buffered() - kIpcHeaderSize, bodySize);
    if (!mayWait && inBuffer < bodySize)
        return false;
    IpcMsgBlock block = ipcAllocBlock(m_header);
    if (!block) {
        m_begin += kIpcHeaderSize;
        *result = Result::NoMemory;
        return true;
    }
    uint8_t* body = ipcBlockBody(block.get());
    std::memcpy(body, head + kIpcHeaderSize, inBuffer);
    m_begin += kIpcHeaderSize + inBuffer;
    if (inBuffer < bodySize) {
        // The rest of a large body goes straight into its block.
        if (ReadDataInto(sock, body, int(inBuffer), int(bodySize)) != 0) {
            *result = Result::BodyError;
            return true;
        }
    }
    *out = std::move(block);
    *result = Result::Message;
    return true;
}

IpcFrameReader::Result IpcFrameReader::read(int sock, IpcMsgBlock* out) {
    if (m_pendingError) {
        m_pendingError = false;
        return m_pending;
    }
    Result result = Result::HeadError;
    frameOne(sock, true, out, &result);
    return result;
}

IpcFrameReader::Result IpcFrameReader::readBatch(int sock, std::vector<IpcMsgBlock>* out) {
    if (m_pendingError) {
        m_pendingError = false;
        return m_pending;
    }
    const size_t before = out->size();
    for (;;) {
        IpcMsgBlock block;
        Result result = Result::HeadError;
        // Wait only while nothing has been framed yet.
        if (!frameOne(sock, out->size() == before, &block, &result))
            return Result::Message;
        if (result == Result::Message) {
            out->push_back(std::move(block));
            continue;
        }
        if (result == Result::Skipped)
            continue;
        if (out->size() == before)
            return result;
        m_pending = result;
        m_pendingError = true;
        return Result::Message;
    }
}
