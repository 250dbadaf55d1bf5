// Every dialog and page of the application, walked with the arrow keys: from any control the
// key navigation can stop on, repeated arrows reach every other such control of the window.
// A window where that fails is reported with the controls that cannot be reached.
#include "platform/keys/VyScriptedKeyLibrary.h"
#include "runtime/VyFontMetrics.h"
#include "runtime/VyResources.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VyScreenCursor.h"
#include "toolkit/events/DvrKeyEvent.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/input/VyKeyManager.h"
#include "ui/MainViewWindow.h"
#include "ui/MessageBox.h"
#include "ui/ResolutionConfirmDialog.h"
#include "ui/WizardWindow.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace {

constexpr const char* kFont = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";
constexpr uint32_t kArrows[] = {VyKeyManager::KeyUp, VyKeyManager::KeyDown, VyKeyManager::KeyLeft,
                                VyKeyManager::KeyRight};

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
    {"MainViewWindow", [] { return new MainViewWindow; }},
};

void collectFocusable(VyWidget* w, std::vector<VyWidget*>* out) {
    if (VyKeyManager::isFocusable(w))
        out->push_back(w);
    for (VyObject* child : w->children())
        if (child->isWidgetType())
            collectFocusable(static_cast<VyWidget*>(child), out);
}

std::string describe(const VyWidget* w) {
    const VyPoint g = w->mapToGlobal(VyPoint(0, 0));
    return w->className().toStdString() + "@" + std::to_string(g.x) + "," + std::to_string(g.y);
}

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
        library = std::make_shared<VyScriptedKeyLibrary>();
        VyKeyManager::Setup setup;
        setup.library = library;
        setup.startPollThread = false;
        keys = std::make_unique<VyKeyManager>(setup);
    }
    void TearDown() override {
        keys.reset();
        app.reset();
        VyTranslation::resetInstance();
    }

    // Where one arrow key takes the key focus from `from`.
    VyWidget* step(VyWidget* from, uint32_t arrow) {
        keys->setKeyFocusWidget(from);
        library->press(arrow);
        keys->pollOnce();
        app->processPostedEvents();
        return keys->keyFocusWidget();
    }

    // The controls each focusable control cannot reach; empty when the window passes.
    std::vector<std::string> unreachable(VyWidget* window) {
        std::vector<VyWidget*> controls;
        collectFocusable(window, &controls);
        std::map<VyWidget*, std::set<VyWidget*>> edges;
        for (VyWidget* c : controls)
            for (uint32_t arrow : kArrows)
                if (VyWidget* to = step(c, arrow))
                    edges[c].insert(to);
        std::vector<std::string> failures;
        for (VyWidget* start : controls) {
            std::set<VyWidget*> seen{start};
            std::vector<VyWidget*> todo{start};
            while (!todo.empty()) {
                VyWidget* w = todo.back();
                todo.pop_back();
                for (VyWidget* next : edges[w])
                    if (seen.insert(next).second)
                        todo.push_back(next);
            }
            for (VyWidget* c : controls)
                if (seen.count(c) == 0)
                    failures.push_back("from " + describe(start) + " not to " + describe(c));
        }
        return failures;
    }

    VyTranslation* translation = nullptr;
    std::unique_ptr<VyApplication> app;
    std::shared_ptr<VyScriptedKeyLibrary> library;
    std::unique_ptr<VyKeyManager> keys;
};

} // namespace

TEST_F(KeyNavigationProperty, ArrowsReachEveryControlOfEveryWindow) {
    int windowsWithControls = 0;
    for (const WindowFactory& factory : kWindows) {
        std::unique_ptr<VyWidget> window(factory.make());
        window->show();
        app->processPostedEvents();
        std::vector<VyWidget*> controls;
        collectFocusable(window.get(), &controls);
        windowsWithControls += controls.empty() ? 0 : 1;
        for (const std::string& failure : unreachable(window.get()))
            ADD_FAILURE() << factory.name << ": " << failure;
        window->hide();
        app->processPostedEvents();
    }
    EXPECT_GT(windowsWithControls, 0) << "no window offered a control to walk";
}
