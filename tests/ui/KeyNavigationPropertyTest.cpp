// Every dialog and page of the application, walked with the arrow keys: from any control the
// key navigation can stop on, repeated arrows reach every other such control of the window.
// A window where that fails is reported with the controls that cannot be reached.
#include "toolkit/input/KeyReachability.h"

#include "runtime/VyFontMetrics.h"
#include "runtime/VyResources.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VyScreenCursor.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "ui/MainViewWindow.h"
#include "ui/MessageBox.h"
#include "ui/ResolutionConfirmDialog.h"
#include "ui/WizardWindow.h"
#include "ui/maintenance/BackupWindow.h"
#include "ui/maintenance/ProgressDialog.h"
#include "ui/maintenance/ShutdownDialog.h"
#include "ui/maintenance/SystemLogWindow.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>

namespace {

constexpr const char* kFont = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";

// The windows of the application. A new dialog or page is added here.
struct WindowFactory {
    const char* name;
    std::function<VyWidget*()> make;
};
const WindowFactory kWindows[] = {
    {"MessageBox", [] { return new MessageBox(TextId::SystemNotice::ShuttingDown); }},
    {"ResolutionConfirmDialog", [] { return new ResolutionConfirmDialog("720p", false); }},
    {"ResolutionConfirmDialog (notice)", [] { return new ResolutionConfirmDialog("720p", true); }},
    {"WizardWindow", [] { return new WizardWindow; }},
    {"ShutdownDialog", [] { return new ShutdownDialog; }},
    {"BackupWindow", [] { return new BackupWindow(4); }},
    {"SystemLogWindow", [] { return new SystemLogWindow; }},
    {"ProgressDialog", [] { return new ProgressDialog(TextId::LiveView::MenuBackup, true); }},
    {"MainViewWindow", [] { return new MainViewWindow; }},
};

class KeyNavigationProperty : public ::testing::Test {
protected:
    void SetUp() override {
        VyResources::setRoot(VY_RESOURCES_DIR);
        VyFontMetrics::setFontFile(kFont, 5242880);
        translation = new VyTranslation(VyString(VY_RESOURCES_DIR "/language"), nullptr);
        VyTranslation::resetInstance(translation);
        translation->changeLanguage(VyTranslation::kEnglish);
        VyApplication::setDisplayDevice("mem:1280x720");
        app = std::make_unique<VyApplication>();
        app->screen()->cursor()->hide();
    }
    void TearDown() override {
        app.reset();
        VyTranslation::resetInstance();
    }

    VyTranslation* translation = nullptr;
    std::unique_ptr<VyApplication> app;
};

} // namespace

TEST_F(KeyNavigationProperty, ArrowsReachEveryControlOfEveryWindow) {
    int windowsWithControls = 0;
    for (const WindowFactory& factory : kWindows) {
        std::unique_ptr<VyWidget> window(factory.make());
        window->show();
        app->processPostedEvents();
        std::vector<VyWidget*> controls;
        keyreach::collectFocusable(window.get(), &controls);
        windowsWithControls += controls.size() > 1 ? 1 : 0;
        for (const std::string& failure : keyreach::unreachable(app.get(), window.get()))
            ADD_FAILURE() << factory.name << ": " << failure;
        window->hide();
        app->processPostedEvents();
    }
    EXPECT_GT(windowsWithControls, 0) << "no window offered two controls to walk between";
}
