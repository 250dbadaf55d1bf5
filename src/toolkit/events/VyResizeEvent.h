#pragma once
#include "runtime/VySize.h"
#include "toolkit/events/VyEvent.h"

// Resize (18). The old size of a first show is undefined: (-1, -1).
class VyResizeEvent : public VyEvent {
public:
    VyResizeEvent(VySize size, VySize oldSize)
        : VyEvent(Resize)
        , m_size(size)
        , m_oldSize(oldSize) {}

    VySize size() const { return m_size; }
    VySize oldSize() const { return m_oldSize; }

private:
    VySize m_size;
    VySize m_oldSize;
};
