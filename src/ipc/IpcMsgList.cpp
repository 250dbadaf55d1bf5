#include "ipc/IpcMsgList.h"

#include "runtime/VyLog.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

constexpr char kWakeToken[3] = "ok";        // 3 bytes with the terminator
constexpr useconds_t kNoPairPollUs = 10000; // consumer poll period without a wake-up pair

} // namespace

IpcMsgList::IpcMsgList() {
    int pair[2] = {-1, -1};
    if (::socketpair(AF_UNIX, SOCK_STREAM, 0, pair) != 0) {
        std::perror("creat -pipfd error\n");
        return;
    }
    m_wake[0].reset(pair[0]);
    m_wake[1].reset(pair[1]);
    // A full pair means tokens are already waiting for the consumer, so a token more is
    // useless; blocking here would stall the receive thread while it holds the list lock.
    int flags = ::fcntl(m_wake[0].get(), F_GETFL);
    ::fcntl(m_wake[0].get(), F_SETFL, flags | O_NONBLOCK);
}

IpcMsgList::~IpcMsgList() = default;

void IpcMsgList::wake() {
    if (!m_wake[0].isValid())
        return; // already reported when the pair could not be made
    ssize_t n = ::write(m_wake[0].get(), kWakeToken, sizeof kWakeToken);
    if (n < 0 && errno != EAGAIN)
        std::perror("uiwirte error\n");
}

void IpcMsgList::UiMsgListAddNode(IpcMsgBlock block) {
    VY_ASSERT(block);
    bool wasEmpty = false;
    int count = 0;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        wasEmpty = m_blocks.empty();
        m_blocks.push_back(std::move(block));
        count = int(m_blocks.size());
    }
    // The wake-up and the log line come after the unlock: the consumer must not wake
    // straight into a lock that is held across a system call. A consumer that emptied the
    // list meanwhile just drains the token.
    if (wasEmpty)
        wake();
    if (count > kWarnNodeCount)
        VY_IPC_LOG("-----msgnode -count = %d\n", count);
}

void IpcMsgList::UiMsgListAddNodes(std::vector<IpcMsgBlock>& blocks) {
    if (blocks.empty())
        return;
    bool wasEmpty = false;
    int count = 0;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        wasEmpty = m_blocks.empty();
        for (IpcMsgBlock& block : blocks) {
            VY_ASSERT(block);
            m_blocks.push_back(std::move(block));
        }
        count = int(m_blocks.size());
    }
    blocks.clear();
    if (wasEmpty)
        wake();
    if (count > kWarnNodeCount)
        VY_IPC_LOG("-----msgnode -count = %d\n", count);
}

void IpcMsgList::sleepUntilWoken() {
    if (!m_wake[1].isValid()) {
        ::usleep(kNoPairPollUs);
        return;
    }
    char token[sizeof kWakeToken];
    ssize_t n = ::read(m_wake[1].get(), token, sizeof token);
    if (n < 0 && errno != EINTR) {
        std::perror("uiread error\n");
        ::usleep(kNoPairPollUs);
    }
}

IpcMsgBlock IpcMsgList::UiMsgListConsumeNode() {
    for (;;) {
        if (m_stopped.load(std::memory_order_acquire))
            return nullptr;
        IpcMsgBlock block;
        int count = 0;
        {
            std::lock_guard<std::mutex> lock(m_mutex);
            if (!m_blocks.empty()) {
                block = std::move(m_blocks.front());
                m_blocks.pop_front();
                count = int(m_blocks.size());
            }
        }
        if (block) {
            if (count > kWarnNodeCount)
                VY_IPC_LOG("-----msgnode count = %d\n", count);
            return block;
        }
        sleepUntilWoken();
    }
}

bool IpcMsgList::UiMsgListConsumeAll(std::vector<IpcMsgBlock>* out) {
    out->clear();
    for (;;) {
        if (m_stopped.load(std::memory_order_acquire))
            return false;
        {
            std::lock_guard<std::mutex> lock(m_mutex);
            for (IpcMsgBlock& block : m_blocks)
                out->push_back(std::move(block));
            m_blocks.clear();
        }
        if (!out->empty())
            return true;
        sleepUntilWoken();
    }
}

void IpcMsgList::stop() {
    m_stopped.store(true, std::memory_order_release);
    wake();
}

int IpcMsgList::count() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return int(m_blocks.size());
}
