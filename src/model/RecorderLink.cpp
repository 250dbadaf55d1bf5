#include "model/RecorderLink.h"

namespace {
RecorderLink* g_link = nullptr;
} // namespace

RecorderLink* RecorderLink::instance() {
    return g_link;
}
void RecorderLink::setInstance(RecorderLink* link) {
    g_link = link;
}
