#include <gtest/gtest.h>

#include "platform/display/VyWindowFit.h"

TEST(WindowFit, WholeScalesWhenTheyFitFractionsWhenNot) {
    EXPECT_EQ(VyWindowFit::windowSize(VySize(800, 600), VySize(1920, 1200)), VySize(1600, 1200));
    EXPECT_EQ(VyWindowFit::windowSize(VySize(1280, 720), VySize(1920, 1040)), VySize(1280, 720));
    EXPECT_EQ(VyWindowFit::windowSize(VySize(3840, 2160), VySize(1920, 1040)), VySize(1848, 1040));

    // A resized window shows the picture centred, proportions kept.
    EXPECT_EQ(VyWindowFit::picture(VySize(1280, 720), VySize(2600, 1500)),
              VyRect(20, 30, 2560, 1440));
    EXPECT_EQ(VyWindowFit::picture(VySize(1920, 1080), VySize(960, 600)), VyRect(0, 30, 960, 540));
}

TEST(WindowFit, PointerPositionsMapBackToFramebufferPixels) {
    const VySize fb(1920, 1080);
    const VySize window(960, 600); // half size, bars of 30 above and below
    EXPECT_EQ(VyWindowFit::toFramebuffer(VyPoint(0, 30), fb, window), VyPoint(0, 0));
    EXPECT_EQ(VyWindowFit::toFramebuffer(VyPoint(480, 300), fb, window), VyPoint(960, 540));
    EXPECT_EQ(VyWindowFit::toFramebuffer(VyPoint(959, 569), fb, window), VyPoint(1918, 1078));
    // On the bars or outside: held at the edge.
    EXPECT_EQ(VyWindowFit::toFramebuffer(VyPoint(-5, 0), fb, window), VyPoint(0, 0));
    EXPECT_EQ(VyWindowFit::toFramebuffer(VyPoint(2000, 599), fb, window), VyPoint(1919, 1079));
    // Twice the size: every framebuffer pixel is two window pixels wide.
    EXPECT_EQ(VyWindowFit::toFramebuffer(VyPoint(3, 5), VySize(800, 600), VySize(1600, 1200)),
              VyPoint(1, 2));
}
