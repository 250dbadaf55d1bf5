// IpcClient: start, stop, the receive thread and the connection.
#include "ipc/IpcClient.h"

#include "ipc/IpcSocketIo.h"
#include "runtime/VyLog.h"

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

constexpr const char* kDefaultSocketPath = "/dev/IPC_UI";
constexpr const char* kSocketPathEnv = "VY_IPC_SOCKET";
constexpr int kStopPollMs = 10; // ms between shutdown attempts while stopping

std::string socketPathFrom(const IpcClientConfig& config) {
    if (!config.socketPath.empty())
        return config.socketPath;
    const char* env = std::getenv(kSocketPathEnv);
    return env && *env ? std::string(env) : std::string(kDefaultSocketPath);
}

} // namespace

IpcClient& IpcClient::instance() {
    // Never destroyed: its detached threads run until the process ends.
    static IpcClient* client = new IpcClient;
    return *client;
}

IpcClient::IpcClient() = default;

IpcClient::~IpcClient() {
    if (m_started && m_joinable)
        stop();
    // Anything a blocking request held is freed with m_held.
}

bool IpcClient::startThread(pthread_t* thread, void* (*fn)(void*)) {
    pthread_attr_t attr;
    pthread_attr_init(&attr);
    pthread_attr_setstacksize(&attr, kThreadStackSize);
    pthread_attr_setscope(&attr, PTHREAD_SCOPE_SYSTEM);
    pthread_attr_setdetachstate(&attr,
                                m_joinable ? PTHREAD_CREATE_JOINABLE : PTHREAD_CREATE_DETACHED);
    int rc = pthread_create(thread, &attr, fn, this);
    pthread_attr_destroy(&attr);
    if (rc != 0) {
        VY_IPC_LOG("pthread_create failed: %s\n", std::strerror(rc));
        return false;
    }
    return true;
}

bool IpcClient::UI_IPC_ClientInit(VyObject* receiver, const IpcClientConfig& config) {
    if (m_started || m_stopRequested.load()) {
        // A stopped client stays stopped: its threads and state are not made to restart.
        VY_IPC_LOG("client already started or stopped\n");
        return false;
    }
    m_receiver.store(receiver);
    m_path = socketPathFrom(config);
    m_callback = config.dispatch ? config.dispatch : &IpcClient::dispatchThunk;
    m_callbackArg = config.dispatch ? config.dispatchArg : this;
    m_joinable = config.joinableThreads;
    // The wake-up pair was made with the list; a failure was reported there and the
    // dispatch thread falls back to polling.

    if (!startThread(&m_receiveThread, &IpcClient::receiveThreadMain))
        return false;
    m_started = true;
    if (!startThread(&m_dispatchThread, &IpcClient::dispatchThreadMain)) {
        stop();
        return false;
    }
    m_dispatchStarted = true;
    return true;
}

void IpcClient::stop() {
    if (!m_started)
        return;
    m_stopRequested.store(true);
    m_running.store(false);
    m_list.stop();
    {
        // Wake stage waits and blocking requests so they can notice the stop.
        std::lock_guard<std::mutex> lock(m_waitMutex);
        m_waitCond.notify_all();
    }
    // The receive thread may sit in recv() or be between connect and read; shutting the
    // current socket down again until it reports its end covers both.
    std::unique_lock<std::mutex> lock(m_stateMutex);
    m_stateCond.notify_all();
    while (!m_receiveEnded) {
        int fd = m_sock.load();
        if (fd >= 0)
            ::shutdown(fd, SHUT_RDWR);
        m_stateCond.wait_for(lock, std::chrono::milliseconds(kStopPollMs));
    }
    lock.unlock();
    if (m_joinable) {
        pthread_join(m_receiveThread, nullptr);
        if (m_dispatchStarted)
            pthread_join(m_dispatchThread, nullptr);
    }
    int fd = m_sock.exchange(-1);
    if (fd >= 0)
        ::close(fd);
    m_started = false;
    m_dispatchStarted = false;
}

void* IpcClient::receiveThreadMain(void* self) {
    auto* client = static_cast<IpcClient*>(self);
    client->ClientStar(client->m_path.c_str(), client->m_callback, client->m_callbackArg);
    std::lock_guard<std::mutex> lock(client->m_stateMutex);
    client->m_receiveEnded = true;
    client->m_stateCond.notify_all();
    return nullptr;
}

void* IpcClient::dispatchThreadMain(void* self) {
    auto* client = static_cast<IpcClient*>(self);
    // The whole backlog at once: one lock per batch, and the events it makes are posted
    // together after it.
    std::vector<IpcMsgBlock> batch;
    while (client->m_list.UiMsgListConsumeAll(&batch)) {
        for (IpcMsgBlock& block : batch)
            client->m_callback(std::move(block), client->m_callbackArg);
        client->flushPosts();
    }
    return nullptr; // stopped
}

int IpcClient::ConnectSer(const char* path) {
    // Under the send mutex so no sender writes to a descriptor that is being replaced.
    std::lock_guard<std::mutex> lock(m_sendMutex);
    int old = m_sock.load();
    if (old != -1) {
        vySystemLine("-----------!!@@@0--------uiqt sock:%d\n", old);
        ::close(old);
        m_sock.store(-1);
    }
    int fd = ::socket(AF_UNIX, SOCK_STREAM, 0);
    if (fd < 0) {
        std::perror("create socket error");
        return -1;
    }
    sockaddr_un addr;
    std::memset(&addr, 0, sizeof addr);
    addr.sun_family = AF_UNIX;
    if (std::strlen(path) >= sizeof addr.sun_path) {
        VY_IPC_LOG("socket path too long: %s\n", path);
        ::close(fd);
        return -1;
    }
    std::strcpy(addr.sun_path, path);
    if (::connect(fd, reinterpret_cast<sockaddr*>(&addr), sizeof addr) != 0) {
        VY_IPC_LOG("connect error\n");
        ::close(fd);
        return -1;
    }
    m_sock.store(fd);
    return 0;
}

void IpcClient::ClientStar(const char* path, IpcDispatchFn callback, void* arg) {
    if (!callback) {
        VY_IPC_LOG("callback func error\n");
        return;
    }
    if (!m_connected.load()) {
        m_running.store(true);
        bool needConnect = true;
        bool connectedBefore = false;
        while (m_running.load() && !m_stopRequested.load()) {
            if (needConnect && ConnectSer(path) != 0) {
                VY_IPC_LOG("client connect error,exit thread\n");
                break;
            }
            // Only a reconnect: on the first connection nothing went out yet, and a request
            // made meanwhile is already on the new socket.
            if (needConnect && connectedBefore)
                retryWaiters();
            connectedBefore = true;
            if (!m_connected.load()) {
                std::lock_guard<std::mutex> lock(m_stateMutex);
                m_connected.store(true);
                m_stateCond.notify_all();
            }
            if (needConnect)
                m_reader.reset();
            IpcFrameReader::Result result = m_reader.readBatch(m_sock.load(), &m_batch);
            const IpcMsgHeader& h = m_reader.header();
            if (result == IpcFrameReader::Result::HeadError) {
                if (m_stopRequested.load())
                    break;
                VY_IPC_LOG("rec head error, client sock close\n");
                needConnect = true;
                continue;
            }
            if (result == IpcFrameReader::Result::Skipped) {
                // Dropped without its body: the body bytes are read as the next header.
                needConnect = false;
                continue;
            }
            if (result == IpcFrameReader::Result::TooLarge) {
                VY_IPC_LOG("rec head error, dataLen %u above limit %u (MainType:%u, "
                           "SubType:%u), stream out of step, client sock close\n",
                           h.dataLen, kIpcMaxDataLen, h.MainType, h.SubType);
                needConnect = true;
                continue;
            }
            if (result == IpcFrameReader::Result::NoMemory) {
                VY_IPC_LOG("rec body error, no memory for %u bytes, client sock close\n",
                           h.dataLen);
                needConnect = true;
                continue;
            }
            if (result == IpcFrameReader::Result::BodyError) {
                VY_IPC_LOG("rec body error, client sock close\n");
                needConnect = true;
                continue;
            }
            m_list.UiMsgListAddNodes(m_batch);
            needConnect = false;
        }
    }
    {
        std::lock_guard<std::mutex> lock(m_stateMutex);
        m_connected.store(false);
        m_stateCond.notify_all();
    }
    callback(nullptr, arg);
}

bool IpcClient::waitConnected() {
    if (m_connected.load())
        return true;
    std::unique_lock<std::mutex> lock(m_stateMutex);
    while (!m_connected.load()) {
        if (m_stopRequested.load())
            return false;
        m_stateCond.wait_for(lock, std::chrono::milliseconds(kConnectPollMs));
    }
    return true;
}
