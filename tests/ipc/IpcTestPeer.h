#pragma once
// A bare server on a real socket in a temporary folder, for tests that need to send the
// client what a well-behaved App never would: partial messages, garbage, absurd lengths.
#include "protocol/IpcMsgHeader.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <vector>

class IpcTestPeer {
public:
    IpcTestPeer() {
        char dir[] = "/tmp/ipc-test-XXXXXX";
        if (::mkdtemp(dir))
            m_dir = dir;
        m_path = m_dir + "/IPC_UI";
        m_listenFd = ::socket(AF_UNIX, SOCK_STREAM, 0);
        sockaddr_un addr{};
        addr.sun_family = AF_UNIX;
        std::strncpy(addr.sun_path, m_path.c_str(), sizeof addr.sun_path - 1);
        if (::bind(m_listenFd, reinterpret_cast<sockaddr*>(&addr), sizeof addr) != 0 ||
            ::listen(m_listenFd, 4) != 0)
            m_listenFd = -1;
    }
    ~IpcTestPeer() {
        closeClient();
        if (m_listenFd >= 0)
            ::close(m_listenFd);
        ::unlink(m_path.c_str());
        ::rmdir(m_dir.c_str());
    }
    IpcTestPeer(const IpcTestPeer&) = delete;
    IpcTestPeer& operator=(const IpcTestPeer&) = delete;

    bool ok() const { return m_listenFd >= 0; }
    const std::string& path() const { return m_path; }

    // Waits for the client to (re)connect.
    bool accept() {
        closeClient();
        m_fd = ::accept(m_listenFd, nullptr, nullptr);
        return m_fd >= 0;
    }
    void closeClient() {
        if (m_fd >= 0)
            ::close(m_fd);
        m_fd = -1;
    }

    bool readAll(void* buffer, size_t size) {
        auto* p = static_cast<uint8_t*>(buffer);
        for (size_t done = 0; done < size;) {
            ssize_t n = ::recv(m_fd, p + done, size - done, 0);
            if (n <= 0)
                return false;
            done += size_t(n);
        }
        return true;
    }
    bool readMessage(IpcMsgHeader& h, std::vector<uint8_t>& body) {
        uint8_t raw[kIpcHeaderSize];
        if (!readAll(raw, sizeof raw))
            return false;
        h = ipcDecodeHeader(raw);
        body.resize(h.dataLen);
        return h.dataLen == 0 || readAll(body.data(), body.size());
    }

    bool writeRaw(const void* data, size_t size) {
        auto* p = static_cast<const uint8_t*>(data);
        for (size_t done = 0; done < size;) {
            ssize_t n = ::send(m_fd, p + done, size - done, MSG_NOSIGNAL);
            if (n <= 0)
                return false;
            done += size_t(n);
        }
        return true;
    }
    static std::vector<uint8_t> frame(const IpcMsgHeader& h, const std::vector<uint8_t>& body) {
        std::vector<uint8_t> bytes(kIpcHeaderSize + body.size());
        IpcMsgHeader copy = h;
        copy.dataLen = uint32_t(body.size());
        ipcEncodeHeader(copy, bytes.data());
        std::copy(body.begin(), body.end(), bytes.begin() + kIpcHeaderSize);
        return bytes;
    }
    bool writeMessage(uint16_t mainType, uint16_t subType, uint32_t seq, uint32_t value,
                      const std::vector<uint8_t>& body = {}) {
        IpcMsgHeader h;
        h.MainType = mainType;
        h.SubType = subType;
        h.seqNumber = seq;
        h.msgValue = value;
        std::vector<uint8_t> bytes = frame(h, body);
        return writeRaw(bytes.data(), bytes.size());
    }

private:
    std::string m_dir;
    std::string m_path;
    int m_listenFd = -1;
    int m_fd = -1;
};
