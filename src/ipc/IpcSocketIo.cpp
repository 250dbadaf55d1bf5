#include "ipc/IpcSocketIo.h"

#include "protocol/IpcMsgHeader.h"
#include "runtime/VyLog.h"

#include <cerrno>
#include <cstring>
#include <sys/socket.h>
#include <sys/uio.h>

int WriteData(int sock, const void* data, int size) {
    const char* p = static_cast<const char*>(data);
    int s32Size = size;
    int s32WriteSize = 0;
    while (s32WriteSize < s32Size) {
        // MSG_NOSIGNAL: App going away must show up as an error here, not kill the GUI.
        ssize_t n = ::send(sock, p + s32WriteSize, size_t(s32Size - s32WriteSize), MSG_NOSIGNAL);
        if (n < 0) {
            if (errno == EINTR || errno == EAGAIN)
                continue;
            break;
        }
        s32WriteSize += int(n);
    }
    if (s32Size < 1)
        return 0;
    if (s32WriteSize != s32Size) {
        VY_IPC_LOG("s32WriteSize != s32Size !\n");
        return -1;
    }
    return 0;
}

int WriteFrame(int sock, const uint8_t* header, const void* body, int bodySize, bool* headerSent) {
    const size_t headerSize = kIpcHeaderSize;
    const size_t total = headerSize + size_t(bodySize > 0 ? bodySize : 0);
    size_t sent = 0;
    while (sent < total) {
        iovec parts[2];
        int count = 0;
        if (sent < headerSize)
            parts[count++] = {const_cast<uint8_t*>(header) + sent, headerSize - sent};
        size_t bodyDone = sent > headerSize ? sent - headerSize : 0;
        if (total > headerSize)
            parts[count++] = {static_cast<char*>(const_cast<void*>(body)) + bodyDone,
                              total - headerSize - bodyDone};
        msghdr msg{};
        msg.msg_iov = parts;
        msg.msg_iovlen = size_t(count);
        ssize_t n = ::sendmsg(sock, &msg, MSG_NOSIGNAL);
        if (n < 0) {
            if (errno == EINTR || errno == EAGAIN)
                continue;
            break;
        }
        sent += size_t(n);
    }
    *headerSent = sent >= headerSize;
    if (sent != total) {
        VY_IPC_LOG("s32WriteSize != s32Size !\n");
        return -1;
    }
    return 0;
}

int ReadData(int sock, void* buffer, int size, int unused) {
    (void)unused;
    return ReadDataInto(sock, buffer, 0, size);
}

int ReadDataInto(int sock, void* buffer, int have, int size) {
    char* p = static_cast<char*>(buffer);
    int s32ReadSize = have;
    while (s32ReadSize < size) {
        ssize_t n = ::recv(sock, p + s32ReadSize, size_t(size - s32ReadSize), 0);
        if (n < 0) {
            if (errno == EINTR)
                continue;
            VY_IPC_LOG("------!!!-%s\n", std::strerror(errno));
            break;
        }
        if (n == 0) {
            VY_IPC_LOG("!!!!------Connect rest by peer!\n");
            break;
        }
        s32ReadSize += int(n);
    }
    if (s32ReadSize != size && size > 0) {
        VY_IPC_LOG("ss32Size=%d,s32ReadSize = %d\n", size, s32ReadSize);
        return -1;
    }
    return 0;
}
