#include <unistd.h>
// The video plane shows where the interface's overlay bit is clear, as on the device.
#include "platform/display/VyFrameDump.h"
#include "platform/display/VyVideoPlane.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <vector>

TEST(VyVideoPlane, VideoShowsWhereTheOverlayBitIsClear) {
    const uint16_t gui[4] = {0x8000 | 0x7C00, 0x0000, 0x001F, 0x8000};
    const uint16_t video[4] = {0x03E0, 0x03E0, 0x03E0, 0x03E0};
    uint16_t out[4];
    VyVideoPlane::composeRow(gui, video, out, 4);
    EXPECT_EQ(out[0], 0x8000 | 0x7C00);
    EXPECT_EQ(out[1], 0x8000 | 0x03E0);
    EXPECT_EQ(out[2], 0x8000 | 0x03E0); // colour bits without the overlay bit do not show
    EXPECT_EQ(out[3], 0x8000);
    VyVideoPlane::composeRow(gui, nullptr, out, 4);
    EXPECT_EQ(out[1], 0x8000); // no plane: black
}

TEST(VyVideoPlane, MapsOnlyAFileLargeEnough) {
    char path[] = "/tmp/plane-XXXXXX";
    const int fd = mkstemp(path);
    ASSERT_GE(fd, 0);
    std::vector<uint16_t> pixels(8 * 4, 0x1234);
    ASSERT_EQ(write(fd, pixels.data(), pixels.size() * 2), ssize_t(pixels.size() * 2));
    close(fd);
    VyVideoPlane plane;
    EXPECT_FALSE(plane.open(path, 8, 5));
    ASSERT_TRUE(plane.open(path, 8, 4));
    EXPECT_EQ(plane.pixels()[31], 0x1234);
    const std::vector<uint16_t> gui(8 * 4, 0);
    const VyBitmap shot = VyFrameDump::composed(reinterpret_cast<const uint8_t*>(gui.data()), 8, 4,
                                                16, plane.pixels());
    ASSERT_FALSE(shot.isNull());
    EXPECT_EQ(shot.constBits()[1],
              VyFrameDump::toBitmap(reinterpret_cast<const uint8_t*>(pixels.data()), 8, 4, 16)
                  .constBits()[1]);
    plane.close();
    std::remove(path);
    EXPECT_FALSE(plane.open("/nonexistent/plane", 8, 4));
}
