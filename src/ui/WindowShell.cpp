#include "ui/WindowShell.h"

#include "model/DeviceProfile.h"
#include "model/MainViewManager.h"
#include "model/SystemInfo.h"
#include "model/UiManager.h"
#include "model/UserAccess.h"
#include "protocol/OutputSettingsBlock.h"
#include "protocol/UserRights.h"
#include "runtime/VyLog.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VySingleShotTimer.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/widgets/VyMessageBox.h"
#include "ui/MainViewWindow.h"
#include "ui/MessageBox.h"
#include "ui/ResolutionConfirmDialog.h"
#include "ui/WizardWindow.h"
#include "ui/analytics/AnalyticsCatalogue.h"
#include "ui/analytics/AnalyticsWindow.h"
#include "ui/liveview/LiveViewController.h"
#include "ui/maintenance/BackupWindow.h"
#include "ui/maintenance/ShutdownDialog.h"
#include "ui/playback/PlaybackSearchPanel.h"
#include "ui/playback/PlaybackWindow.h"
#include "ui/settings/SettingsManager.h"
#include "ui/users/ScreenLockWindow.h"

#include <algorithm>
#include <vector>

namespace {
constexpr int kSecondMs = 1000; // one countdown step on the device

WindowShell::UserMenuChoice askUserAction(const VyString& name) {
    VyMessageBox box(VyMessageBox::Question, VyTranslation::tr(TextId::User::LoggedInAs).arg(name),
                     VyMessageBox::Cancel);
    box.addButton(TextId::User::LogOut, WindowShell::LogOut);
    box.addButton(TextId::User::SwitchUser, WindowShell::SwitchUser);
    box.setEscapeResult(WindowShell::KeepUser);
    const int answer = box.exec();
    return answer == WindowShell::LogOut || answer == WindowShell::SwitchUser
               ? WindowShell::UserMenuChoice(answer)
               : WindowShell::KeepUser;
}

} // namespace

WindowShell::WindowShell() {
    ShellActions::install(this);
}

WindowShell::~WindowShell() {
    closeAll();
    if (ShellActions::instance() == this)
        ShellActions::install(nullptr);
}

void WindowShell::forgetClosed() {
    m_open.erase(std::remove_if(m_open.begin(), m_open.end(),
                                [](const VyPointer<VyWidget>& w) { return w.isNull(); }),
                 m_open.end());
}

void WindowShell::keep(VyWidget* dialog) {
    forgetClosed();
    m_open.emplace_back(dialog);
}

int WindowShell::openDialogCount() const {
    return int(std::count_if(m_open.begin(), m_open.end(),
                             [](const VyPointer<VyWidget>& w) { return !w.isNull(); }));
}

void WindowShell::closeAll() {
    // Newest first. Deleting one window may delete others (its children, or dialogs it
    // owns): each guard is read only when its turn comes.
    for (auto w = m_open.rbegin(); w != m_open.rend(); ++w)
        delete w->data();
    m_open.clear();
    m_playback.reset();
    m_settings.reset();
    m_lockWindow.reset();
    m_mainView.reset();
}

void WindowShell::openSettings() {
    if (!m_settings)
        m_settings = std::make_unique<SettingsManager>();
    m_settings->openWindow();
    VY_GUI_LOG("settings window opened\n");
}

void WindowShell::openPlayback(int channel, int64_t atSeconds) {
    if (UserAccess* access = UserAccess::instance()) {
        if (!access->ensure(UserRights::kPlayback, channel)) {
            VY_GUI_LOG("playback of channel %d refused\n", channel);
            return;
        }
    }
    if (!m_playback) {
        m_playback = std::make_unique<PlaybackWindow>(SystemInfo::record().channelCount);
        VyObject::connect(
            m_playback.get(), &m_playback->closed, m_playback.get(), [](VyObject*, VyObject*) {
                if (auto* shell = dynamic_cast<WindowShell*>(ShellActions::instance()))
                    shell->returnToLiveView();
            });
    }
    // The live view's decoders give way to playback until the window closes.
    if (MainViewManager* manager = MainViewManager::instance())
        manager->setShown(false);
    const VyDateTime from = VyDateTime::fromTime_t(atSeconds);
    if (channel >= 0 && atSeconds > 0 && from.isValid()) {
        m_playback->openAt(channel, from);
        VY_GUI_LOG("playback of channel %d from %s\n", channel + 1,
                   from.toString("yyyy/MM/dd hh:mm:ss").c_str());
    } else {
        // A channel without a time: its day is searched, the channel alone.
        for (int c = 0; channel >= 0 && c < PlaybackSearchPanel::kMaxChannels; ++c)
            m_playback->searchPanel()->setChannelChecked(c, c == channel);
        m_playback->openSearch();
        VY_GUI_LOG("playback search opened\n");
    }
}

void WindowShell::returnToLiveView() {
    MainViewManager* manager = MainViewManager::instance();
    if (manager != nullptr)
        manager->setShown(true);
    // The main view stays where it is in the stack: playback may have been opened over
    // another screen (settings, with the playback key), which must come back above it.
    if (m_mainView != nullptr)
        // The first record after the view is shown again restarts every live decoder.
        m_mainView->controller()->sendPreview();
    if (manager != nullptr)
        manager->announceLiveView();
    VY_GUI_LOG("playback closed, live view in front\n");
}

void WindowShell::openBackup() {
    if (UserAccess* users = UserAccess::instance();
        users != nullptr && !users->ensure(UserRights::kBackup))
        return;
    auto* backup = new BackupWindow(SystemInfo::record().channelCount);
    VyObject::connect(backup, &backup->finished, backup, VY_SLOT(VyObject, deleteLater));
    keep(backup);
    VY_GUI_LOG("backup window shown\n");
    backup->open(); // asks App for the USB stick's room
}

void WindowShell::openUserMenu() {
    UserAccess* access = UserAccess::instance();
    if (access == nullptr) {
        VY_GUI_LOG("user menu: no user access\n");
        return;
    }
    const UserAccess::User* user = access->currentUser();
    if (user == nullptr) {
        access->promptLogin();
        return;
    }
    const VyString name = user->name;
    const UserMenuChoice choice =
        m_chooseUserAction ? m_chooseUserAction(name) : askUserAction(name);
    if (choice == LogOut) {
        access->logout();
    } else if (choice == SwitchUser) {
        // The one logged in stays until somebody else gets in.
        access->promptLogin();
    }
}

void WindowShell::toggleLock() {
    UserAccess* access = UserAccess::instance();
    if (access == nullptr) {
        VY_GUI_LOG("screen lock: no user access\n");
        return;
    }
    if (access->isScreenLocked()) {
        access->unlockScreen();
        return;
    }
    if (!m_lockWindow)
        m_lockWindow = std::make_unique<ScreenLockWindow>(access);
    access->lockScreen();
}

void WindowShell::openShutdown() {
    auto* dialog = new ShutdownDialog;
    VyObject::connect(dialog, &dialog->finished, dialog, VY_SLOT(VyObject, deleteLater));
    dialog->show();
    keep(dialog);
    VY_GUI_LOG("shutdown dialog shown\n");
}

void WindowShell::openAnalytics() {
    if (m_analytics) {
        m_analytics->showAgain();
        VY_GUI_LOG("analytics window shown again\n");
        return;
    }
    auto* w = new AnalyticsWindow(DeviceProfile::current());
    for (const AnalyticsApplication& a : AnalyticsCatalogue::applications())
        w->addApplication(a);
    if (VyApplication* app = VyApplication::instance(); app && app->screen())
        w->setGeometry(0, 0, app->screen()->width(), app->screen()->height());
    w->show();
    m_analytics.reset(w);
    keep(w);
    VY_GUI_LOG("analytics window opened with %d applications\n", w->applicationCount());
}

void WindowShell::showMessage(uint32_t textId) {
    // A notice App repeats (busy, say) brings its open box to the front instead of
    // stacking one more box that the user must dismiss.
    forgetClosed();
    auto open = m_messages.find(textId);
    if (open != m_messages.end() && !open->second.isNull()) {
        open->second->raise();
        VY_GUI_LOG("message box: %s (again)\n", VyTranslation::tr(textId).c_str());
        return;
    }
    MessageBox* box = MessageBox::information(textId);
    m_messages[textId].reset(box);
    keep(box);
    // Printed once the box is up: a watcher of the log may act on what it announces.
    VY_GUI_LOG("message box: %s\n", VyTranslation::tr(textId).c_str());
}

void WindowShell::showMainView() {
    if (m_mainView == nullptr)
        m_mainView = std::make_unique<MainViewWindow>();
    m_mainView->show();
    if (MainViewManager* manager = MainViewManager::instance())
        manager->setShown(true);
    VY_GUI_LOG("main view shown\n");
    // After the line: dealing asks App for the camera roster, and the first frame may be
    // flushed while that request waits.
    m_mainView->startLiveView(SystemInfo::record().channelCount);
}

int WindowShell::confirmResolution(bool noticeOnly, int resolution) {
    const VyString name = UiManager::outputResolutionName(resolution);
    if (noticeOnly) {
        auto* notice = new ResolutionConfirmDialog(name, true);
        VyObject::connect(notice, &notice->finished, notice, VY_SLOT(VyObject, deleteLater));
        notice->show();
        keep(notice);
        VY_GUI_LOG("resolution %s was not kept\n", name.c_str());
        return 0;
    }
    VY_GUI_LOG("resolution %s needs confirming\n", name.c_str());
    ResolutionConfirmDialog dialog(name, false);
    const int step = int(kSecondMs * m_timeScale);
    dialog.setSecondMs(step < 1 ? 1 : step);
    const int result = dialog.run();
    VY_GUI_LOG("resolution %s %s\n", name.c_str(), result == 1 ? "kept" : "reverted");
    return result;
}

void WindowShell::applyOutputMode(const OutputSettingsBlock& block, bool restorePrevious) {
    // The video outputs belong to App's display driver; the GUI's framebuffer keeps its
    // size until App reports the new mode.
    VY_GUI_LOG("output mode %s%s\n", UiManager::outputResolutionName(block.resolution).c_str(),
               restorePrevious ? ", previous output restored" : "");
}

void WindowShell::openStartupWizard() {
    if (!m_wizard.isNull()) {
        m_wizard->raise();
        return;
    }
    WizardWindow* wizard = WizardWindow::create();
    m_wizard.reset(wizard);
    keep(wizard);
    VY_GUI_LOG("start-up wizard shown\n");
    // Filled on the next turn of the loop, not here: filling waits for App in a nested loop,
    // and this may be called from inside a key's or a menu's handling.
    VySingleShotTimer::singleShot(0, wizard, VY_SLOT(WizardWindow, start));
}

void WindowShell::openWizard() {
    openStartupWizard();
}
