#include "ipc/IpcFrameReader.h"

#include "ipc/IpcSocketIo.h"

IpcFrameReader::Result IpcFrameReader::read(int sock, IpcMsgBlock* out) {
    const int have = m_aheadBytes;
    m_aheadBytes = 0;
    if (have < int(kIpcHeaderSize) &&
        ReadData(sock, m_ahead + have, int(kIpcHeaderSize) - have, 0) != 0)
        return Result::HeadError;
    m_header = ipcDecodeHeader(m_ahead);
    switch (ipcCheckHeader(m_header)) {
    case IpcHeaderCheck::Invalid:
        return Result::Skipped;
    case IpcHeaderCheck::TooLarge:
        return Result::TooLarge;
    case IpcHeaderCheck::Ok:
        break;
    }
    IpcMsgBlock block = ipcAllocBlock(m_header);
    if (!block)
        return Result::NoMemory;
    int ahead = ReadDataAhead(sock, ipcBlockBody(block.get()), int(m_header.dataLen), m_ahead,
                              int(kIpcHeaderSize));
    if (ahead < 0)
        return Result::BodyError;
    m_aheadBytes = ahead;
    *out = std::move(block);
    return Result::Message;
}
