// IpcClient: the dispatch callback, run on the dispatch thread for every received message.
#include "ipc/IpcClient.h"
#include "protocol/MainType.h"
#include "protocol/SubType.h"
#include "protocol/UiEventType.h"

#include "ipc/IpcReplyWaiter.h"
#include "protocol/IpcRemotePointer.h"
#include "runtime/VyLog.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/events/CEvent.h"

#include <algorithm>

int IpcClient::dispatchThunk(IpcMsgBlock block, void* self) {
    return static_cast<IpcClient*>(self)->dispatch(std::move(block));
}

int IpcClient::dispatch(IpcMsgBlock block) {
    if (!block)
        return -1;
    IpcMsgHeader h = ipcBlockHeader(block.get());
    if (h.MainType == MainType::System && h.SubType == SystemSubType::RemotePointer) {
        flushPosts();
        remotePointer(block);
        return 0;
    }
    {
        // The waiting thread is notified after the unlock, so that it does not wake
        // straight into the mutex.
        std::unique_lock<std::mutex> lock(m_waitMutex);
        if (m_blockingActive) {
            m_numbers.push_back(h.seqNumber);
            // An existing entry stays: the first block with a number remains the candidate
            // for that number.
            auto entry = std::find_if(m_replies.begin(), m_replies.end(),
                                      [&h](const auto& e) { return e.first == h.seqNumber; });
            if (entry == m_replies.end())
                m_replies.emplace_back(h.seqNumber, block.get());
            m_held.push_back(std::move(block));
            flushPosts(); // what came before the reply is posted before the wait ends
            lock.unlock();
            m_waitCond.notify_all();
            return 0;
        }
        if (!m_receiver.load()) {
            // Start-up: only the stage notifications matter, noted as one number.
            m_numbers.push_back(uint32_t(h.MainType) + h.SubType);
            lock.unlock();
            m_waitCond.notify_all();
            return 0; // the block is freed here
        }
    }
    waiterDeliver(std::move(block), true);
    return 0;
}

void IpcClient::remotePointer(const IpcMsgBlock& block) {
    IpcMsgHeader h = ipcBlockHeader(block.get());
    auto pointer = IpcRemotePointer::decode(ipcBlockBody(block.get()), h.dataLen);
    if (!pointer) {
        VY_IPC_LOG("remote pointer dropped: body of %u bytes or zero reference size\n", h.dataLen);
        return;
    }
    VyApplication* app = VyApplication::instance();
    if (!app || !app->screen()) {
        VY_IPC_LOG("remote pointer dropped: no application screen yet\n");
        return;
    }
    int16_t x = IpcRemotePointer::scale(pointer->x, app->screen()->width(), pointer->refWidth);
    int16_t y = IpcRemotePointer::scale(pointer->y, app->screen()->height(), pointer->refHeight);
    VyApplication::injectPointer(x, y, pointer->buttons, pointer->wheel);
}

void IpcClient::waiterDeliver(IpcMsgBlock block, bool fromDispatchThread) {
    VyObject* receiver = m_receiver.load();
    if (!receiver)
        return;
    {
        std::lock_guard<std::mutex> lock(m_waiterMutex);
        if (!m_waiters.empty()) {
            IpcMsgHeader h = ipcBlockHeader(block.get());
            for (auto& entry : m_waiters) {
                IpcReplyWaiter* waiter = entry.second;
                if (waiter->matches(h)) {
                    waiter->markMatched();
                    // The waiter lives until it is removed from the map under this mutex,
                    // so posting to it here is safe; later it may not be.
                    flushPosts();
                    auto event = std::make_unique<CEvent>(UiEventType::IpcMessage);
                    event->setData(VyEventData(block.release(), &std::free));
                    VyApplication::postEvent(waiter, std::move(event));
                    return;
                }
            }
        }
    }
    postToReceiver(receiver, std::move(block), fromDispatchThread);
}

void IpcClient::retryWaiters() {
    std::lock_guard<std::mutex> lock(m_waiterMutex);
    for (auto& entry : m_waiters) {
        IpcReplyWaiter* waiter = entry.second;
        if (waiter->isMatched())
            continue;          // its answer is already on the way to it
        waiter->markMatched(); // an answer from the old connection is no longer awaited
        // An IPC event without a block: the waiter ends its loop with no reply.
        VyApplication::postEvent(waiter, std::make_unique<CEvent>(UiEventType::IpcMessage));
    }
}

void IpcClient::postToReceiver(VyObject* receiver, IpcMsgBlock block, bool batched) {
    auto event = std::make_unique<CEvent>(UiEventType::IpcMessage);
    event->setData(VyEventData(block.release(), &std::free));
    if (!batched) {
        // The GUI thread handing over what a blocking request held: posted at once.
        VyApplication::postEvent(receiver, std::move(event));
        return;
    }
    m_outbox.push_back(VyPostedEvent{receiver, std::move(event)});
}

void IpcClient::flushPosts() {
    if (!m_outbox.empty())
        VyApplication::postEvents(m_outbox);
}
