#pragma once
// Closes the open modal windows and popups one by one after a period without input: when
// the period runs out the topmost one is closed and the period starts again, so a stack
// of three menus goes away in three steps. Any toolkit input (mouse, wheel, keys) restarts
// the period; the key manager, whose recorder-level key events filters never see, calls
// notifyActivity() itself.
#include "toolkit/core/VyObject.h"

class VyTimer;
class VyWidget;

class WndTimeoutManager : public VyObject {
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
    void setEnabled(bool enabled);
    bool isEnabled() const { return m_enabled; }
    void setFlags(int flags) { m_flags = flags; }
    int flags() const { return m_flags; }
    // Seconds without input before the topmost window closes; 0 counts as 6.
    void setTimeoutSeconds(int seconds);
    int timeoutSeconds() const { return m_timeoutSeconds; }
    // The single-shot interval now in use, in ms (0 while stopped).
    int currentIntervalMs() const;
    bool isTimerActive() const;

    // Input arrived: the period starts again.
    void notifyActivity();
    // The period ran out: closes the topmost eligible window and starts the next period
    // while windows remain open.
    void onTimeout();

    bool eventFilter(VyObject* watched, VyEvent* e) override;

private:
    bool eligible(const VyWidget* window) const;
    void restart();

    VyTimer* m_timer;
    bool m_enabled = false;
    int m_flags = CloseModalWindows | ClosePopups;
    int m_timeoutSeconds = kDefaultTimeoutSeconds;
};
