#pragma once
// A pointer that becomes null when its object is destroyed, whatever the state of the
// object's signals: the object's destructor clears every guard on it through the
// application, before anything else happens to it. Every place that points at a VyObject
// without owning it holds one (dispatch, focus, receiver slots, open-window lists, event
// filters). GUI thread only.
//
// A guard takes part once it points at something while an application exists; an object
// that dies while no application exists clears nothing.
#include "runtime/VyGlobal.h"

class VyApplication;
class VyObject;

class VyObjectGuard {
public:
    explicit VyObjectGuard(VyObject* object = nullptr);
    ~VyObjectGuard();
    // A copy is a guard of its own on the same object, so guards can live in containers.
    VyObjectGuard(const VyObjectGuard& other);
    VyObjectGuard& operator=(const VyObjectGuard& other);

    VyObject* object() const { return m_object; }
    void reset(VyObject* object);

private:
    friend class VyApplication;
    void enrol();

    VyObject* m_object;
    VyApplication* m_app = nullptr; // the application this guard is enrolled with
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
    void reset(T* object = nullptr) { m_guard.reset(object); }
    bool operator==(const T* object) const { return data() == object; }
    bool operator!=(const T* object) const { return data() != object; }

private:
    VyObjectGuard m_guard;
};
