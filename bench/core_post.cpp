// Posting and dispatching events against a bare std::mutex + condition_variable queue of
// heap-allocated events with the same pattern, measured in this run:
//   cross-thread (one producer thread, the bench thread dispatching): >= 80% of the bare
//   queue's throughput, i.e. time ratio <= 1.25; single-threaded (post a batch, then
//   dispatch it): likewise, for a burst of 256 events (a realistic queue length) and for
//   20,000 (where the queue's 16-byte entries, twice the baseline's pointer, leave the
//   cache). Each ratio compares medians of repetitions; on a shared machine run it as
//   `taskset -c 1 bench_core_post --benchmark_enable_random_interleaving=true` so that the
//   load drifts over both sides alike. The cross-thread pair swings most with that load.
#include "core_ratio_reporter.h"

#include "toolkit/core/VyApplication.h"
#include "toolkit/events/VyEvent.h"

#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <thread>

namespace {

constexpr int kBatch = 20000; // events per benchmark iteration

class Counter : public VyObject {
    VY_OBJECT(Counter, VyObject)
public:
    bool event(VyEvent* e) override {
        benchmark::DoNotOptimize(e);
        ++received;
        return true;
    }
    long received = 0;
};

// The baseline: what a minimal hand-written queue costs.
class BareEvent {
public:
    virtual ~BareEvent() = default;
    virtual void deliver(long* counter) { ++*counter; }
};

class BareQueue {
public:
    void post(std::unique_ptr<BareEvent> e) {
        std::lock_guard<std::mutex> lock(m_mutex);
        bool wasEmpty = m_queue.empty();
        m_queue.push_back(std::move(e));
        if (wasEmpty)
            m_nonEmpty.notify_one();
    }
    std::unique_ptr<BareEvent> take() {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_nonEmpty.wait(lock, [this] { return !m_queue.empty(); });
        std::unique_ptr<BareEvent> e = std::move(m_queue.front());
        m_queue.pop_front();
        return e;
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_nonEmpty;
    std::deque<std::unique_ptr<BareEvent>> m_queue;
};

VyApplication* application() {
    static VyApplication* app = [] {
        VyApplication::setDisplayDevice("mem:64x64");
        return new VyApplication;
    }();
    return app;
}

void BM_BareQueueCrossThread(benchmark::State& state) {
    BareQueue queue;
    long received = 0;
    for (auto _ : state) {
        std::thread producer([&queue] {
            for (int i = 0; i < kBatch; ++i)
                queue.post(std::make_unique<BareEvent>());
        });
        for (int i = 0; i < kBatch; ++i)
            queue.take()->deliver(&received);
        producer.join();
    }
    state.SetItemsProcessed(state.iterations() * kBatch);
}

void BM_PostEventCrossThread(benchmark::State& state) {
    VyApplication* app = application();
    Counter counter;
    for (auto _ : state) {
        long target = counter.received + kBatch;
        std::thread producer([&counter] {
            for (int i = 0; i < kBatch; ++i)
                VyApplication::postEvent(&counter, std::make_unique<VyEvent>(VyEvent::Show));
        });
        while (counter.received < target)
            app->processOneEvent();
        producer.join();
    }
    state.SetItemsProcessed(state.iterations() * kBatch);
}

void BM_BareQueueSingleThread(benchmark::State& state) {
    const int batch = static_cast<int>(state.range(0));
    BareQueue queue;
    long received = 0;
    for (auto _ : state) {
        for (int i = 0; i < batch; ++i)
            queue.post(std::make_unique<BareEvent>());
        for (int i = 0; i < batch; ++i)
            queue.take()->deliver(&received);
    }
    state.SetItemsProcessed(state.iterations() * batch);
}

void BM_PostEventSingleThread(benchmark::State& state) {
    const int batch = static_cast<int>(state.range(0));
    VyApplication* app = application();
    Counter counter;
    for (auto _ : state) {
        long target = counter.received + batch;
        for (int i = 0; i < batch; ++i)
            VyApplication::postEvent(&counter, std::make_unique<VyEvent>(VyEvent::Show));
        while (counter.received < target)
            app->processOneEvent();
    }
    state.SetItemsProcessed(state.iterations() * batch);
}

} // namespace

// Ratios of medians: the cross-thread pair in particular swings with the scheduler.
constexpr int kRepetitions = 5;
BENCHMARK(BM_BareQueueCrossThread)
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->UseRealTime()
    ->Repetitions(kRepetitions)
    ->DisplayAggregatesOnly();
BENCHMARK(BM_PostEventCrossThread)
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->UseRealTime()
    ->Repetitions(kRepetitions)
    ->DisplayAggregatesOnly();
BENCHMARK(BM_BareQueueSingleThread)
    ->Arg(256)
    ->Arg(kBatch)
    ->Unit(benchmark::kMicrosecond)
    ->Repetitions(kRepetitions)
    ->DisplayAggregatesOnly();
BENCHMARK(BM_PostEventSingleThread)
    ->Arg(256)
    ->Arg(kBatch)
    ->Unit(benchmark::kMicrosecond)
    ->Repetitions(kRepetitions)
    ->DisplayAggregatesOnly();

int main(int argc, char** argv) {
    return runWithRatios(argc, argv, [](const CoreRatioReporter& r) {
        r.ratio("BM_PostEventCrossThread/process_time/real_time",
                "BM_BareQueueCrossThread/process_time/real_time", 1.25, false, true);
        // The CPU both threads spent: what the wall time costs when the scheduler is not
        // in the way.
        r.info("BM_PostEventCrossThread/process_time/real_time",
               "BM_BareQueueCrossThread/process_time/real_time");
        r.ratio("BM_PostEventSingleThread/256", "BM_BareQueueSingleThread/256", 1.25);
        r.ratio("BM_PostEventSingleThread/20000", "BM_BareQueueSingleThread/20000", 1.25);
    });
}
