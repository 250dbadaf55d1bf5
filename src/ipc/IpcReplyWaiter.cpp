#include "ipc/IpcReplyWaiter.h"

#include "toolkit/core/EventLoop.h"
#include "toolkit/events/CEvent.h"

void IpcReplyWaiter::customEvent(VyEvent* e) {
    auto* ce = static_cast<CEvent*>(e);
    // Without a block it is the reconnect's retry: a reply that came first is kept.
    if (auto* block = static_cast<uint8_t*>(ce->takeData().release()))
        m_reply.reset(block);
    e->accept();
    m_loop->quit();
}
