#pragma once
// Every target a benchmark checks ends in one line of a fixed form on standard output,
//     [target]<TAB>name<TAB>measured<TAB>limit<TAB>ok|MISSED
// with the limit written as ">= 0.70" or "<= 1.25". ./dev bench gathers these lines from
// every benchmark into one summary table and a TSV file.
#include <cstdio>
#include <string>

inline bool reportTarget(const std::string& name, double measured, bool atLeast, double limit) {
    const bool ok = atLeast ? measured >= limit : measured <= limit;
    std::printf("[target]\t%s\t%.3f\t%s %.2f\t%s\n", name.c_str(), measured,
                atLeast ? ">=" : "<=", limit, ok ? "ok" : "MISSED");
    std::fflush(stdout);
    return ok;
}
