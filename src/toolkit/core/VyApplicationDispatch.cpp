// The one dispatch routine of the application.
#include "runtime/VyLog.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyEvent.h"
#include "toolkit/core/VyPointer.h"
#include "toolkit/core/VyRawMouseEvent.h"

bool VyApplication::notify(VyObject* receiver, VyEvent* e) {
    if (!receiver || !e)
        return false;
    if (!receiver->isWidgetType()) {
        if (receiver == this && e->type() == VyEvent::RawMouse) {
            handleRawMouse(static_cast<VyRawMouseEvent*>(e));
            return true;
        }
        return sendEvent(receiver, e);
    }
    return sendEvent(receiver, e);
}

void VyApplication::handleRawMouse(VyRawMouseEvent* e) {
    (void)e;
}

void VyApplication::objectDestroyed(VyObject* object) {
    for (VyObjectGuard* guard : m_guards)
        if (guard->m_object == object)
            guard->m_object = nullptr;
}
