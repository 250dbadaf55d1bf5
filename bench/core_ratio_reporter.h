#pragma once
// A console reporter that also remembers each benchmark's time per iteration, so that a
// bench can print its ratios against the baseline measured in the same run. Ratios use CPU
// time by default (the build machines are shared and wall time swings with their load);
// benchmarks whose cost includes waiting for another thread compare wall time.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <string>
#include <utility>
#include <vector>

class CoreRatioReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs)
            if (run.run_type == Run::RT_Iteration && run.iterations > 0) {
                m_cpu[run.benchmark_name()] = run.GetAdjustedCPUTime();
                m_real[run.benchmark_name()] = run.GetAdjustedRealTime();
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
    std::map<std::string, double> m_cpu;
    std::map<std::string, double> m_real;
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
