#pragma once
// The window layer behind the UiManager: the message box, the main view, the resolution
// confirmation dialog and the start-up wizard.
#include "model/UiShell.h"

#include <memory>

class VyObject;

class WindowShell : public UiShell {
public:
    WindowShell();
    ~WindowShell() override;

    void showMessage(const VyString& text) override;
    void showMainView() override;
    int confirmResolution(bool noticeOnly, int resolution) override;
    void applyOutputMode(const OutputSettingsBlock& block, bool restorePrevious) override;
    void openStartupWizard() override;

private:
    struct Windows;
    std::unique_ptr<Windows> m_windows;
};
