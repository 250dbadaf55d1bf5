// The key poll thread with no key pressed, on the board's key source (the input devices of
// this machine, read without blocking, and the directory watch): the processor time the
// process spends over 5 s, in percent of one core. Nothing else runs in the process; the
// main thread sleeps. Target: under 0.1 %.
#include "BenchTargets.h"

#include "platform/keys/VyInputKeyLibrary.h"
#include "toolkit/input/VyKeyManager.h"

#include <cstdio>
#include <ctime>
#include <memory>

namespace {

double seconds(clockid_t clock) {
    timespec t{};
    clock_gettime(clock, &t);
    return double(t.tv_sec) + double(t.tv_nsec) / 1e9;
}

} // namespace

int main() {
    constexpr double kMeasureSeconds = 5.0;
    auto library = std::make_shared<VyInputKeyLibrary>();
    library->scan();
    VyKeyManager::Setup setup;
    setup.library = library;
    auto keys = std::make_unique<VyKeyManager>(setup);

    const double cpu0 = seconds(CLOCK_PROCESS_CPUTIME_ID);
    const double wall0 = seconds(CLOCK_MONOTONIC);
    timespec pause{time_t(kMeasureSeconds), 0};
    while (nanosleep(&pause, &pause) != 0) {
    }
    const double cpu = seconds(CLOCK_PROCESS_CPUTIME_ID) - cpu0;
    const double wall = seconds(CLOCK_MONOTONIC) - wall0;
    const double percent = 100.0 * cpu / wall;
    std::printf("key poll thread idle: %.6f s of processor time in %.3f s (%.1f s asked), %d "
                "input devices open\n",
                cpu, wall, kMeasureSeconds, library->openDeviceCount());
    reportTarget("key poll thread idle, % of a core", percent, false, 0.1);
    keys.reset();
    return 0;
}
