#pragma once
// The window layer behind the UiManager: the message box, the main view, the resolution
// confirmation dialog and the start-up wizard. Each action also leaves one log line, the
// trace a field engineer reads.
#include "model/UiShell.h"
#include "ui/ShellActions.h"

#include "runtime/VyString.h"

#include "toolkit/core/VyPointer.h"

#include <functional>
#include <map>
#include <memory>
#include <vector>

class AnalyticsWindow;
class MainViewWindow;
class ScreenLockWindow;
class PlaybackWindow;
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
    void openWizard() override;
    SettingsManager* settings() const { return m_settings.get(); }
    // What the user entry offers a logged-in user.
    // Apart from the message box's own button results (1, 2, 4, 8).
    enum UserMenuChoice { KeepUser = 0, LogOut = 16, SwitchUser = 32 };
    // Asks which (a message box by default; tests answer it themselves).
    using UserMenuChooser = std::function<UserMenuChoice(const VyString& userName)>;
    void setUserMenuChooser(UserMenuChooser chooser) { m_chooseUserAction = std::move(chooser); }
    // Made at the first lock; shows itself while the screen is locked.
    ScreenLockWindow* lockWindow() const { return m_lockWindow.get(); }
    // Made on first use, kept (hidden) between uses so its search and zoom survive.
    PlaybackWindow* playback() const { return m_playback.get(); }
    // The playback window closed: the live view takes the screen and App's decoders back.
    void returnToLiveView();
    // Dialogs shown and not yet dismissed (they delete themselves when dismissed).
    int openDialogCount() const;
    // Deletes every window still open; start-up calls it after the loop, before the
    // application object goes.
    void closeAll();

private:
    void keep(VyWidget* dialog);
    void forgetClosed();

    std::unique_ptr<MainViewWindow> m_mainView;     // top-level: no parent owns it
    std::unique_ptr<SettingsManager> m_settings;    // made on first use; owns its window
    std::unique_ptr<ScreenLockWindow> m_lockWindow; // top-level: no parent owns it
    UserMenuChooser m_chooseUserAction;
    std::unique_ptr<PlaybackWindow> m_playback; // top-level, made on first use
    // The self-deleting dialogs still open: not owned while open, since each deletes
    // itself when dismissed; whatever is left at the end goes with the shell's windows.
    std::vector<VyPointer<VyWidget>> m_open;
    // The message box open for each notice text, so a repeated notice is not stacked.
    std::map<uint32_t, VyPointer<VyWidget>> m_messages;
    // The analytics window while open (it deletes itself when closed).
    VyPointer<AnalyticsWindow> m_analytics;
    double m_timeScale = 1.0;
    VyPointer<VyWidget> m_wizard; // the one wizard open, whoever opened it
};
