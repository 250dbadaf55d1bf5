#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <cstring>
#include <random>
#include <thread>
#include <vector>

#include "runtime/VyBitmap.h"
#include "runtime/VyResources.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VyScreenCursor.h"
#include "toolkit/graphics/VyFbCanvas.h"
#include "toolkit/graphics/VyWindowSurface.h"
#ifdef VY_HAVE_SDL
#include "platform/display/sdl/VySdlBackend.h"
#endif

namespace {

std::vector<uint16_t> snapshot(const VyScreen& s) {
    std::vector<uint16_t> out(static_cast<size_t>(s.width()) * s.height());
    for (int y = 0; y < s.height(); ++y)
        std::memcpy(&out[y * s.width()], s.mapping() + y * s.lineLength(), s.width() * 2);
    return out;
}

// 5x4 with a transparent column, so the overlay shows both drawn and untouched pixels.
VyBitmap cursorImage() {
    VyBitmap image(5, 4);
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 5; ++x) {
            uint8_t* p = image.bits() + (y * 5 + x) * 4;
            p[0] = static_cast<uint8_t>(40 * x);
            p[1] = static_cast<uint8_t>(60 * y);
            p[2] = 200;
            p[3] = x == 2 ? 0 : (x == 4 ? 1 : 255);
        }
    return image;
}

uint16_t expectedInk(int x, int y) {
    return static_cast<uint16_t>(0x8000 | (40 * x >> 3) << 10 | (60 * y >> 3) << 5 | (200 >> 3));
}

} // namespace

TEST(CursorShapes, LargeOutputsUseMaxImagesAndDoubledHotspots) {
    EXPECT_STREQ(VyScreenCursor::shapeName(VyScreenCursor::Hand), "cursor-hand");
    EXPECT_STREQ(VyScreenCursor::shapeName(VyScreenCursor::CloseHand), "cursor-closehand");
    EXPECT_EQ(VyScreenCursor::shapeName(VyScreenCursor::ShapeCount), nullptr);
    EXPECT_EQ(VyScreenCursor::imageName(VyScreenCursor::Arrow, 1919), "cursor-image/arrow.png");
    EXPECT_EQ(VyScreenCursor::hotspot(VyScreenCursor::Hand, 1919), VyPoint(9, 1));
    EXPECT_EQ(VyScreenCursor::imageName(VyScreenCursor::Hand, 3839),
              "cursor-image/cursor-hand-max.png");
    EXPECT_EQ(VyScreenCursor::hotspot(VyScreenCursor::Hand, 3839), VyPoint(18, 2));
    EXPECT_EQ(VyScreenCursor::hotspot(VyScreenCursor::SizeVer, 1920), VyPoint(26, 24));
}

TEST(CursorOverlay, DrawsWithoutBlendingAndRestoresTheExactPixels) {
    VyScreen s;
    ASSERT_TRUE(s.open("mem:32x24"));
    VyScreenCursor* cursor = s.cursor();
    cursor->hide();
    std::mt19937 rng(3);
    for (int y = 0; y < 24; ++y)
        for (int x = 0; x < 32; ++x)
            s.frontCanvas()->scanLine(y)[x] = static_cast<uint16_t>(rng());
    const std::vector<uint16_t> original = snapshot(s);

    cursor->setImage(cursorImage(), VyPoint(1, 1));
    cursor->show();
    // Inside, across each edge and off the screen on one axis or both; then whole jumps
    // (one pass) and short overlapping steps between them.
    const VyPoint places[] = {{10, 10},  {0, 0},     {31, 23}, {-2, 12}, {30, 1},  {500, 500},
                              {500, 10}, {10, -300}, {12, 5},  {20, 15}, {22, 16}, {5, 5},
                              {5, 5},    {6, 4},     {11, 4},  {1, 1},   {27, 20}};
    for (VyPoint p : places) {
        cursor->setPosition(p.x, p.y);
        const std::vector<uint16_t> now = snapshot(s);
        for (int y = 0; y < 24; ++y)
            for (int x = 0; x < 32; ++x) {
                const int ix = x - (p.x - 1);
                const int iy = y - (p.y - 1);
                const bool covered = ix >= 0 && ix < 5 && iy >= 0 && iy < 4 && ix != 2;
                const uint16_t want = covered ? expectedInk(ix, iy) : original[y * 32 + x];
                ASSERT_EQ(now[y * 32 + x], want) << "cursor at " << p.x << "," << p.y;
            }
    }
    cursor->hide();
    EXPECT_EQ(snapshot(s), original);
    cursor->setPosition(3, 3); // hidden: moves without drawing
    EXPECT_EQ(snapshot(s), original);
}

// Square images with no transparent pixel at the two sizes the shapes ship in take their own
// whole-row path on a jump; what they leave behind must be as exact as the run path's.
TEST(CursorOverlay, OpaqueSquaresJumpAndRestoreTheExactPixels) {
    for (int side : {32, 64}) {
        VyScreen s;
        ASSERT_TRUE(s.open("mem:256x192"));
        VyScreenCursor* cursor = s.cursor();
        cursor->hide();
        std::mt19937 rng(side);
        for (int y = 0; y < 192; ++y)
            for (int x = 0; x < 256; ++x)
                s.frontCanvas()->scanLine(y)[x] = static_cast<uint16_t>(rng());
        const std::vector<uint16_t> original = snapshot(s);
        VyBitmap image(side, side);
        for (int i = 0; i < side * side; ++i) {
            uint8_t* p = image.bits() + i * 4;
            p[0] = static_cast<uint8_t>(i * 8);
            p[1] = static_cast<uint8_t>(i / side * 8);
            p[2] = static_cast<uint8_t>(i * 3);
            p[3] = 255;
        }
        cursor->setImage(image, VyPoint(0, 0));
        cursor->show();
        const VyPoint places[] = {{10, 10},  {150, 100}, {10, 120},  {160, 5},
                                  {170, 20}, {0, 0},     {200, 150}, {20, 20}};
        for (VyPoint p : places) {
            cursor->setPosition(p.x, p.y);
            const std::vector<uint16_t> now = snapshot(s);
            for (int y = 0; y < 192; ++y)
                for (int x = 0; x < 256; ++x) {
                    const int ix = x - p.x;
                    const int iy = y - p.y;
                    const bool covered = ix >= 0 && ix < side && iy >= 0 && iy < side;
                    const uint8_t* px = image.constBits() + (iy * side + ix) * 4;
                    const uint16_t want =
                        covered ? static_cast<uint16_t>(0x8000 | (px[0] >> 3) << 10 |
                                                        (px[1] >> 3) << 5 | (px[2] >> 3))
                                : original[y * 256 + x];
                    ASSERT_EQ(now[y * 256 + x], want) << side << "px cursor at " << p.x << ","
                                                      << p.y << ", pixel " << x << "," << y;
                }
        }
        cursor->hide();
        EXPECT_EQ(snapshot(s), original) << side;
    }
}

TEST(CursorOverlay, StaysOnTopOfFlushesAndSavesTheNewPixelsBeneath) {
    VyScreen s;
    ASSERT_TRUE(s.open("mem:32x24"));
    VyWindowSurface* w = s.createWindow(nullptr, VyRect(0, 0, 32, 24));
    w->canvas()->fillRaw(VyRect(0, 0, 32, 24), 0x801f);
    s.setWindowVisible(w, true);
    s.cursor()->setImage(cursorImage(), VyPoint(0, 0));
    s.cursor()->setPosition(4, 4);
    s.flush();
    EXPECT_EQ(s.frontCanvas()->pixel(4, 4), expectedInk(0, 0));

    w->canvas()->fillRaw(VyRect(0, 0, 32, 24), 0x83e0);
    s.update(w);
    s.flush();
    EXPECT_EQ(s.frontCanvas()->pixel(5, 5), expectedInk(1, 1));
    EXPECT_EQ(s.frontCanvas()->pixel(6, 4), 0x83e0); // transparent column
    s.cursor()->hide();
    for (int y = 0; y < 24; ++y)
        for (int x = 0; x < 32; ++x)
            ASSERT_EQ(s.frontCanvas()->pixel(x, y), 0x83e0) << x << "," << y;
}

TEST(CursorOverlay, AMovingCursorAndFlushesLeaveNoTrace) {
    VyScreen s;
    ASSERT_TRUE(s.open("mem:64x48"));
    VyWindowSurface* w = s.createWindow(nullptr, VyRect(0, 0, 64, 48));
    s.setWindowVisible(w, true);
    s.cursor()->setImage(cursorImage(), VyPoint(2, 2));
    std::atomic<bool> stop{false};
    std::thread mouse([&] {
        // The mouse thread's side: positions only, as fast as it can.
        for (int i = 0; !stop.load(); ++i)
            s.cursor()->setPosition((i * 7) % 70 - 3, (i * 3) % 52 - 2);
    });
    for (int frame = 0; frame < 300; ++frame) {
        w->canvas()->fillRaw(VyRect(0, 0, 64, 48), static_cast<uint16_t>(0x8000 | frame));
        s.update(w);
        s.flush();
    }
    stop = true;
    mouse.join();
    s.cursor()->hide();
    for (int y = 0; y < 48; ++y)
        for (int x = 0; x < 64; ++x)
            ASSERT_EQ(s.frontCanvas()->pixel(x, y), 0x8000 | 299) << x << "," << y;
}

TEST(CursorOverlay, LoadsTheShippedImagesAndSwitchesToLargeOnesWithTheOutput) {
    VyResources::setRoot(VY_RESOURCES_DIR);
    VyScreen s;
    ASSERT_TRUE(s.open("mem:320x200"));
    VyScreenCursor* cursor = s.cursor();
    cursor->setPosition(50, 40);
    const VyRect normal = cursor->area();
    ASSERT_FALSE(normal.isEmpty()) << "arrow.png did not load";
    EXPECT_EQ(normal.topLeft(), VyPoint(50, 40)); // the arrow's hotspot is its tip
    EXPECT_EQ(s.frontCanvas()->pixel(50, 40) & 0x8000, 0x8000);

    ASSERT_TRUE(cursor->setShape(VyScreenCursor::Hand));
    EXPECT_EQ(cursor->area().topLeft(), VyPoint(41, 39));
    const int handWidth = cursor->area().width();

    ASSERT_TRUE(s.reopen("mem:1921x16"));
    const VyRect large = cursor->area();
    EXPECT_EQ(large.topLeft(), VyPoint(50 - 18, 40 - 2));
    EXPECT_EQ(large.width(), 2 * handWidth);
    VyResources::setRoot(VyString());
}

#ifdef VY_HAVE_SDL
TEST(CursorOverlay, MovesFromAnotherThreadReachAWindowOutputThroughTheGuiThread) {
    setenv("SDL_VIDEODRIVER", "dummy", 1);
    VyApplication::setDisplayDevice("mem:32x24");
    VyApplication app;
    VyScreen window;
    if (!window.open("window:64x48"))
        GTEST_SKIP() << "no SDL video driver here";
    auto* backend = static_cast<VySdlBackend*>(window.backend());
    window.cursor()->setImage(cursorImage(), VyPoint(0, 0));
    app.processPostedEvents();
    const int presents = backend->presentCount();

    std::thread mouse([&] { window.cursor()->setPosition(20, 10); });
    mouse.join();
    EXPECT_EQ(window.postedEventCount(), 1);
    app.processPostedEvents();
    EXPECT_EQ(backend->presentCount(), presents + 1);

    // The window reads the memory while the mouse thread draws into it (ThreadSanitizer).
    VyWindowSurface* surface = window.createWindow(nullptr, VyRect(0, 0, 64, 48));
    window.setWindowVisible(surface, true);
    std::atomic<bool> stop{false};
    std::thread busy([&] {
        for (int i = 0; !stop.load(); ++i)
            window.cursor()->setPosition(i % 64, i % 48);
    });
    for (int frame = 0; frame < 50; ++frame) {
        window.update(surface);
        app.processPostedEvents();
    }
    stop = true;
    busy.join();
    EXPECT_GE(backend->presentCount(), presents + 51);

    // A scanned-out (memory) output is not told about cursor moves.
    app.screen()->cursor()->setImage(cursorImage(), VyPoint(0, 0));
    app.screen()->cursor()->setPosition(5, 5);
    EXPECT_EQ(app.screen()->postedEventCount(), 0);
}
#endif
