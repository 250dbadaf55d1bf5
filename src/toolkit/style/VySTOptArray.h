#pragma once
// A fixed row of N style values of one type, indexed by slot (VyStyleSlot for the per-state
// rows). Copies share everything: the row of slot pointers is shared until a copy writes,
// and then only the slot written is copied, so a style copied per control costs a pointer.
// GUI thread only, like the style itself.
#include <array>
#include <memory>

#include "runtime/VyGlobal.h"

template <typename T, int N>
class VySTOptArray {
public:
    static_assert(N > 0, "at least one slot");
    static constexpr int kSlots = N;

    // The value of a slot, or null when the slot was never written.
    const T* at(int slot) const {
        checkSlot(slot);
        return m_row ? (*m_row)[slot].get() : nullptr;
    }
    // A copy of the value, a default-constructed (unset) one for an empty slot.
    T value(int slot) const {
        const T* v = at(slot);
        return v ? *v : T();
    }
    bool isSet(int slot) const {
        const T* v = at(slot);
        return v && v->isSet();
    }

    // The slot for writing: created on first write, copied first when another array shares it.
    T& edit(int slot) {
        checkSlot(slot);
        if (!m_row)
            m_row = std::make_shared<Row>();
        else if (m_row.use_count() > 1)
            m_row = std::make_shared<Row>(*m_row);
        std::shared_ptr<T>& p = (*m_row)[slot];
        if (!p)
            p = std::make_shared<T>();
        else if (p.use_count() > 1)
            p = std::make_shared<T>(*p);
        return *p;
    }
    void set(int slot, const T& value) { edit(slot) = value; }
    // Back to never written.
    void clear(int slot) {
        checkSlot(slot);
        if (!at(slot))
            return;
        if (m_row.use_count() > 1)
            m_row = std::make_shared<Row>(*m_row);
        (*m_row)[slot].reset();
    }

    // True when both arrays use the same storage for the slot (tests and diagnostics).
    bool sharesSlotWith(const VySTOptArray& other, int slot) const {
        const T* a = at(slot);
        return a && a == other.at(slot);
    }

private:
    using Row = std::array<std::shared_ptr<T>, N>;

    static void checkSlot(int slot) { VY_ASSERT_X(slot >= 0 && slot < N, "slot >= 0 && slot < N"); }

    std::shared_ptr<Row> m_row;
};
