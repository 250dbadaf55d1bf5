#pragma once
// Closes the open modal windows and popups one by one after a period without input: it is
// an inactivity trigger on the application's idle count (one tick a second), so when the
// count passes the period the topmost one is closed, and while more stay open the next
// closes one period later. Any input sets the idle count back (the application does that
// for the mouse and toolkit keys; the key manager, whose recorder-level key events filters
// never see, calls notifyActivity()).
#include "toolkit/core/VyMouseTrigger.h"
#include "toolkit/core/VyObject.h"

class VyWidget;

class WndTimeoutManager : public VyObject, public VyMouseTrigger {
    VY_OBJECT(WndTimeoutManager, VyObject)
public:
    // What a time-out may close.
    enum Flag { CloseModalWindows = 1, ClosePopups = 2 };

    static constexpr int kDefaultTimeoutSeconds = 60;
    // What a time-out of 0 seconds stands for.
    static constexpr int kZeroTimeoutSeconds = 6;

    explicit WndTimeoutManager(VyObject* parent = nullptr);
    ~WndTimeoutManager() override;

    // Disabled by default: the settings page that owns the menu time-out turns it on.
    void setEnabled(bool enabled) { VyMouseTrigger::setEnabled(enabled); }
    bool isEnabled() const { return VyMouseTrigger::isEnabled(); }
    void setFlags(int flags) { m_flags = flags; }
    int flags() const { return m_flags; }
    // Seconds without input before the topmost window closes; 0 counts as 6.
    void setTimeoutSeconds(int seconds);
    int timeoutSeconds() const { return m_timeoutSeconds; }
    // The idle ticks one period lasts.
    int periodTicks() const;

    // Input arrived: the period starts again.
    void notifyActivity();

    // The period ran out, whether or not a window was there to close (the user who left
    // the menus is logged out on it).
    VySignal timedOut;

    void onActivity() override;
    // The period ran out: closes the topmost eligible window; while windows remain open the
    // next one closes a period later.
    void onIdleTimeout() override;

    bool eventFilter(VyObject* watched, VyEvent* e) override;

private:
    bool eligible(const VyWidget* window) const;
    // Back to one period after the last input.
    void rearm();

    int m_flags = CloseModalWindows | ClosePopups;
    int m_timeoutSeconds = kDefaultTimeoutSeconds;
};
