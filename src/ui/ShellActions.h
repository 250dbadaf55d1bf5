#pragma once
// What a screen asks of the window layer: open another screen, lock, shut down. The main
// view's start menu, tool bar and keys call these; WindowShell answers, and a screen that
// is not there yet answers with one log line rather than silence.
#include <cstdint>

class ShellActions {
public:
    virtual ~ShellActions() = default;

    // The shell installed at start-up, or null (a test without windows).
    static ShellActions* instance();
    static void install(ShellActions* shell);

    // Playback of `channel` (-1: every channel the user may play) from `atSeconds` (seconds
    // since the epoch, local time; 0: the latest recording of today).
    virtual void openPlayback(int channel, int64_t atSeconds) = 0;
    virtual void openSettings() = 0;
    virtual void openBackup() = 0;
    // The logged-in user's entry: log in when nobody is, otherwise log out or switch user.
    virtual void openUserMenu() = 0;
    // Locks the screen when it is unlocked, asks for a login to unlock it otherwise.
    virtual void toggleLock() = 0;
    virtual void openShutdown() = 0;
    // The analytics applications (face libraries, search, counting, heat maps, statistics).
    virtual void openAnalytics() = 0;
    // The start-up wizard again, on the user's request (task bar, key 95): not a pure
    // virtual, so shells that predate it keep building and answer with a log line.
    virtual void openWizard();
};
