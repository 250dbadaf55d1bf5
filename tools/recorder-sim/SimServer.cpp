#include "SimServer.h"

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

std::mutex g_logMutex; // keeps the one-line log entries of several threads whole

void simLog(const char* fmt, ...) __attribute__((format(printf, 1, 2)));
void simLog(const char* fmt, ...) {
    // One stdio call per line: the recorder's own lines come from other threads, and a
    // reader of the log takes it line by line.
    char line[1024];
    va_list args;
    va_start(args, fmt);
    std::vsnprintf(line, sizeof line - 1, fmt, args);
    va_end(args);
    std::strcat(line, "\n");
    std::lock_guard<std::mutex> lock(g_logMutex);
    std::fputs(line, stdout);
    std::fflush(stdout);
}

// 0 when all `size` bytes arrived, 1 when the peer closed cleanly before the first byte,
// -1 on a short read or an error.
int readAll(int fd, void* buffer, size_t size) {
    auto* p = static_cast<uint8_t*>(buffer);
    size_t done = 0;
    while (done < size) {
        ssize_t n = ::recv(fd, p + done, size - done, 0);
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            return done == 0 && n == 0 ? 1 : -1;
        done += size_t(n);
    }
    return 0;
}

bool writeAll(int fd, const void* data, size_t size) {
    auto* p = static_cast<const uint8_t*>(data);
    size_t done = 0;
    while (done < size) {
        ssize_t n = ::send(fd, p + done, size - done, MSG_NOSIGNAL);
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            return false;
        done += size_t(n);
    }
    return true;
}

} // namespace

SimServer::~SimServer() {
    stop();
}

bool SimServer::listen(const std::string& path) {
    sockaddr_un addr;
    std::memset(&addr, 0, sizeof addr);
    if (path.size() >= sizeof addr.sun_path) {
        simLog("sim: socket path too long: %s", path.c_str());
        return false;
    }
    int fd = ::socket(AF_UNIX, SOCK_STREAM, 0);
    if (fd < 0) {
        simLog("sim: socket: %s", std::strerror(errno));
        return false;
    }
    addr.sun_family = AF_UNIX;
    std::memcpy(addr.sun_path, path.c_str(), path.size() + 1);
    ::unlink(path.c_str());
    if (::bind(fd, reinterpret_cast<sockaddr*>(&addr), sizeof addr) != 0 || ::listen(fd, 4) != 0) {
        simLog("sim: cannot listen on %s: %s", path.c_str(), std::strerror(errno));
        ::close(fd);
        return false;
    }
    m_path = path;
    m_listenFd = fd;
    simLog("sim: listening on %s", path.c_str());
    return true;
}

bool SimServer::adopt(int listenFd, const std::string& path) {
    int type = 0;
    socklen_t len = sizeof type;
    if (::getsockopt(listenFd, SOL_SOCKET, SO_TYPE, &type, &len) != 0 || type != SOCK_STREAM) {
        simLog("sim: descriptor %d is not a listening socket", listenFd);
        return false;
    }
    m_path = path;
    m_listenFd = listenFd;
    m_adopted = true;
    simLog("sim: listening on %s (handed down)", path.c_str());
    return true;
}

bool SimServer::start() {
    if (m_listenFd < 0 || m_thread.joinable())
        return false;
    m_stopping.store(false);
    m_thread = std::thread([this] { serve(); });
    return true;
}

void SimServer::stop() {
    m_stopping.store(true);
    // A handed-down socket outlives this simulator: the accept loop sees the flag instead.
    if (m_listenFd >= 0 && !m_adopted)
        ::shutdown(m_listenFd, SHUT_RDWR);
    {
        std::lock_guard<std::mutex> lock(m_clientMutex);
        if (m_clientFd >= 0)
            ::shutdown(m_clientFd, SHUT_RDWR);
        m_clientCond.notify_all();
    }
    if (m_thread.joinable())
        m_thread.join();
    if (m_listenFd >= 0) {
        ::close(m_listenFd);
        m_listenFd = -1;
        if (!m_adopted)
            ::unlink(m_path.c_str());
    }
}

void SimServer::dropClient() {
    std::lock_guard<std::mutex> lock(m_clientMutex);
    if (m_clientFd >= 0) {
        simLog("sim: dropping the GUI's connection");
        ::shutdown(m_clientFd, SHUT_RDWR);
    }
}

void SimServer::addHandler(uint16_t mainType, uint16_t subType, Handler handler) {
    std::lock_guard<std::mutex> lock(m_handlerMutex);
    m_handlers[{mainType, subType}] = std::move(handler);
}

void SimServer::setClient(int fd) {
    std::lock_guard<std::mutex> lock(m_clientMutex);
    m_clientFd = fd;
    m_clientCond.notify_all();
}

bool SimServer::waitForClient() {
    std::unique_lock<std::mutex> lock(m_clientMutex);
    m_clientCond.wait(lock, [this] { return m_clientFd >= 0 || m_stopping.load(); });
    return m_clientFd >= 0;
}

bool SimServer::hasClient() const {
    std::lock_guard<std::mutex> lock(m_clientMutex);
    return m_clientFd >= 0;
}

void SimServer::serve() {
    while (!m_stopping.load()) {
        // Polled rather than blocked in accept: a handed-down socket is never shut down.
        pollfd p{m_listenFd, POLLIN, 0};
        const int ready = ::poll(&p, 1, 100);
        if (ready == 0 || (ready < 0 && errno == EINTR))
            continue;
        int fd = ::accept(m_listenFd, nullptr, nullptr);
        if (fd < 0) {
            if (errno == EINTR)
                continue;
            if (!m_stopping.load())
                simLog("sim: accept: %s", std::strerror(errno));
            return;
        }
        simLog("sim: GUI connected");
        setClient(fd);
        serveClient(fd);
        {
            std::lock_guard<std::mutex> lock(m_clientMutex);
            m_clientFd = -1;
            ::close(fd);
        }
        simLog("sim: GUI disconnected");
    }
}

void SimServer::serveClient(int fd) {
    for (;;) {
        uint8_t raw[kIpcHeaderSize];
        int rc = readAll(fd, raw, sizeof raw);
        if (rc != 0) {
            if (rc < 0 && !m_stopping.load())
                simLog("sim: broken header from the GUI, closing the connection");
            return;
        }
        SimMessage msg;
        msg.header = ipcDecodeHeader(raw);
        const IpcMsgHeader& h = msg.header;
        m_received.fetch_add(1);
        switch (ipcCheckHeader(h)) {
        case IpcHeaderCheck::Invalid:
            simLog("sim: refused malformed header (%u,%u) seq=%u: validFlag %d, header skipped",
                   h.MainType, h.SubType, h.seqNumber, h.validFlag);
            continue;
        case IpcHeaderCheck::TooLarge:
            simLog("sim: refused malformed header (%u,%u) seq=%u: dataLen %u above %u, "
                   "closing the connection",
                   h.MainType, h.SubType, h.seqNumber, h.dataLen, kIpcMaxDataLen);
            return;
        case IpcHeaderCheck::Ok:
            break;
        }
        msg.body.resize(h.dataLen);
        if (h.dataLen && readAll(fd, msg.body.data(), h.dataLen) != 0) {
            simLog("sim: GUI closed inside the body of (%u,%u) seq=%u", h.MainType, h.SubType,
                   h.seqNumber);
            return;
        }
        if (m_logging.load())
            simLog("sim <- (%u,%u) seq=%u len=%u", h.MainType, h.SubType, h.seqNumber, h.dataLen);

        Handler handler;
        {
            std::lock_guard<std::mutex> lock(m_handlerMutex);
            auto it = m_handlers.find({h.MainType, h.SubType});
            if (it != m_handlers.end())
                handler = it->second;
        }
        if (!handler) {
            if (m_logging.load())
                simLog("sim: no handler for (%u,%u), ignored", h.MainType, h.SubType);
            continue;
        }
        if (!handler(*this, msg))
            simLog("sim: refused malformed request (%u,%u) seq=%u len=%u", h.MainType, h.SubType,
                   h.seqNumber, h.dataLen);
    }
}

bool SimServer::writeMessage(const IpcMsgHeader& h, const void* body, bool isReply) {
    // Header and body leave in one write, as App sends them. Small messages (most
    // notifications) are framed on the stack.
    constexpr size_t kStackFrame = 256; // bytes
    uint8_t small[kStackFrame];
    std::vector<uint8_t> large;
    size_t size = kIpcHeaderSize + h.dataLen;
    uint8_t* frame = small;
    if (size > kStackFrame) {
        large.resize(size);
        frame = large.data();
    }
    ipcEncodeHeader(h, frame);
    if (h.dataLen)
        std::memcpy(frame + kIpcHeaderSize, body, h.dataLen);

    std::lock_guard<std::mutex> lock(m_clientMutex);
    if (m_clientFd < 0) {
        simLog("sim: no GUI connected, (%u,%u) not sent", h.MainType, h.SubType);
        return false;
    }
    // Logged before the write, so that the line is out by the time the GUI sees the message.
    if (m_logging.load()) {
        if (isReply)
            simLog("sim -> (%u,%u) seq=%u len=%u", h.MainType, h.SubType, h.seqNumber, h.dataLen);
        else
            simLog("sim -> (%u,%u) value=%u len=%u", h.MainType, h.SubType, h.msgValue, h.dataLen);
    }
    if (!writeAll(m_clientFd, frame, size)) {
        simLog("sim: write of (%u,%u) failed: %s", h.MainType, h.SubType, std::strerror(errno));
        return false;
    }
    return true;
}

bool SimServer::writeRaw(const void* data, size_t size) {
    std::lock_guard<std::mutex> lock(m_clientMutex);
    if (m_clientFd < 0) {
        simLog("sim: no GUI connected, %zu raw bytes not sent", size);
        return false;
    }
    if (m_logging.load())
        simLog("sim -> raw len=%zu", size);
    return writeAll(m_clientFd, data, size);
}

bool SimServer::reply(const SimMessage& request, const void* body, uint32_t len) {
    IpcMsgHeader h;
    h.MainType = request.header.MainType;
    h.SubType = request.header.SubType;
    h.seqNumber = request.header.seqNumber;
    h.dataLen = body ? len : 0;
    return writeMessage(h, body, true);
}

bool SimServer::notify(uint16_t mainType, uint16_t subType, uint32_t value, const void* body,
                       uint32_t len) {
    IpcMsgHeader h;
    h.MainType = mainType;
    h.SubType = subType;
    h.seqNumber = 0;
    h.msgValue = value;
    h.dataLen = body ? len : 0;
    return writeMessage(h, body, false);
}
