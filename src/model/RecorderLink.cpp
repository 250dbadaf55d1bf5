#include "model/RecorderLink.h"

namespace {
RecorderLink* g_link = nullptr;
int g_waiting = 0; // GUI thread only
} // namespace

RecorderLink* RecorderLink::instance() {
    return g_link;
}
void RecorderLink::setInstance(RecorderLink* link) {
    g_link = link;
}

int RecorderLink::requestsWaiting() {
    return g_waiting;
}

RecorderLink::WaitingScope::WaitingScope() {
    ++g_waiting;
}

RecorderLink::WaitingScope::~WaitingScope() {
    --g_waiting;
}
