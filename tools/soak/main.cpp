// vy-soak: drives dvrgui against recorder-sim with random input and notifications.
//     vy-soak [--seed N] [--events N] [--notifications N] [--restarts N] [--build DIR]
//             [--resources DIR] [--no-memory-check]
// Prints one summary line; exit status 1 when the run failed (the line names the seed).
#include "SoakRun.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <string>

int main(int argc, char** argv) {
    SoakOptions options;
    options.buildDir = VY_SOAK_BUILD_DIR;
    options.resourcesDir = VY_SOAK_RESOURCES_DIR;
    options.inputEvents = 100000;
    options.notifications = 100000;
    options.simRestarts = 3;
    options.connectionDrops = 5;
    options.seed = static_cast<uint64_t>(std::time(nullptr));
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        const char* value = i + 1 < argc ? argv[i + 1] : nullptr;
        if (arg == "--no-memory-check") {
            options.checkMemory = false;
            continue;
        }
        if (value == nullptr) {
            std::fprintf(stderr, "vy-soak: %s needs a value\n", arg.c_str());
            return 2;
        }
        ++i;
        if (arg == "--seed")
            options.seed = std::strtoull(value, nullptr, 0);
        else if (arg == "--events")
            options.inputEvents = std::atoi(value);
        else if (arg == "--notifications")
            options.notifications = std::atoi(value);
        else if (arg == "--restarts")
            options.simRestarts = std::atoi(value);
        else if (arg == "--build")
            options.buildDir = value;
        else if (arg == "--resources")
            options.resourcesDir = value;
        else {
            std::fprintf(stderr, "vy-soak: unknown option %s\n", arg.c_str());
            return 2;
        }
    }
    std::printf("vy-soak: seed %llu\n", static_cast<unsigned long long>(options.seed));
    std::fflush(stdout);
    const SoakReport report = runSoak(options);
    std::printf("%s\n", report.summary().c_str());
    return report.ok ? 0 : 1;
}
