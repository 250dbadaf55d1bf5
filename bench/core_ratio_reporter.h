#pragma once
// A console reporter that also remembers each benchmark's time per iteration, so that a
// bench can print its ratios against the baseline measured in the same run. Ratios use CPU
// time by default (the build machines are shared and wall time swings with their load);
// benchmarks whose cost includes waiting for another thread compare wall time. Run with
// --benchmark_repetitions=N (or Repetitions() in the bench) to compare medians.
#include "BenchTargets.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <string>
#include <utility>
#include <vector>

class CoreRatioReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            // With repetitions the median stands for the benchmark: one slow repetition on
            // a busy machine then moves nothing.
            const std::string name = withoutRepeats(run.run_name.str());
            if (run.run_type == Run::RT_Aggregate && run.aggregate_name == "median") {
                m_cpu[name] = run.GetAdjustedCPUTime();
                m_real[name] = run.GetAdjustedRealTime();
                m_fromMedian[name] = true;
            } else if (run.run_type == Run::RT_Iteration && run.iterations > 0 &&
                       !m_fromMedian[name]) {
                m_cpu[name] = run.GetAdjustedCPUTime();
                m_real[name] = run.GetAdjustedRealTime();
            }
        }
        ConsoleReporter::ReportRuns(runs);
    }

    // Prints "name / baseline = ratio (target)"; true when the target holds.
    bool ratio(const std::string& name, const std::string& baseline, double maxRatio,
               bool atLeast = false, bool wallTime = false) const {
        const auto& times = wallTime ? m_real : m_cpu;
        auto a = times.find(name);
        auto b = times.find(baseline);
        if (a == times.end() || b == times.end() || b->second <= 0)
            return false;
        double r = a->second / b->second;
        bool ok = atLeast ? r >= maxRatio : r <= maxRatio;
        std::printf("%-36s / %-32s = %6.2fx %s (target %s %.2fx) %s\n", name.c_str(),
                    baseline.c_str(), r, wallTime ? "wall" : "cpu ",
                    atLeast ? ">=" : "<=", maxRatio, ok ? "ok" : "MISSED");
        reportTarget(name + " / " + baseline, r, atLeast, maxRatio);
        return ok;
    }

    // Prints a ratio that has no target, for scale.
    void info(const std::string& name, const std::string& baseline) const {
        auto a = m_cpu.find(name);
        auto b = m_cpu.find(baseline);
        if (a != m_cpu.end() && b != m_cpu.end() && b->second > 0)
            std::printf("%-36s / %-32s = %6.2fx cpu  (for scale)\n", name.c_str(), baseline.c_str(),
                        a->second / b->second);
    }

private:
    // "BM_X/256/repeats:5" is known to the checks as "BM_X/256".
    static std::string withoutRepeats(std::string name) {
        std::string::size_type at = name.find("/repeats:");
        if (at == std::string::npos)
            return name;
        std::string::size_type end = name.find('/', at + 1);
        return name.erase(at, end == std::string::npos ? std::string::npos : end - at);
    }

    std::map<std::string, double> m_cpu;
    std::map<std::string, double> m_real;
    std::map<std::string, bool> m_fromMedian;
};

// Runs the registered benchmarks with the reporter, then the ratio checks.
template <typename Checks>
int runWithRatios(int argc, char** argv, Checks checks) {
    benchmark::Initialize(&argc, argv);
    CoreRatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    std::printf("\n");
    checks(reporter);
    benchmark::Shutdown();
    return 0;
}
