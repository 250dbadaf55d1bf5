#pragma once
#include "runtime/VyList.h"
#include "toolkit/core/Connection.h"

#include <cstdint>

// The connections of one signal of one sender, in connection order.
struct ConnectionList {
    VyList<Connection> connections;
    // Cleared when the sender dies inside one of this signal's slots; the dying sender
    // also empties the connections, so the running emissions stop at their next length
    // check and the outermost one frees the list.
    VyObject* sender = nullptr;
    // Emissions of this signal now on the stack.
    int32_t emitDepth = 0;
    // Connections cut while the signal is being emitted are only marked (Connection::kCut)
    // so that the running loop's indices stay valid; the outermost emission sweeps them.
    bool hasDeadConnections = false;
};
