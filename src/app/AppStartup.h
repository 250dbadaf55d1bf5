#pragma once
// The process entry of dvrgui: brings the GUI up in step with App (hello, stage 1, device
// defaults, colour profile, stage 3, system information), builds the application, the
// UiManager and the window layer, loads the common style and runs the event loop.
#include <cstdint>

class AppStartup {
public:
    // Runs the twenty steps; the result is the process exit code.
    static int run(int argc, char** argv);
};
