#pragma once
// The hand-off between the IPC receive thread and the dispatch thread: a FIFO of message
// blocks with a wake-up socket pair. The consumer sleeps in a blocking read of the pair
// when the list is empty; the producer writes a 3-byte token only on the empty-to-non-empty
// transition, so a busy stream costs no syscalls beyond the reads themselves.
#include "ipc/IpcMsgBlock.h"
#include "runtime/VyGlobal.h"
#include "runtime/VyUniqueFd.h"

#include <atomic>
#include <deque>
#include <mutex>
#include <vector>

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
    bool hasWakeupPair() const { return m_wake[0].isValid(); }

    // Receive thread: appends a block (never null).
    void UiMsgListAddNode(IpcMsgBlock block);

    // Receive thread: appends every block of `blocks` (none null) under one lock, in order,
    // and leaves `blocks` empty with its capacity. One backlog line per call at most.
    void UiMsgListAddNodes(std::vector<IpcMsgBlock>& blocks);

    // Dispatch thread: takes the oldest block, sleeping while the list is empty. Returns
    // null only after stop().
    IpcMsgBlock UiMsgListConsumeNode();

    // Dispatch thread: moves every queued block into `out` (emptied first), oldest first,
    // sleeping while the list is empty. False only after stop().
    bool UiMsgListConsumeAll(std::vector<IpcMsgBlock>* out);

    // Makes the consumer return null from now on and wakes it. Queued blocks stay owned by
    // the list and are freed with it.
    void stop();

    int count() const;

private:
    void wake();

    VyUniqueFd m_wake[2]; // [0] written by the producer, [1] read by the consumer

    // Sleeps until the producer's next token (or a poll period without the pair).
    void sleepUntilWoken();

    mutable std::mutex m_mutex;       // guards m_blocks; taken alone
    std::deque<IpcMsgBlock> m_blocks; // oldest first

    std::atomic<bool> m_stopped{false};
};
