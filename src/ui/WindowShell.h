#pragma once
// The window layer behind the UiManager: the message box, the main view, the resolution
// confirmation dialog and the start-up wizard. Each action also leaves one log line, the
// trace a field engineer reads.
#include "model/UiShell.h"

class MainViewWindow;

class WindowShell : public UiShell {
public:
    WindowShell() = default;
    ~WindowShell() override = default;

    void showMessage(const VyString& text) override;
    void showMainView() override;
    int confirmResolution(bool noticeOnly, int resolution) override;
    void applyOutputMode(const OutputSettingsBlock& block, bool restorePrevious) override;
    void openStartupWizard() override;

    // Shortens the dialogs' countdowns by this factor (test runs); 1 on the device.
    void setTimeScale(double scale) { m_timeScale = scale > 0 ? scale : 1.0; }
    MainViewWindow* mainView() const { return m_mainView; }

private:
    MainViewWindow* m_mainView = nullptr; // top-level, lives to process end
    double m_timeScale = 1.0;
};
