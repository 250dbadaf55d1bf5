#pragma once
// The start-up wizard, opened over the main view on the first start of a device. Its pages
// (language, time, network, disks) come with the settings pages; until then it greets the
// user and closes.
#include "ui/StartupDialog.h"

class WizardWindow : public StartupDialog {
    VY_OBJECT(WizardWindow, StartupDialog)
public:
    WizardWindow();
    // Opens a new wizard; it deletes itself when closed.
    static WizardWindow* open();

private:
    void closed();
};
