#include "platform/console/VyConsole.h"

#include "runtime/VyLog.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <linux/kd.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace {

int realOpen(const char* path, int flags) {
    return ::open(path, flags);
}
int realIoctl(int fd, unsigned long request, void* argument) {
    return ::ioctl(fd, request, argument);
}

// The terminal's own escapes (DECTCEM): the cursor state is not something an ioctl reads.
constexpr char kHideCursor[] = "\033[?25l";
constexpr char kShowCursor[] = "\033[?25h";

// Termination and crash signals that would otherwise leave a dead GUI over a terminal
// that shows nothing and takes no keys.
constexpr int kHandledSignals[] = {SIGTERM, SIGINT, SIGHUP, SIGQUIT, SIGSEGV,
                                   SIGBUS,  SIGFPE, SIGILL, SIGABRT};
constexpr size_t kSignalCount = sizeof kHandledSignals / sizeof kHandledSignals[0];

// The taken console; the signal handlers and the exit hook reach it only through this.
std::atomic<VyConsole*> g_active{nullptr};
struct sigaction g_previous[kSignalCount];
bool g_exitHookRegistered = false;

// KDSETMODE and KDSKBMODE take their argument by value in the pointer's place.
void* argValue(int value) {
    // NOLINTNEXTLINE(performance-no-int-to-ptr)
    return reinterpret_cast<void*>(static_cast<intptr_t>(value));
}

} // namespace

const VyConsoleSystemCalls& VyConsoleSystemCalls::real() {
    static const VyConsoleSystemCalls calls = {realOpen, realIoctl, ::write, ::close};
    return calls;
}

VyConsole::VyConsole(const VyConsoleSystemCalls& calls, const char* fallbackTty)
    : m_calls(calls)
    , m_fallbackTty(fallbackTty) {}

VyConsole::~VyConsole() {
    restore();
}

bool VyConsole::take() {
    if (m_taken)
        return true;
    if (g_active.load() != nullptr) {
        vyFrameworkLog("console: already taken by another screen !!!\n");
        return false;
    }
    // Standard input when a service manager handed the terminal over; otherwise the
    // terminal in front.
    int mode = 0;
    int fd = 0;
    if (m_calls.ioctl(0, KDGETMODE, &mode) == 0) {
        m_ownsFd = false;
    } else {
        fd = m_calls.open(m_fallbackTty, O_RDWR | O_NOCTTY);
        if (fd < 0 || m_calls.ioctl(fd, KDGETMODE, &mode) != 0) {
            vyFrameworkLog("console: no virtual terminal (%s: %s), the text console stays as "
                           "it is !!!\n",
                           m_fallbackTty, strerror(errno));
            if (fd >= 0)
                m_calls.close(fd);
            return false;
        }
        m_ownsFd = true;
    }
    m_fd = fd;
    m_savedMode = mode;
    int keyboard = 0;
    // A terminal that cannot say its keyboard mode keeps its keyboard: there would be
    // nothing to hand back.
    m_savedKeyboard = m_calls.ioctl(m_fd, KDGKBMODE, &keyboard) == 0 ? keyboard : -1;

    // Handlers first, so that a signal from here on finds something to hand back.
    g_active.store(this);
    m_taken = true;
    installHandlers();
    if (m_calls.ioctl(m_fd, KDSETMODE, argValue(KD_GRAPHICS)) != 0)
        vyFrameworkLog("console: KD_GRAPHICS failed: %s !!!\n", strerror(errno));
    if (m_savedKeyboard >= 0 && m_calls.ioctl(m_fd, KDSKBMODE, argValue(K_OFF)) != 0)
        vyFrameworkLog("console: K_OFF failed: %s !!!\n", strerror(errno));
    (void)!m_calls.write(m_fd, kHideCursor, sizeof kHideCursor - 1);
    vyFrameworkLog("console: graphics mode, cursor hidden, keyboard off\n");
    return true;
}

void VyConsole::restore() {
    // Only one caller wins, whether the destructor, the exit hook or a signal handler.
    VyConsole* expected = this;
    if (!g_active.compare_exchange_strong(expected, nullptr))
        return;
    m_taken = false;
    // Only async-signal-safe calls from here on: this also runs inside a signal handler.
    m_calls.ioctl(m_fd, KDSETMODE, argValue(m_savedMode));
    if (m_savedKeyboard >= 0)
        m_calls.ioctl(m_fd, KDSKBMODE, argValue(m_savedKeyboard));
    (void)!m_calls.write(m_fd, kShowCursor, sizeof kShowCursor - 1);
    removeHandlers();
    if (m_ownsFd)
        m_calls.close(m_fd);
    m_fd = -1;
}

void VyConsole::installHandlers() {
    struct sigaction action;
    std::memset(&action, 0, sizeof action);
    action.sa_handler = &VyConsole::onSignal;
    // No other handled signal interrupts the hand-back half-way.
    sigfillset(&action.sa_mask);
    for (size_t i = 0; i < kSignalCount; ++i)
        sigaction(kHandledSignals[i], &action, &g_previous[i]);
    if (!g_exitHookRegistered) {
        g_exitHookRegistered = true;
        std::atexit(&VyConsole::onExit);
    }
}

void VyConsole::removeHandlers() {
    for (size_t i = 0; i < kSignalCount; ++i)
        sigaction(kHandledSignals[i], &g_previous[i], nullptr);
}

void VyConsole::onSignal(int signal) {
    const int savedErrno = errno;
    if (VyConsole* console = g_active.load())
        console->restore();
    // The previous disposition is back in place: raised again, the signal is delivered as
    // soon as this handler returns and ends the process as it would have.
    raise(signal);
    errno = savedErrno;
}

void VyConsole::onExit() {
    if (VyConsole* console = g_active.load())
        console->restore();
}
