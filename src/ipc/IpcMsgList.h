#pragma once
// The hand-off between the IPC receive thread and the dispatch thread: a FIFO of message
// blocks with a wake-up socket pair. The consumer sleeps in a blocking read of the pair
// when the list is empty; the producer writes a 3-byte token only on the empty-to-non-empty
// transition, so a busy stream costs no syscalls beyond the reads themselves.
#include "ipc/IpcMsgBlock.h"
#include "runtime/VyGlobal.h"

#include <atomic>
#include <memory>
#include <mutex>

class IpcMsgList {
public:
    // Above this many queued nodes every add and take logs the count: App is outrunning
    // the GUI. There is deliberately no upper limit; nothing that arrived is thrown away.
    static constexpr int kWarnNodeCount = 100; // nodes

    IpcMsgList();
    ~IpcMsgList();
    VY_DISABLE_COPY_MOVE(IpcMsgList)

    // False when the wake-up pair could not be made; the list still works, the consumer
    // then polls.
    bool hasWakeupPair() const { return m_wake[0] >= 0; }

    // Receive thread: appends a block (never null).
    void UiMsgListAddNode(IpcMsgBlock block);

    // Dispatch thread: takes the oldest block, sleeping while the list is empty. Returns
    // null only after stop().
    IpcMsgBlock UiMsgListConsumeNode();

    // Makes the consumer return null from now on and wakes it. Queued blocks stay owned by
    // the list and are freed with it.
    void stop();

    int count() const;

private:
    struct Node {
        IpcMsgBlock block;
        std::unique_ptr<Node> next;
    };

    void wake();

    int m_wake[2] = {-1, -1}; // [0] written by the producer, [1] read by the consumer

    mutable std::mutex m_mutex; // guards m_head, m_tail, m_count; taken alone
    Node m_head;                // sentinel; m_head.next is the oldest node
    Node* m_tail = &m_head;
    int m_count = 0;

    std::atomic<bool> m_stopped{false};
};
