#pragma once
#include "runtime/VyList.h"
#include "toolkit/core/ConnectionList.h"
#include "toolkit/core/VySignalTable.h"

// The per-object connection table, embedded in every VyObject. As a sender it maps each
// connected signal to its ConnectionList; as a receiver it remembers the senders of the
// connections that call its owner, so that either side can cut them when it dies.
class VySignalMapper {
public:
    explicit VySignalMapper(VyObject* owner)
        : m_owner(owner) {}
    virtual ~VySignalMapper();
    VY_DISABLE_COPY_MOVE(VySignalMapper)

    VySignalTable m_signalTable;
    // One entry per connection whose receiver is the owner.
    VyList<VyObject*> m_senders;
    VyObject* m_owner;
};
