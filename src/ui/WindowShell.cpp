#include "ui/WindowShell.h"

#include "model/UiManager.h"
#include "protocol/OutputSettingsBlock.h"
#include "runtime/VyLog.h"
#include "toolkit/i18n/VyTranslation.h"
#include "ui/MainViewWindow.h"
#include "ui/MessageBox.h"
#include "ui/ResolutionConfirmDialog.h"
#include "ui/WizardWindow.h"

#include <algorithm>
#include <vector>

namespace {
constexpr int kSecondMs = 1000; // one countdown step on the device
} // namespace

// The self-deleting dialogs still open: they forget themselves when they go, and whatever
// is left at the end is deleted with the shell's windows.
class OpenWindows : public VyObject {
    VY_OBJECT(OpenWindows, VyObject)
public:
    void add(VyWidget* w) {
        m_windows.push_back(w);
        connect(w, &w->destroyed, this, VY_SLOT(OpenWindows, forget));
    }
    void deleteAll() {
        while (!m_windows.empty())
            delete m_windows.back(); // forget() pops it
    }
    int count() const { return int(m_windows.size()); }

private:
    void forget(VyObject* w) {
        m_windows.erase(std::remove(m_windows.begin(), m_windows.end(), w), m_windows.end());
    }
    std::vector<VyWidget*> m_windows; // not owned while open: each deletes itself
};

WindowShell::WindowShell()
    : m_open(std::make_unique<OpenWindows>()) {}

WindowShell::~WindowShell() {
    closeAll();
}

void WindowShell::keep(VyWidget* dialog) {
    m_open->add(dialog);
}

int WindowShell::openDialogCount() const {
    return m_open->count();
}

void WindowShell::closeAll() {
    m_open->deleteAll();
    m_mainView.reset();
}

void WindowShell::showMessage(uint32_t textId) {
    VY_GUI_LOG("message box: %s\n", VyTranslation::tr(textId).c_str());
    keep(MessageBox::information(textId));
}

void WindowShell::showMainView() {
    if (m_mainView == nullptr)
        m_mainView = std::make_unique<MainViewWindow>();
    m_mainView->show();
    VY_GUI_LOG("main view shown\n");
}

int WindowShell::confirmResolution(bool noticeOnly, int resolution) {
    const VyString name = UiManager::outputResolutionName(resolution);
    if (noticeOnly) {
        VY_GUI_LOG("resolution %s was not kept\n", name.c_str());
        auto* notice = new ResolutionConfirmDialog(name, true);
        VyObject::connect(notice, &notice->finished, notice, VY_SLOT(VyObject, deleteLater));
        notice->show();
        keep(notice);
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
    keep(WizardWindow::open());
    VY_GUI_LOG("start-up wizard shown\n");
}
