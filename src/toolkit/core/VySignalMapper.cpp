#include "toolkit/core/VySignalMapper.h"

#include "toolkit/core/VyObject.h"

// Runs as the owner's last step of destruction: cuts the connections in both directions.
VySignalMapper::~VySignalMapper() {
    for (auto& entry : m_signalTable) {
        ConnectionList* list = entry.second;
        for (const Connection& c : list->connections)
            if (c.receiver)
                c.receiver->m_connections.m_senders.removeOne(m_owner);
        if (list->emitDepth > 0) {
            // A slot of this very signal is destroying us. Emptying the list stops every
            // running emission of it at its next length check; the outermost one sees
            // the null sender and frees the list.
            list->sender = nullptr;
            list->connections.clear();
            continue;
        }
        delete list;
    }
    m_signalTable.clear();

    // The senders' lists are pruned once per sender; duplicates in m_senders (one per
    // connection) find nothing left the second time.
    VyList<VyObject*> senders = m_senders;
    m_senders.clear();
    for (VyObject* sender : senders)
        if (sender != m_owner)
            sender->removeSenderConnectionsTo(m_owner);
}
