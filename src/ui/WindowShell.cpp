#include "ui/WindowShell.h"

#include "model/OutputSettingsBlock.h"
#include "model/UiManager.h"
#include "runtime/VyLog.h"

// The windows the shell opened; the widget tree owns them once shown.
struct WindowShell::Windows {};

WindowShell::WindowShell()
    : m_windows(std::make_unique<Windows>()) {}
WindowShell::~WindowShell() = default;

void WindowShell::showMessage(const VyString& text) {
    VY_GUI_LOG("message box: %s\n", text.c_str());
}

void WindowShell::showMainView() {
    VY_GUI_LOG("main view shown\n");
}

int WindowShell::confirmResolution(bool noticeOnly, int resolution) {
    VY_GUI_LOG("resolution %s %s\n", UiManager::outputResolutionName(resolution).c_str(),
               noticeOnly ? "was not kept" : "needs confirming");
    return 0;
}

void WindowShell::applyOutputMode(const OutputSettingsBlock& block, bool restorePrevious) {
    VY_GUI_LOG("output mode %s%s\n", UiManager::outputResolutionName(block.resolution).c_str(),
               restorePrevious ? ", previous output restored" : "");
}

void WindowShell::openStartupWizard() {
    VY_GUI_LOG("start-up wizard shown\n");
}
