#include "toolkit/core/VyPointer.h"

#include "toolkit/core/VyApplication.h"

VyObjectGuard::VyObjectGuard(VyObject* object)
    : m_object(object) {
    enrol();
}

VyObjectGuard::VyObjectGuard(const VyObjectGuard& other)
    : m_object(other.m_object) {
    enrol();
}

VyObjectGuard& VyObjectGuard::operator=(const VyObjectGuard& other) {
    reset(other.m_object);
    return *this;
}

VyObjectGuard::~VyObjectGuard() {
    if (m_app)
        m_app->removeGuard(this);
}

void VyObjectGuard::reset(VyObject* object) {
    m_object = object;
    enrol();
}

void VyObjectGuard::enrol() {
    // Guards that never point anywhere cost nothing.
    if (m_app || !m_object)
        return;
    m_app = VyApplication::instance();
    if (m_app)
        m_app->addGuard(this);
}
