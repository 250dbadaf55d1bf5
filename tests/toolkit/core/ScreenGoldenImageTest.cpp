#include <gtest/gtest.h>

#include <cstdlib>
#include <unistd.h>

#include "platform/display/VyFrameDump.h"
#include "runtime/VyBitmap.h"
#include "runtime/VyFontEngine.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VyScreenCursor.h"
#include "toolkit/graphics/VyFbCanvas.h"
#include "toolkit/graphics/VyWindowSurface.h"

namespace {

const char* const kFont = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";

// A small icon with an opaque body, a soft edge and a transparent surround.
VyBitmap icon() {
    VyBitmap image(12, 12);
    for (int y = 0; y < 12; ++y)
        for (int x = 0; x < 12; ++x) {
            uint8_t* p = image.bits() + (y * 12 + x) * 4;
            const int d = (x - 6) * (x - 6) + (y - 6) * (y - 6);
            p[0] = 250;
            p[1] = static_cast<uint8_t>(20 * x);
            p[2] = 40;
            p[3] = d < 16 ? 255 : d < 30 ? 120 : 0;
        }
    return image;
}

void paintScene(VyFbCanvas& c) {
    c.fillRect(VyRect(0, 0, 160, 100), 0xff203040);
    c.fillRect(VyRect(8, 8, 70, 40), 0xff4080c0);
    c.fillRect(VyRect(40, 30, 70, 40), 0x80ffffff);
    c.setPenWidth(2);
    c.drawRect(VyRect(4, 4, 152, 92), 0xffe0e0e0);
    c.setPenWidth(1);
    c.drawLine(10, 90, 150, 55, 0xffffff00);
    c.drawDotLine(10.0, 80.5, 150.0, 45.25, 0xff00ff00);
    c.fillTriangle(VyPoint(120, 10), VyPoint(150, 40), VyPoint(110, 40), 0xc0ff4040);
    c.drawImage(130, 70, icon());
    c.drawImage(VyRect(112, 72, 6, 24), icon());
    c.drawText(VyRect(8, 52, 100, 20), VyCanvas::AlignLeft | VyCanvas::AlignVCenter, "DVR 12:34",
               14, 0xffffffff);
}

} // namespace

TEST(ScreenGoldenImage, ASmallSceneThroughTheSharedMemoryDisplayAndTheDumper) {
    if (!VyFontEngine::instance().setFontFile(kFont, VyFontEngine::kDeviceFontReserveBytes))
        GTEST_SKIP() << "font missing: " << kFont;
    char raw[] = "/tmp/vy-golden-XXXXXX";
    const int fd = mkstemp(raw);
    ASSERT_GE(fd, 0);
    close(fd);

    VyBitmap actual;
    {
        VyScreen screen;
        ASSERT_TRUE(screen.open(VyString("mem:160x100:") + raw));
        screen.cursor()->hide();
        VyWindowSurface* w = screen.createWindow(nullptr, VyRect(0, 0, 160, 100));
        screen.setPaintHandler(
            [](VyWindowSurface* window, const VyRegion&) { paintScene(*window->canvas()); });
        screen.setWindowVisible(w, true);
        screen.flush();
        // Read back the way fbshot does, from the file another process would see.
        actual = VyFrameDump::fromRawFile(raw, 160, 100);
    }
    unlink(raw);
    ASSERT_FALSE(actual.isNull());

    const VyString expectedPath = VY_TEST_DATA_DIR "/screen/golden_scene.png";
    const VyString actualPath = VY_TEST_DATA_DIR "/screen/golden_scene.actual.png";
    const VyBitmap expected = VyBitmap::loadPng(expectedPath);
    bool same = !expected.isNull() && expected.width() == 160 && expected.height() == 100;
    for (int i = 0; same && i < 160 * 100 * 4; ++i)
        same = expected.constBits()[i] == actual.constBits()[i];
    if (!same) {
        actual.savePng(actualPath);
        FAIL() << "scene differs from " << expectedPath.c_str() << "; actual written to "
               << actualPath.c_str();
    }
}
