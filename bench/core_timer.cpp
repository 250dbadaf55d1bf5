// The timer service with 1,000 live timers:
//   registering and unregistering one more costs a few microseconds (absolute, and against
//   a std::mutex + std::multimap insert/erase baseline in this run);
//   the timer thread wakes up no more often than the nearest deadline requires: counter
//   wakeupsPerExpiry (expected about 1: one wake-up per expiry of the only short timer,
//   plus the one caused by registering it).
#include "core_ratio_reporter.h"

#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyTimerCore.h"

#include <chrono>
#include <map>
#include <mutex>
#include <thread>

namespace {

constexpr int kLiveTimers = 1000;

VyApplication* application() {
    static VyApplication* app = [] {
        VyApplication::setDisplayDevice("mem:64x64");
        return new VyApplication;
    }();
    return app;
}

void BM_MultimapBaseline(benchmark::State& state) {
    std::mutex mutex;
    std::multimap<int64_t, int> byDeadline;
    for (int i = 0; i < kLiveTimers; ++i)
        byDeadline.emplace(int64_t(i) * 1000, i);
    int64_t t = 500;
    for (auto _ : state) {
        std::multimap<int64_t, int>::iterator it;
        {
            std::lock_guard<std::mutex> lock(mutex);
            it = byDeadline.emplace(t, -1);
        }
        {
            std::lock_guard<std::mutex> lock(mutex);
            byDeadline.erase(it);
        }
        t = (t + 7919) % (int64_t(kLiveTimers) * 1000);
    }
}

void BM_RegisterUnregisterAmong1000(benchmark::State& state) {
    application();
    VyTimerCore core; // not started: no thread competes for the lock
    VyObject receiver;
    for (int i = 0; i < kLiveTimers; ++i)
        core.registerTimer(1000 + i * 37, &receiver, -1);
    int ms = 500;
    for (auto _ : state) {
        uint32_t id = core.registerTimer(ms, &receiver, -1);
        core.unregisterTimer(id);
        ms = 1 + (ms + 7919) % 60000;
    }
}

void BM_TimerThreadWakeups(benchmark::State& state) {
    VyApplication* app = application();
    VyObject receiver;
    for (auto _ : state) {
        VyTimerCore core;
        for (int i = 0; i < kLiveTimers; ++i)
            core.registerTimer(600000 + i, &receiver, -1); // ten minutes away
        core.start();
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        uint64_t before = core.wakeups();
        const int expiries = 20;
        core.registerTimer(10, &receiver, expiries - 1);
        std::this_thread::sleep_for(std::chrono::milliseconds(10 * expiries + 100));
        uint64_t wakeups = core.wakeups() - before;
        core.stop();
        state.counters["wakeups"] = double(wakeups);
        state.counters["wakeupsPerExpiry"] = double(wakeups) / (expiries + 1);
        app->removePostedEvents(&receiver);
    }
}

} // namespace

BENCHMARK(BM_MultimapBaseline);
BENCHMARK(BM_RegisterUnregisterAmong1000);
BENCHMARK(BM_TimerThreadWakeups)->Iterations(1)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv) {
    return runWithRatios(argc, argv, [](const CoreRatioReporter& r) {
        // "A few microseconds" in absolute terms; the ratio shows what the sorted list costs
        // over a tree.
        r.ratio("BM_RegisterUnregisterAmong1000", "BM_MultimapBaseline", 20.0);
    });
}
