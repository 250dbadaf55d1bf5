#include "toolkit/core/VyPointer.h"

#include "toolkit/core/VyApplication.h"

VyObjectGuard::VyObjectGuard(VyObject* object)
    : m_object(object) {
    if (VyApplication* app = VyApplication::instance())
        app->addGuard(this);
}

VyObjectGuard::~VyObjectGuard() {
    if (VyApplication* app = VyApplication::instance())
        app->removeGuard(this);
}

void VyObjectGuard::reset(VyObject* object) {
    m_object = object;
}
