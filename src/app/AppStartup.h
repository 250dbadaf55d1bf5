#pragma once
// The process entry of dvrgui: brings the GUI up in step with App (hello, stage 1, device
// defaults, colour profile, stage 3, system information), builds the application, the
// UiManager and the window layer, loads the common style and runs the event loop.
#include <cstdint>

class AppStartup {
public:
    // First word of the hello: the revision of the start-up exchange this GUI speaks. App
    // refuses a GUI built against another revision of the shared record layouts.
    static constexpr uint32_t kHelloRevision = 32;
    // Second word: the size of the device default record this GUI sends.
    static constexpr uint32_t kHelloRecordSize = 692696; // bytes
    static constexpr uint16_t kMainType = 1000;
    static constexpr uint16_t kSubTypeHello = 0;
    static constexpr uint16_t kSubTypeColorProfile = 104;
    static constexpr uint16_t kSubTypeDefaultsDone = 105;

    // Runs the twenty steps; the result is the process exit code.
    static int run(int argc, char** argv);
};
