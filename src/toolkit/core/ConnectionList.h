#pragma once
#include "runtime/VyList.h"
#include "toolkit/core/Connection.h"

#include <cstdint>

// The connections of one signal of one sender, in connection order. Owns its Connection
// records.
struct ConnectionList {
    VyList<Connection*> connections;
    // Cleared when the sender dies inside one of this signal's slots; the outermost
    // running emission then stops and frees the list.
    VyObject* sender = nullptr;
    // Emissions of this signal now on the stack.
    int32_t emitDepth = 0;
    // Connections cut while the signal is being emitted are only marked (receiver null)
    // so that the running loop's indices stay valid; the outermost emission sweeps them.
    bool hasDeadConnections = false;
};
