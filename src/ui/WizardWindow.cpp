#include "ui/WizardWindow.h"

#include "toolkit/i18n/TextId.h"

namespace {
constexpr int kDesignWidth = 1000; // pixels at 1920x1080
constexpr int kDesignHeight = 640;
} // namespace

WizardWindow::WizardWindow()
    : StartupDialog(TextId::Wizard::Title, TextId::Wizard::Welcome) {
    addButton(TextId::Common::Close, 0);
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
