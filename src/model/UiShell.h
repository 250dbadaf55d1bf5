#pragma once
// What the UiManager asks of the window layer. The model layer cannot include windows, so
// the ui layer installs an implementation at start-up; tests install a recording double.
#include <cstdint>

struct OutputSettingsBlock;

class UiShell {
public:
    virtual ~UiShell() = default;

    // A modal message box with the catalogue text `textId` and an OK button; returns at
    // once, the box stays until dismissed.
    virtual void showMessage(uint32_t textId) = 0;
    virtual void showMainView() = 0;
    // The resolution confirmation dialog. The notice form tells the user a change was not
    // kept and returns at once (result 0); otherwise it runs modally and returns 1 when the
    // user keeps the new resolution.
    virtual int confirmResolution(bool noticeOnly, int resolution) = 0;
    // Puts the outputs in the mode the block describes; with restorePrevious the previous
    // output is brought back as well.
    virtual void applyOutputMode(const OutputSettingsBlock& block, bool restorePrevious) = 0;
    virtual void openStartupWizard() = 0;
};
