#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/events/VyEvent.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <unistd.h>

TEST(ApplicationStart, UnopenableDisplayExitsWithStatusOneAndSaysWhatToSet) {
    EXPECT_EXIT(
        {
            dup2(STDERR_FILENO, STDOUT_FILENO); // the message goes to standard output
            VyApplication::setDisplayDevice("nonsense:0x0");
            VyApplication app;
        },
        testing::ExitedWithCode(1),
        "\\[GUI-FRAMEWORK\\]: open \\(nonsense:0x0\\) failed, set \"VY_FBDEV_NODE\" env or call "
        "VyApplication::setDisplayDevice\\(\\) !!!");
}

TEST(ApplicationStart, EnvironmentChoosesTheDeviceWhenNoneWasSet) {
    VyApplication::setDisplayDevice(VyString());
    setenv("VY_FBDEV_NODE", "mem:64x48", 1);
    {
        VyApplication app;
        ASSERT_NE(app.screen(), nullptr);
        EXPECT_EQ(app.screen()->width(), 64);
        EXPECT_EQ(app.screen()->height(), 48);
        EXPECT_EQ(VyApplication::instance(), &app);
        VyApplication::postEvent(&app,
                                 std::make_unique<VyEvent>(VyEvent::Show)); // left undelivered
        testing::internal::CaptureStdout();
    }
    std::string out = testing::internal::GetCapturedStdout();
    EXPECT_NE(out.find("All events in the list was distroyed !\n"), std::string::npos);
    unsetenv("VY_FBDEV_NODE");
    EXPECT_EQ(VyApplication::instance(), nullptr);
}
