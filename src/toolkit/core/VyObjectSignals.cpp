// Connecting, disconnecting and emitting signals.
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyObject.h"
#include "toolkit/core/VyQueuedSignalEvent.h"

#include <vector>

namespace {

// Drops the connections that were cut while the list was being emitted.
void sweepDeadConnections(ConnectionList* list) {
    VyList<Connection>& connections = list->connections;
    for (int i = connections.size() - 1; i >= 0; --i) {
        if (!connections.at(i).receiver)
            connections.removeAt(i);
    }
    list->hasDeadConnections = false;
}

// Cuts one connection: at once when the list is idle, by marking it while an emission
// runs over it (the loop indexes the list and must not see it shift).
void cutConnection(ConnectionList* list, int index) {
    if (list->emitDepth > 0) {
        Connection& c = list->connections[index];
        c.receiver = nullptr;
        c.slot = nullptr;
        c.queued = Connection::kCut;
        list->hasDeadConnections = true;
    } else {
        list->connections.removeAt(index);
    }
}

} // namespace

bool VyObject::connect(VyObject* sender, const VySignal* signal, VyObject* receiver, VySlot slot,
                       bool queued) {
    if (!sender || !signal || !receiver || !slot)
        return false;
    auto& table = sender->m_connections.m_signalTable;
    ConnectionList* list = table.value(signal);
    if (!list) {
        list = new ConnectionList;
        list->sender = sender;
        table.insert(signal, list);
        signal->m_list = list;
    }
    for (const Connection& c : list->connections)
        if (c.receiver == receiver && c.slot == slot)
            return false;
    Connection c;
    c.receiver = receiver;
    c.slot = slot;
    c.queued = queued ? 1 : 0;
    list->connections.append(c);
    receiver->m_connections.m_senders.append(sender);
    return true;
}

bool VyObject::disconnect(VyObject* sender, const VySignal* signal, VyObject* receiver,
                          VySlot slot) {
    if (!sender || !receiver)
        return false;
    auto& table = sender->m_connections.m_signalTable;
    ConnectionList* list = table.value(signal);
    if (!list)
        return false;
    for (int i = 0; i < list->connections.size(); ++i) {
        const Connection& c = list->connections.at(i);
        if (c.receiver == receiver && c.slot == slot) {
            cutConnection(list, i);
            receiver->m_connections.m_senders.removeOne(sender);
            if (list->emitDepth == 0 && list->connections.isEmpty())
                dropList(sender, signal, list);
            return true;
        }
    }
    return false;
}

void VyObject::postQueued(VyObject* sender, const Connection& c) {
    if (c.queued == Connection::kCut)
        return; // cut while this signal was being emitted
    VyApplication::postEvent(c.receiver,
                             std::make_unique<VyQueuedSignalEvent>(sender, c.receiver, c.slot));
}

void VyObject::finishEmission(VyObject* sender, ConnectionList* list) {
    if (!list->sender) {
        // The dying sender left the list to us; its table entry is already gone.
        delete list;
        return;
    }
    sweepDeadConnections(list);
    if (!list->connections.isEmpty())
        return;
    for (const auto& entry : sender->m_connections.m_signalTable) {
        if (entry.second == list) {
            dropList(sender, entry.first, list);
            return;
        }
    }
}

void VyObject::dropList(VyObject* sender, const VySignal* signal, ConnectionList* list) {
    sender->m_connections.m_signalTable.remove(signal);
    signal->m_list = nullptr;
    delete list;
}

int VyObject::receivers(const VyObject* sender, const VySignal* signal) {
    const ConnectionList* list = sender->m_connections.m_signalTable.value(signal);
    if (!list)
        return 0;
    int n = 0;
    for (const Connection& c : list->connections)
        if (c.receiver)
            ++n;
    return n;
}

void VyObject::removeSenderConnectionsTo(VyObject* receiver) {
    auto& table = m_connections.m_signalTable;
    for (auto it = table.begin(); it != table.end();) {
        ConnectionList* list = it->second;
        for (int i = list->connections.size() - 1; i >= 0; --i)
            if (list->connections.at(i).receiver == receiver)
                cutConnection(list, i);
        if (list->emitDepth == 0 && list->connections.isEmpty()) {
            it->first->m_list = nullptr;
            delete list;
            it = table.erase(it);
        } else {
            ++it;
        }
    }
}
