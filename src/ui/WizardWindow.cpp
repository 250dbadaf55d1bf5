#include "ui/WizardWindow.h"

namespace {
constexpr int kDesignWidth = 1000; // pixels at 1920x1080
constexpr int kDesignHeight = 640;
} // namespace

WizardWindow::WizardWindow()
    : StartupDialog(VyString("Start-up Wizard"),
                    VyString("Welcome. The wizard guides you through the first settings.")) {
    addButton(VyString("Close"), 0);
    place(kDesignWidth, kDesignHeight);
    connect(this, &finished, this, VY_SLOT(WizardWindow, closed));
}

WizardWindow* WizardWindow::open() {
    auto* w = new WizardWindow;
    w->show();
    return w;
}

void WizardWindow::closed() {
    deleteLater();
}
