#include "ipc/IpcReplyWaiter.h"

#include "toolkit/core/EventLoop.h"
#include "toolkit/events/CEvent.h"

void IpcReplyWaiter::customEvent(VyEvent* e) {
    auto* ce = static_cast<CEvent*>(e);
    m_reply.reset(static_cast<uint8_t*>(ce->takeData().release()));
    e->accept();
    m_loop->quit();
}
