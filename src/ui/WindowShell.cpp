#include "ui/WindowShell.h"

#include "model/MainViewManager.h"
#include "model/SystemInfo.h"
#include "model/UiManager.h"
#include "model/UserAccess.h"
#include "protocol/OutputSettingsBlock.h"
#include "runtime/VyLog.h"
#include "toolkit/core/VySingleShotTimer.h"
#include "toolkit/i18n/VyTranslation.h"
#include "ui/MainViewWindow.h"
#include "ui/MessageBox.h"
#include "ui/ResolutionConfirmDialog.h"
#include "ui/WizardWindow.h"
#include "ui/maintenance/BackupWindow.h"
#include "ui/maintenance/ShutdownDialog.h"
#include "ui/settings/SettingsManager.h"

#include <algorithm>
#include <vector>

namespace {
constexpr int kSecondMs = 1000; // one countdown step on the device
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
    m_settings.reset();
    m_mainView.reset();
}

void WindowShell::openSettings() {
    if (!m_settings)
        m_settings = std::make_unique<SettingsManager>();
    m_settings->openWindow();
    VY_GUI_LOG("settings window opened\n");
}

void WindowShell::openPlayback(int channel, int64_t atSeconds) {
    VY_GUI_LOG("playback of channel %d at %lld not available\n", channel, (long long)atSeconds);
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
    VY_GUI_LOG("user menu not available\n");
}

void WindowShell::toggleLock() {
    VY_GUI_LOG("screen lock not available\n");
}

void WindowShell::openShutdown() {
    auto* dialog = new ShutdownDialog;
    VyObject::connect(dialog, &dialog->finished, dialog, VY_SLOT(VyObject, deleteLater));
    dialog->show();
    keep(dialog);
    VY_GUI_LOG("shutdown dialog shown\n");
}

void WindowShell::openAnalytics() {
    VY_GUI_LOG("analytics not available\n");
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
