#pragma once
// The Linux text console under a framebuffer GUI. Left alone, its cursor blinks through the
// picture, kernel messages scroll over it and key presses echo into a login shell. While
// taken, the virtual terminal is in graphics mode (KD_GRAPHICS), its cursor is hidden and
// its keyboard is off (K_OFF); all three are handed back on a normal exit, on SIGTERM and
// SIGINT, and on a crash signal (handed back, then the signal raised again so that the
// process still ends as it would have). The only place that knows <linux/kd.h>; the system
// calls go through a table so that tests can stand in for the kernel.
#include "runtime/VyGlobal.h"

#include <cstddef>
#include <sys/types.h>

struct VyConsoleSystemCalls {
    int (*open)(const char* path, int flags);
    int (*ioctl)(int fd, unsigned long request, void* argument);
    ssize_t (*write)(int fd, const void* data, size_t length);
    int (*close)(int fd);

    static const VyConsoleSystemCalls& real();
};

class VyConsole {
public:
    // `fallbackTty`: the terminal to use when standard input is not a virtual terminal
    // (started by a service manager or over ssh); "/dev/tty0" is the one in front.
    explicit VyConsole(const VyConsoleSystemCalls& calls = VyConsoleSystemCalls::real(),
                       const char* fallbackTty = "/dev/tty0");
    ~VyConsole();
    VY_DISABLE_COPY_MOVE(VyConsole)

    // Finds the virtual terminal and puts it under the GUI. False, with a log line, when
    // there is none (the GUI runs on all the same). At most one console is taken at a time.
    bool take();
    // Hands the terminal back as it was; idempotent, and safe inside a signal handler.
    void restore();
    bool isTaken() const { return m_taken; }

private:
    static void onSignal(int signal);
    static void onExit();
    void installHandlers();
    void removeHandlers();

    const VyConsoleSystemCalls& m_calls;
    const char* m_fallbackTty;
    int m_fd = -1;
    bool m_ownsFd = false;
    volatile bool m_taken = false;
    int m_savedMode = 0;
    int m_savedKeyboard = 0;
};
