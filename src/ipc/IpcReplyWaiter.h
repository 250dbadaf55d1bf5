#pragma once
// The record of one request waiting in a nested event loop (waiter mode). It lives on the
// GUI thread: the dispatch thread posts the matching reply to it as an IPC event, and its
// customEvent keeps the block and ends the loop. Posting, rather than calling quit() from
// the dispatch thread, both wakes the GUI thread and keeps the loop's state on one thread.
#include "ipc/IpcMsgBlock.h"
#include "toolkit/core/VyObject.h"

#include <cstdint>

class EventLoop;

class IpcReplyWaiter : public VyObject {
    VY_OBJECT(IpcReplyWaiter, VyObject)
public:
    IpcReplyWaiter(uint16_t mainType, uint16_t subType, EventLoop* loop)
        : m_mainType(mainType)
        , m_subType(subType)
        , m_loop(loop) {}

    // Read by the dispatch thread under the client's waiter mutex.
    bool matches(const IpcMsgHeader& h) const {
        return !m_matched && h.seqNumber == m_seqNumber && h.MainType == m_mainType &&
               h.SubType == m_subType;
    }
    void setSeqNumber(uint32_t seq) { m_seqNumber = seq; }
    void markMatched() { m_matched = true; }
    bool isMatched() const { return m_matched; }

    IpcMsgBlock takeReply() { return std::move(m_reply); }

    void customEvent(VyEvent* e) override;

private:
    uint16_t m_mainType;
    uint16_t m_subType;
    uint32_t m_seqNumber = 0;
    bool m_matched = false; // a duplicate reply must not be handed over twice
    EventLoop* m_loop;
    IpcMsgBlock m_reply;
};
