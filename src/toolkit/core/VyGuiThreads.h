#pragma once
// The application's worker threads.
#include "runtime/VyGlobal.h"
#include "toolkit/core/VyMouseReader.h"
#include "toolkit/core/VyTimerCore.h"

#include <memory>

struct VyGuiThreads {
    // The mouse reader thread (a VyMouseWatcher); null when no reader factory was installed
    // before the application was made. Held through the core's interface so that this
    // holder does not depend on the input code.
    std::unique_ptr<VyMouseReader> mouseWatcher;
    std::unique_ptr<VyTimerCore> timerCore;
};
