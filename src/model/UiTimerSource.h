#pragma once
// Arms one-off calls. Production uses the toolkit's timer service; tests install a manual
// source and advance it, so long delays are checked without waiting for them.
#include "toolkit/core/VySlot.h"

class VyObject;

class UiTimerSource {
public:
    virtual ~UiTimerSource() = default;
    // Calls slot(nullptr, receiver) once after `ms` milliseconds, on the GUI thread.
    virtual void singleShot(int ms, VyObject* receiver, VySlot slot) = 0;

    // The toolkit's timer service.
    static UiTimerSource* toolkit();
};
