#pragma once
// One soak run: recorder-sim and dvrgui started against each other, then, from one seed,
// random but well-formed input (device keys through the GUI's control channel, mouse
// samples through a pseudo-terminal standing in for the mouse device) interleaved with
// random notifications, broken frames, dropped connections and restarts of the simulator.
// Every `batch` steps the driver asks the GUI for its state and waits for the answer, which
// both paces the run (nothing piles up faster than the GUI can take it) and checks it: the
// GUI alive, no sanitizer report, the posted-event queue under its bound, memory flat after
// the warm-up. A screen found locked at a probe is unlocked by logging in, as a person
// would, so the rest of the run reaches the screens behind the lock. At the end Escape is
// pressed ten times and only the windows that were there at the start may remain.
#include <cstdint>
#include <string>
#include <vector>

struct SoakOptions {
    std::string buildDir;     // holds src/app/dvrgui and tools/recorder-sim/recorder-sim
    std::string resourcesDir; // the GUI's working directory
    uint64_t seed = 1;
    int inputEvents = 3000;
    int notifications = 3000;
    int simRestarts = 1;     // restarts of the simulator process, spread over the run
    int connectionDrops = 2; // connections closed by the simulator, spread over the run
    int batch = 200;         // steps between two state probes
    int queueBound = 4096;   // events waiting in the GUI's queue at most
    bool checkMemory = true; // off where a sanitizer's quarantine makes memory grow by design
    long flatKb = 2048;      // anonymous growth allowed after the warm-up (the first quarter)
    int answerTimeoutSec = 120;
    std::vector<std::string> execPrefix; // an emulator in front of both programs
};

struct SoakReport {
    bool ok = false;
    std::string failure; // what went wrong, with the seed
    uint64_t seed = 0;
    int inputs = 0;
    int notifications = 0;
    int malformed = 0;
    int restarts = 0;
    int drops = 0;
    double seconds = 0;
    // Anonymous resident memory at probes that find only the windows of the start: the
    // first after the warm-up, and the most after it.
    long warmKb = 0;
    long peakKb = 0;
    long busyPeakKb = 0; // the most at any probe after the warm-up, screens open or not
    long finalKb = 0;    // at the end
    long peakRssKb = 0;  // the whole resident set (fonts and other file pages too)
    long finalRssKb = 0;
    int longestQueue = 0;
    std::string finalWindows;
    int unlocks = 0;          // logins at a locked screen (the driver unlocks at each probe)
    int refusedUnlocks = 0;   // ... that App refused (both accounts locked out for a while)
    bool endedLocked = false; // the run locked the screen; windows under the lock not judged

    std::string summary() const;
};

SoakReport runSoak(const SoakOptions& options);
