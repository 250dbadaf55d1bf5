#pragma once
// Asks whether to keep a new output resolution. The user has a countdown to answer; when it
// runs out (a monitor that shows nothing cannot be answered) the old resolution comes back.
// The notice form only says that a change was not kept.
#include "ui/StartupDialog.h"

class VyTimer;

class ResolutionConfirmDialog : public StartupDialog {
    VY_OBJECT(ResolutionConfirmDialog, StartupDialog)
public:
    static constexpr int kKeep = 1;
    static constexpr int kRevert = 0;
    static constexpr int kCountdownSeconds = 15;

    // `resolutionName` as UiManager::outputResolutionName gives it.
    ResolutionConfirmDialog(const VyString& resolutionName, bool noticeOnly);

    // The length of one countdown step; 1000 ms on the device, shorter in test runs.
    void setSecondMs(int ms) { m_secondMs = ms; }
    int secondsLeft() const { return m_secondsLeft; }
    // exec() with the countdown running.
    int run();

protected:
    void retranslate() override;

private:
    void countDown();
    // The notice or the countdown question, in the current language.
    VyString composedText() const;

    VyString m_resolution;
    VyTimer* m_timer = nullptr;
    bool m_noticeOnly;
    int m_secondMs = 1000;
    int m_secondsLeft = kCountdownSeconds;
};
