#pragma once
// A pointer that becomes null when its object is destroyed. The dispatcher uses it to
// survive handlers that delete their own widget; it costs a registration with the
// application, so keep it for such places.
#include "runtime/VyGlobal.h"

class VyObject;

class VyObjectGuard {
public:
    explicit VyObjectGuard(VyObject* object = nullptr);
    ~VyObjectGuard();
    VY_DISABLE_COPY_MOVE(VyObjectGuard)

    VyObject* object() const { return m_object; }
    void reset(VyObject* object);

private:
    friend class VyApplication;
    VyObject* m_object;
};

template <typename T>
class VyPointer {
public:
    explicit VyPointer(T* object = nullptr)
        : m_guard(object) {}
    T* data() const { return static_cast<T*>(m_guard.object()); }
    T* operator->() const { return data(); }
    explicit operator bool() const { return m_guard.object() != nullptr; }
    bool isNull() const { return m_guard.object() == nullptr; }
    void reset(T* object) { m_guard.reset(object); }

private:
    VyObjectGuard m_guard;
};
