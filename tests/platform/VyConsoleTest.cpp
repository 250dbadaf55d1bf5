// The text console under the framebuffer GUI, against a stand-in terminal: what is changed
// when it is taken, and that the same three things are handed back on every way out.
#include "platform/console/VyConsole.h"
#include "platform/display/VyFbdevBackend.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <fcntl.h>
#include <linux/fb.h>
#include <linux/kd.h>
#include <string>
#include <sys/mman.h>
#include <unistd.h>
#include <vector>

namespace {

// The stand-in terminal. Every call is appended to `calls` and, in the death tests' children
// whose memory the test cannot read, echoed to standard error.
struct FakeTerminal {
    bool echo = false;
    bool stdinIsTerminal = true;
    bool fallbackIsTerminal = true;
    bool keyboardModeKnown = true;
    int mode = KD_TEXT;
    int keyboard = K_UNICODE;
    std::string calls;
};

FakeTerminal* g_terminal = nullptr;
constexpr int kFallbackFd = 7;

void note(const std::string& line) {
    g_terminal->calls += line + "\n";
    if (g_terminal->echo) {
        const std::string echoed = "console-call " + line + "\n";
        (void)!::write(2, echoed.data(), echoed.size());
    }
}

int fakeOpen(const char* path, int) {
    note(std::string("open ") + path);
    return kFallbackFd;
}

int fakeIoctl(int fd, unsigned long request, void* arg) {
    const bool terminal = fd == 0 ? g_terminal->stdinIsTerminal : g_terminal->fallbackIsTerminal;
    const int value = static_cast<int>(reinterpret_cast<intptr_t>(arg));
    switch (request) {
    case KDGETMODE:
        if (!terminal) {
            errno = ENOTTY;
            return -1;
        }
        *static_cast<int*>(arg) = g_terminal->mode;
        return 0;
    case KDGKBMODE:
        if (!g_terminal->keyboardModeKnown) {
            errno = EINVAL;
            return -1;
        }
        *static_cast<int*>(arg) = g_terminal->keyboard;
        return 0;
    case KDSETMODE:
        note("fd" + std::to_string(fd) + " mode " + std::to_string(value));
        return 0;
    case KDSKBMODE:
        note("fd" + std::to_string(fd) + " keyboard " + std::to_string(value));
        return 0;
    default:
        errno = EINVAL;
        return -1;
    }
}

ssize_t fakeWrite(int fd, const void* data, size_t length) {
    const std::string text(static_cast<const char*>(data), length);
    note("fd" + std::to_string(fd) +
         (text == "\033[?25l"   ? " cursor hidden"
          : text == "\033[?25h" ? " cursor shown"
                                : " wrote " + text));
    return static_cast<ssize_t>(length);
}

int fakeClose(int fd) {
    note("close fd" + std::to_string(fd));
    return 0;
}

const VyConsoleSystemCalls kFakeConsole = {fakeOpen, fakeIoctl, fakeWrite, fakeClose};

const std::string kTaken = "fd0 mode " + std::to_string(KD_GRAPHICS) + "\nfd0 keyboard " +
                           std::to_string(K_OFF) + "\nfd0 cursor hidden\n";
const std::string kHandedBack = "fd0 mode " + std::to_string(KD_TEXT) + "\nfd0 keyboard " +
                                std::to_string(K_UNICODE) + "\nfd0 cursor shown\n";
// The same hand-back as the death tests' children print it.
const char* const kHandedBackPattern =
    "console-call fd0 mode 0\nconsole-call fd0 keyboard 3\nconsole-call fd0 cursor shown";

class ConsoleTest : public ::testing::Test {
protected:
    void SetUp() override {
        static_assert(KD_TEXT == 0 && K_UNICODE == 3, "the death-test pattern spells them out");
        g_terminal = &m_terminal;
    }
    void TearDown() override { g_terminal = nullptr; }
    FakeTerminal m_terminal;
};

bool endedAbnormally(int status) {
    return !(WIFEXITED(status) && WEXITSTATUS(status) == 0);
}

} // namespace

TEST_F(ConsoleTest, TakesTheTerminalOnStandardInputAndHandsBackWhatItFound) {
    {
        VyConsole console(kFakeConsole);
        testing::internal::CaptureStdout();
        ASSERT_TRUE(console.take());
        EXPECT_EQ(testing::internal::GetCapturedStdout(),
                  "[GUI-FRAMEWORK]: console: graphics mode, cursor hidden, keyboard off\n");
        EXPECT_TRUE(console.isTaken());
        EXPECT_EQ(m_terminal.calls, kTaken) << "standard input is used as it is, not opened";

        // Taken twice, or a second console while one is taken: nothing changes again.
        EXPECT_TRUE(console.take());
        VyConsole other(kFakeConsole);
        testing::internal::CaptureStdout();
        EXPECT_FALSE(other.take());
        EXPECT_NE(testing::internal::GetCapturedStdout().find("already taken"), std::string::npos);
        EXPECT_EQ(m_terminal.calls, kTaken);
        m_terminal.calls.clear();
    }
    EXPECT_EQ(m_terminal.calls, kHandedBack);

    // A terminal that was already in graphics mode with a raw keyboard gets those back.
    m_terminal.mode = KD_GRAPHICS;
    m_terminal.keyboard = K_RAW;
    testing::internal::CaptureStdout();
    VyConsole again(kFakeConsole);
    ASSERT_TRUE(again.take());
    m_terminal.calls.clear();
    again.restore();
    again.restore();
    testing::internal::GetCapturedStdout();
    EXPECT_EQ(m_terminal.calls, "fd0 mode " + std::to_string(KD_GRAPHICS) + "\nfd0 keyboard " +
                                    std::to_string(K_RAW) + "\nfd0 cursor shown\n");
    EXPECT_FALSE(again.isTaken());
}

TEST_F(ConsoleTest, FallsBackToTheTerminalInFrontAndLeavesAnUnknownKeyboardAlone) {
    m_terminal.stdinIsTerminal = false;
    m_terminal.keyboardModeKnown = false;
    testing::internal::CaptureStdout();
    {
        VyConsole console(kFakeConsole, "/dev/tty3");
        ASSERT_TRUE(console.take());
    }
    testing::internal::GetCapturedStdout();
    const std::string fd = "fd" + std::to_string(kFallbackFd);
    EXPECT_EQ(m_terminal.calls, "open /dev/tty3\n" + fd + " mode " + std::to_string(KD_GRAPHICS) +
                                    "\n" + fd + " cursor hidden\n" + fd + " mode " +
                                    std::to_string(KD_TEXT) + "\n" + fd + " cursor shown\nclose " +
                                    fd + "\n");
}

TEST_F(ConsoleTest, WithoutAVirtualTerminalNothingIsTouched) {
    m_terminal.stdinIsTerminal = false;
    m_terminal.fallbackIsTerminal = false;
    testing::internal::CaptureStdout();
    {
        VyConsole console(kFakeConsole, "/dev/tty0");
        EXPECT_FALSE(console.take());
        EXPECT_FALSE(console.isTaken());
    }
    const std::string out = testing::internal::GetCapturedStdout();
    EXPECT_NE(out.find("console: no virtual terminal (/dev/tty0"), std::string::npos) << out;
    EXPECT_EQ(m_terminal.calls, "open /dev/tty0\nclose fd" + std::to_string(kFallbackFd) + "\n");
}

// Every way out of the process hands the terminal back: a plain exit without the console's
// destructor, termination signals, and crashes, which still end the process by the signal.
TEST_F(ConsoleTest, EveryWayOutHandsTheTerminalBack) {
#if defined(__SANITIZE_THREAD__)
    // The fake terminal records its calls in strings, which allocate inside the signal
    // handler; ThreadSanitizer rightly reports that of the fake. The plain and ASan runs
    // cover the handler itself.
    GTEST_SKIP() << "the fake terminal is not signal-safe";
#endif
    // The default death-test style forks without exec, which also works for a target
    // binary run by an emulator. The console is reachable from a static on purpose: the
    // normal exit must hand it back without its destructor.
    const auto takeThen = [](void (*end)()) {
        static VyConsole* console = nullptr;
        g_terminal->echo = true;
        console = new VyConsole(kFakeConsole);
        if (console->take())
            end();
    };
    EXPECT_EXIT(takeThen([] { std::exit(0); }), testing::ExitedWithCode(0), kHandedBackPattern);
    EXPECT_EXIT(takeThen([] { raise(SIGTERM); }), testing::KilledBySignal(SIGTERM),
                kHandedBackPattern);
    EXPECT_EXIT(takeThen([] { raise(SIGINT); }), testing::KilledBySignal(SIGINT),
                kHandedBackPattern);
    // A sanitizer may report the crash itself and end the process its own way; either way
    // the terminal came back first and the process did not carry on.
    EXPECT_EXIT(takeThen([] { raise(SIGSEGV); }), endedAbnormally, kHandedBackPattern);
    EXPECT_EXIT(takeThen([] { std::abort(); }), endedAbnormally, kHandedBackPattern);
}

namespace {

// Just enough of a framebuffer driver for the backend to open.
std::vector<uint8_t> g_fbMemory(64 * 2 * 16);

int fbOpen(const char*, int) {
    return 9;
}
int fbIoctl(int, unsigned long request, void* arg) {
    if (request == FBIOGET_FSCREENINFO) {
        auto* fix = static_cast<fb_fix_screeninfo*>(arg);
        fix->smem_len = static_cast<uint32_t>(g_fbMemory.size());
        fix->line_length = 128;
    } else if (request == FBIOGET_VSCREENINFO) {
        auto* var = static_cast<fb_var_screeninfo*>(arg);
        var->xres = 64;
        var->yres = 16;
        var->bits_per_pixel = 16;
    }
    return 0;
}
void* fbMmap(void*, size_t, int, int, int, off_t) {
    return g_fbMemory.data();
}
int fbMunmap(void*, size_t) {
    return 0;
}
int fbClose(int) {
    return 0;
}
const VyFbdevSystemCalls kFakeFbdev = {fbOpen, fbIoctl, fbMmap, fbMunmap, fbClose};

} // namespace

TEST_F(ConsoleTest, TheFramebufferTakesItsConsoleOnOpenUnlessReadOnly) {
    testing::internal::CaptureStdout();
    {
        VyFbdevBackend screenshot("/dev/fb0", true, kFakeFbdev);
        screenshot.setConsole(std::make_unique<VyConsole>(kFakeConsole));
        ASSERT_TRUE(screenshot.open());
        EXPECT_FALSE(screenshot.console()->isTaken()) << "a screenshot must not blank the console";
    }
    EXPECT_EQ(m_terminal.calls, "");
    {
        VyFbdevBackend fb("/dev/fb0", false, kFakeFbdev);
        fb.setConsole(std::make_unique<VyConsole>(kFakeConsole));
        ASSERT_TRUE(fb.open());
        EXPECT_TRUE(fb.console()->isTaken());
        EXPECT_EQ(m_terminal.calls, kTaken);
    }
    testing::internal::GetCapturedStdout();
    EXPECT_EQ(m_terminal.calls, kTaken + kHandedBack);
}
