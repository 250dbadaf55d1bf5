#pragma once
// The application's worker threads.
#include "runtime/VyGlobal.h"
#include "toolkit/core/VyThread.h"
#include "toolkit/core/VyTimerCore.h"

#include <memory>

struct VyGuiThreads {
    // The mouse reader thread (a VyMouseWatcher); null until the mouse input installs one
    // with VyApplication::setMouseWatcher. Held as its VyThread base so that this holder
    // does not depend on the input code.
    std::unique_ptr<VyThread> mouseWatcher;
    std::unique_ptr<VyTimerCore> timerCore;
};
