// IpcClient: the ways the GUI thread waits for App (blocking request, nested-loop request,
// stage waits).
#include "ipc/IpcClient.h"
#include "protocol/MainType.h"

#include "ipc/IpcReplyWaiter.h"
#include "runtime/VyLog.h"
#include "toolkit/core/EventLoop.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreenCursor.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>

namespace {

// Newest first: a re-sent request or a repeated stage is found at its latest entry.
std::vector<uint32_t>::iterator findNewest(std::vector<uint32_t>& numbers, uint32_t value) {
    auto it = std::find(numbers.rbegin(), numbers.rend(), value);
    return it == numbers.rend() ? numbers.end() : std::prev(it.base());
}

} // namespace

void IpcClient::copyReply(const IpcMsgBlock& reply, void* out, size_t outSize) {
    IpcMsgHeader h = ipcBlockHeader(reply.get());
    size_t n = h.dataLen;
    if (n > outSize) {
        VY_IPC_LOG("reply (MainType:%u, SubType:%u) has %u bytes, buffer %zu: truncated\n",
                   h.MainType, h.SubType, h.dataLen, outSize);
        n = outSize;
    }
    if (n)
        std::memcpy(out, ipcBlockBody(reply.get()), n);
}

IpcMsgBlock IpcClient::blockingRequest(uint16_t mainType, uint16_t subType, void* out,
                                       size_t outSize, const void* body, uint32_t dataLen) {
    {
        std::lock_guard<std::mutex> lock(m_waitMutex);
        m_blockingActive = true;
    }
    uint32_t seq = send(mainType, subType, body, dataLen);

    std::unique_lock<std::mutex> lock(m_waitMutex);
    uint8_t* found = nullptr;
    bool afterResend = false;
    for (;;) {
        auto number = findNewest(m_numbers, seq);
        if (number != m_numbers.end()) {
            auto reply = std::find_if(m_replies.begin(), m_replies.end(),
                                      [seq](const auto& e) { return e.first == seq; });
            if (reply != m_replies.end()) {
                IpcMsgHeader h = ipcBlockHeader(reply->second);
                if (h.MainType == mainType && h.SubType == subType) {
                    found = reply->second;
                    m_replies.erase(reply);
                    m_numbers.erase(number);
                    break;
                }
            }
        }
        if (m_stopRequested.load())
            break;
        auto interval = std::chrono::milliseconds(m_resendIntervalMs.load());
        if (m_waitCond.wait_for(lock, interval) == std::cv_status::timeout) {
            // Sent while holding m_waitMutex; the send mutex nests inside it.
            uint32_t again = send(mainType, subType, body, dataLen);
            vySystemLine("[GUI]: BlockWaiting data timeout(MainType:%d, SubType:%d, "
                         "seqNumber:%d), request again, new seqNumber:%d .\n",
                         int(mainType), int(subType), int(seq), int(again));
            std::fflush(stdout);
            seq = again;
            afterResend = true;
        } else {
            afterResend = false;
        }
    }

    IpcMsgBlock result;
    if (found) {
        auto held = std::find_if(m_held.begin(), m_held.end(),
                                 [found](const IpcMsgBlock& b) { return b.get() == found; });
        result = std::move(*held);
        m_held.erase(held);
    }
    // Hand over what arrived meanwhile while still holding the lock, with the request
    // still marked active: the dispatch thread waits for the lock and then delivers
    // newer messages itself, so the receiver sees them all in order.
    m_handOver.swap(m_held);
    m_replies.clear();
    m_numbers.clear();
    if (found && !afterResend) {
        for (IpcMsgBlock& block : m_handOver)
            waiterDeliver(std::move(block));
    }
    m_handOver.clear();
    m_blockingActive = false;
    lock.unlock();

    if (result && out) {
        copyReply(result, out, outSize);
        result.reset();
    }
    return result;
}

IpcMsgBlock IpcClient::waitInNestedLoop(uint16_t mainType, uint16_t subType, const void* body,
                                        uint32_t dataLen) {
    while (!m_stopRequested.load()) {
        EventLoop loop;
        IpcReplyWaiter waiter(mainType, subType, &loop);
        {
            std::lock_guard<std::mutex> lock(m_waiterMutex);
            m_waiters[&loop] = &waiter;
            waiter.setSeqNumber(send(mainType, subType, body, dataLen));
        }
        // The user sees that the GUI waits for the recorder, not that it hangs.
        VyApplication* app = VyApplication::instance();
        if (app)
            app->setOverrideCursor(VyScreenCursor::Busy);
        int rc = loop.exec();
        if (app)
            app->restoreOverrideCursor();
        {
            std::lock_guard<std::mutex> lock(m_waiterMutex);
            m_waiters.erase(&loop);
        }
        // A reply posted but not yet delivered when the loop ended some other way is
        // dropped with the waiter; the request goes out again.
        IpcMsgBlock reply = waiter.takeReply();
        if (reply)
            return reply;
        if (app && app->isQuitting()) {
            // The process is stopping: asking again would keep it from ever getting there.
            VY_IPC_LOG("quitting, (MainType:%u, SubType:%u) not asked again\n", mainType, subType);
            return nullptr;
        }
        if (rc != 0) {
            // No application to run a loop on (or this loop already runs): waiting here
            // would only repeat the request as fast as the CPU allows.
            VY_IPC_LOG("no event loop for (MainType:%u, SubType:%u), waiting blocking\n", mainType,
                       subType);
            return blockingRequest(mainType, subType, nullptr, 0, body, dataLen);
        }
    }
    return nullptr;
}

bool IpcClient::request(void* out, size_t outSize, uint16_t mainType, uint16_t subType,
                        const void* body, uint32_t dataLen) {
    if (!m_waiterMode.load()) {
        // The blocking request copies into out itself and returns null; detect a stop by
        // asking for the block instead.
        IpcMsgBlock reply = blockingRequest(mainType, subType, nullptr, 0, body, dataLen);
        if (!reply)
            return false;
        copyReply(reply, out, outSize);
        return true;
    }
    IpcMsgBlock reply = waitInNestedLoop(mainType, subType, body, dataLen);
    if (!reply)
        return false;
    copyReply(reply, out, outSize);
    return true;
}

bool IpcClient::request(std::vector<uint8_t>& out, uint16_t mainType, uint16_t subType,
                        const void* body, uint32_t dataLen) {
    IpcMsgBlock reply = m_waiterMode.load()
                            ? waitInNestedLoop(mainType, subType, body, dataLen)
                            : blockingRequest(mainType, subType, nullptr, 0, body, dataLen);
    if (!reply)
        return false;
    IpcMsgHeader h = ipcBlockHeader(reply.get());
    const uint8_t* replyBody = ipcBlockBody(reply.get());
    out.assign(replyBody, replyBody + h.dataLen);
    return true;
}

void IpcClient::setEventReceiver(VyObject* receiver) {
    if (!receiver)
        return;
    std::lock_guard<std::mutex> lock(m_waitMutex);
    m_receiver.store(receiver);
    m_numbers.clear();
    m_replies.clear();
    m_held.clear();
}

bool IpcClient::waitForStage(int n) {
    const uint32_t wanted = uint32_t(MainType::System) + uint32_t(n);
    std::unique_lock<std::mutex> lock(m_waitMutex);
    for (;;) {
        auto it = findNewest(m_numbers, wanted);
        if (it != m_numbers.end()) {
            m_numbers.erase(it);
            return true;
        }
        if (m_stopRequested.load())
            return false;
        m_waitCond.wait(lock);
    }
}

int IpcClient::notedStageCount() {
    std::lock_guard<std::mutex> lock(m_waitMutex);
    return m_blockingActive ? 0 : int(m_numbers.size());
}
