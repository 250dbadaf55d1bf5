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
    if (::socketpair(AF_UNIX, SOCK_STREAM, 0, m_wake) != 0) {
        std::perror("creat -pipfd error\n");
        m_wake[0] = m_wake[1] = -1;
        return;
    }
    // A full pair means tokens are already waiting for the consumer, so a token more is
    // useless; blocking here would stall the receive thread while it holds the list lock.
    int flags = ::fcntl(m_wake[0], F_GETFL);
    ::fcntl(m_wake[0], F_SETFL, flags | O_NONBLOCK);
}

IpcMsgList::~IpcMsgList() {
    // Unlink iteratively: a recursive unique_ptr chain of a long backlog would overflow
    // the stack.
    std::unique_ptr<Node> next = std::move(m_head.next);
    while (next)
        next = std::move(next->next);
    for (int fd : m_wake)
        if (fd >= 0)
            ::close(fd);
}

void IpcMsgList::wake() {
    if (m_wake[0] < 0)
        return; // already reported when the pair could not be made
    ssize_t n = ::write(m_wake[0], kWakeToken, sizeof kWakeToken);
    if (n < 0 && errno != EAGAIN)
        std::perror("uiwirte error\n");
}

void IpcMsgList::UiMsgListAddNode(IpcMsgBlock block) {
    VY_ASSERT(block);
    auto node = std::make_unique<Node>();
    node->block = std::move(block);

    bool wasEmpty = false;
    int count = 0;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        wasEmpty = m_head.next == nullptr;
        count = ++m_count;
        Node* raw = node.get();
        m_tail->next = std::move(node);
        m_tail = raw;
    }
    // The wake-up and the log line come after the unlock: the consumer must not wake
    // straight into a lock that is held across a system call. A consumer that emptied the
    // list meanwhile just drains the token.
    if (wasEmpty)
        wake();
    if (count > kWarnNodeCount)
        VY_IPC_LOG("-----msgnode -count = %d\n", count);
}

IpcMsgBlock IpcMsgList::UiMsgListConsumeNode() {
    for (;;) {
        if (m_stopped.load(std::memory_order_acquire))
            return nullptr;
        std::unique_ptr<Node> node;
        int count = 0;
        {
            std::lock_guard<std::mutex> lock(m_mutex);
            if (m_head.next) {
                node = std::move(m_head.next);
                m_head.next = std::move(node->next);
                if (!m_head.next)
                    m_tail = &m_head;
                count = --m_count;
            }
        }
        if (node) {
            if (count > kWarnNodeCount)
                VY_IPC_LOG("-----msgnode count = %d\n", count);
            return std::move(node->block);
        }
        if (m_wake[1] < 0) {
            ::usleep(kNoPairPollUs);
            continue;
        }
        char token[sizeof kWakeToken];
        ssize_t n = ::read(m_wake[1], token, sizeof token);
        if (n < 0 && errno != EINTR) {
            std::perror("uiread error\n");
            ::usleep(kNoPairPollUs);
        }
    }
}

void IpcMsgList::stop() {
    m_stopped.store(true, std::memory_order_release);
    wake();
}

int IpcMsgList::count() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_count;
}
