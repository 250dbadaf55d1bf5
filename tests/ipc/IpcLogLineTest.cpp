// The receive and dispatch threads both log while App floods the GUI (the backlog warnings);
// their lines must not be cut into each other.
#include "runtime/VyLog.h"

#include <gtest/gtest.h>

#include <atomic>
#include <sstream>
#include <string>
#include <thread>

TEST(IpcLogLine, LinesOfTwoThreadsLoggingAtOnceStayWhole) {
    constexpr int kLines = 5000;
    testing::internal::CaptureStderr();
    std::atomic<int> ready{0};
    auto logMany = [&ready](const char* who) {
        // Both start together, so that their lines really compete.
        ready.fetch_add(1);
        while (ready.load() < 2)
            std::this_thread::yield();
        for (int i = 0; i < kLines; ++i)
            // The function name in the prefix is not what this checks.
            VY_IPC_LOG("%s %d\n", who, i); // NOLINT(bugprone-lambda-function-name)
    };
    std::thread add([&] { logMany("-----msgnode -count ="); });
    std::thread take([&] { logMany("-----msgnode count ="); });
    add.join();
    take.join();
    std::istringstream log(testing::internal::GetCapturedStderr());
    int lines = 0;
    for (std::string line; std::getline(log, line); ++lines) {
        ASSERT_EQ(line.rfind("[IPC_UI_QT] func: [", 0), 0u) << line;
        ASSERT_NE(line.find("], , line: ["), std::string::npos) << line;
        ASSERT_NE(line.find("] -----msgnode "), std::string::npos) << line;
        ASSERT_EQ(line.find("[IPC_UI_QT]", 1), std::string::npos) << line;
    }
    EXPECT_EQ(lines, 2 * kLines);
}
