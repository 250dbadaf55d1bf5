// The control gallery's live row, the page with the most kinds of standard control side by
// side, walked with the arrow keys: every control reaches every other.
#include "ControlGallery.h"
#include "toolkit/input/KeyReachability.h"

#include "runtime/VyFontEngine.h"
#include "runtime/VyResources.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VyScreenCursor.h"
#include "toolkit/style/VyStyle.h"

#include <gtest/gtest.h>

TEST(ControlGalleryKeys, ArrowsReachEveryLiveControl) {
    VyResources::setRoot(VY_RESOURCES_DIR);
    VyFontEngine::instance().setFontFile("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf",
                                         VyFontEngine::kDeviceFontReserveBytes);
    VyApplication::setDisplayDevice("mem:1920x1080");
    VyApplication::setTimerClock([] { return int64_t(0); });
    {
        VyApplication app;
        app.screen()->cursor()->hide();
        VyStyle::instance()->followScreen(app.screen());
        ControlGallery gallery(1920, 1080);
        gallery.showPage();
        app.processPostedEvents();
        std::vector<VyWidget*> controls;
        keyreach::collectFocusable(&gallery, &controls);
        EXPECT_GE(controls.size(), 8u);
        for (const std::string& failure : keyreach::unreachable(&app, &gallery))
            ADD_FAILURE() << failure;
    }
    VyApplication::setTimerClock(nullptr);
}
