#pragma once
// The window layer behind the UiManager: the message box, the main view, the resolution
// confirmation dialog and the start-up wizard. Each action also leaves one log line, the
// trace a field engineer reads.
#include "model/UiShell.h"
#include "ui/ShellActions.h"

#include "toolkit/core/VyPointer.h"

#include <map>
#include <memory>
#include <vector>

class AnalyticsWindow;
class MainViewWindow;
class SettingsManager;
class VyWidget;

class WindowShell : public UiShell, public ShellActions {
public:
    WindowShell();
    ~WindowShell() override;

    void showMessage(uint32_t textId) override;
    void showMainView() override;
    int confirmResolution(bool noticeOnly, int resolution) override;
    void applyOutputMode(const OutputSettingsBlock& block, bool restorePrevious) override;
    void openStartupWizard() override;

    // Shortens the dialogs' countdowns by this factor (test runs); 1 on the device.
    void setTimeScale(double scale) { m_timeScale = scale > 0 ? scale : 1.0; }
    MainViewWindow* mainView() const { return m_mainView.get(); }
    // The screens the main view opens (ShellActions). Installed as the instance while the
    // shell lives.
    void openPlayback(int channel, int64_t atSeconds) override;
    // The manager of the settings window lives with the shell.
    void openSettings() override;
    void openBackup() override;
    void openUserMenu() override;
    void toggleLock() override;
    void openShutdown() override;
    void openAnalytics() override;
    SettingsManager* settings() const { return m_settings.get(); }
    // Dialogs shown and not yet dismissed (they delete themselves when dismissed).
    int openDialogCount() const;
    // Deletes every window still open; start-up calls it after the loop, before the
    // application object goes.
    void closeAll();

private:
    void keep(VyWidget* dialog);
    void forgetClosed();

    std::unique_ptr<MainViewWindow> m_mainView;  // top-level: no parent owns it
    std::unique_ptr<SettingsManager> m_settings; // made on first use; owns its window
    // The self-deleting dialogs still open: not owned while open, since each deletes
    // itself when dismissed; whatever is left at the end goes with the shell's windows.
    std::vector<VyPointer<VyWidget>> m_open;
    // The message box open for each notice text, so a repeated notice is not stacked.
    std::map<uint32_t, VyPointer<VyWidget>> m_messages;
    // The analytics window while open (it deletes itself when closed).
    VyPointer<AnalyticsWindow> m_analytics;
    double m_timeScale = 1.0;
};
