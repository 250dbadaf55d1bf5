#pragma once
// The start-up wizard over the main view: the first settings a new recorder needs, one step
// at a time (language, administrator password, date and time, network, disks, cameras,
// recording), with Back, Skip, Next and Finish, and "do not show again". Each step is the
// settings page for that subject, embedded (the settings window's own; the administrator
// password's comes with the users screens): Next writes what that page changed exactly as
// its Apply would, Skip and Back leave App alone.
//
// Colours from "style/wizard.ini". Opening a step fetches its blocks, which runs the event
// loop: the wizard may be closed meanwhile, so callers hold a VyPointer across open().
#include "protocol/GeneralSettingsBlock.h"
#include "toolkit/core/VyPointer.h"
#include "toolkit/widgets/VyDialog.h"
#include "ui/settings/SettingsPageHost.h"

#include <cstdint>
#include <vector>

struct DeviceProfile;
class SettingsPage;
class VyCheckBox;
class VyPushButton;

class WizardWindow : public VyDialog {
    VY_OBJECT(WizardWindow, VyDialog)
public:
    static constexpr const char* kStyleFile = "style/wizard.ini";

    struct Step {
        uint32_t titleId = 0;
        SettingsPage* (*make)(VyWidget* parent) = nullptr;
    };
    // The steps this model offers, in the order the wizard walks them.
    static std::vector<Step> steps(const DeviceProfile& profile);

    WizardWindow();
    ~WizardWindow() override;
    // Shows a new wizard that deletes itself when closed; start() then fills it.
    static WizardWindow* create();
    // create() and start(); null when the wizard was closed while its first step opened.
    static WizardWindow* open();
    // Reads the "do not show again" state from App and shows the first step.
    void start();

    int stepIndex() const { return m_index; }
    int stepCount() const { return int(m_steps.size()); }
    const Step& step(int index) const { return m_steps[size_t(index)]; }
    SettingsPage* page() const;
    VyCheckBox* doNotShowBox() const { return m_doNotShow; }
    VyPushButton* backButton() const { return m_back; }
    VyPushButton* skipButton() const { return m_skip; }
    VyPushButton* nextButton() const { return m_next; }
    VyPushButton* finishButton() const { return m_finish; }

    // False when the step's page holds a value that cannot be sent (a message says so).
    bool next();
    void skip();
    void back();
    bool finish();
    // Also writes "do not show again" when it changed, however the wizard ends.
    void done(int result) override;

protected:
    void retranslate() override;
    void paintEvent(VyPaintEvent* e) override;
    void resizeEvent(VyResizeEvent* e) override;

private:
    bool showStep(int index);
    void dropPage();
    // The step's page applied: false (the wizard stays on it) when it was refused or the
    // wizard went meanwhile.
    bool applyPage(SettingsPage* page);
    void keepGeneralCopy(SettingsPage* page);
    void syncButtons();
    VyRect stepStripRect() const;
    VyRect pageArea() const;
    VyRect footerRect() const;
    void nextClicked() { next(); }
    void finishClicked() { finish(); }

    std::vector<Step> m_steps;
    int m_index = -1;
    SettingsPageHost m_host;
    bool m_closeAfterOpen = false; // closed while the page was opening
    int m_closeResult = 0;
    // Block 21 as App last had it from the wizard, for the start-up switch behind "do not
    // show again"; valid once read.
    GeneralSettingsBlock m_general{};
    bool m_generalRead = false;
    VyCheckBox* m_doNotShow;
    VyPushButton* m_back;
    VyPushButton* m_skip;
    VyPushButton* m_next;
    VyPushButton* m_finish;
    vyargb m_background;
    vyargb m_border;
    vyargb m_footer;
    vyargb m_stepDone;
    vyargb m_stepCurrent;
    vyargb m_stepTodo;
};
