#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <unistd.h>
#include <vector>

#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VyScreenCursor.h"
#include "toolkit/graphics/VyFbCanvas.h"
#include "toolkit/graphics/VyWindowSurface.h"

namespace {

constexpr uint16_t kRed = 0xfc00;
constexpr uint16_t kGreen = 0x83e0;
constexpr uint16_t kBlue = 0x801f;
constexpr uint16_t kBlack = 0x8000;

uint16_t fbPixel(const VyScreen& s, int x, int y) {
    return reinterpret_cast<const uint16_t*>(s.mapping() + y * s.lineLength())[x];
}

VyWindowSurface* shownWindow(VyScreen& s, const VyRect& rect, uint16_t fill) {
    VyWindowSurface* w = s.createWindow(nullptr, rect);
    w->canvas()->fillRaw(VyRect(0, 0, rect.width(), rect.height()), fill);
    s.setWindowVisible(w, true);
    return w;
}

class ScreenTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(m_screen.open("mem:64x48"));
        m_screen.cursor()->hide();
    }
    VyScreen m_screen;
};

// Counts a signal's emissions.
class Counter : public VyObject {
public:
    void hit() { ++count; }
    int count = 0;
};

} // namespace

TEST(ScreenOpen, RefusesBadNamesAndOpensOnlyOnce) {
    VyScreen s;
    EXPECT_FALSE(s.open("mem:64"));
    EXPECT_FALSE(s.open("vga:64x48"));
    EXPECT_FALSE(s.isOpen());
    ASSERT_TRUE(s.open("mem:960x540"));
    EXPECT_EQ(s.clipRect(), VyRect::fromEdges(0, 0, 959, 539));
    EXPECT_FLOAT_EQ(s.horizontalScale(), 0.5f);
    EXPECT_FLOAT_EQ(s.meanScale(), 0.5f);
    EXPECT_TRUE(s.open("mem:10x10"));
    EXPECT_EQ(s.width(), 960);
}

TEST(ScreenOpen, ADeviceThatFailsItsSetupStaysHeldAndCountsAsOpen) {
    VyScreen s;
    // Opens for writing, but answers no framebuffer ioctl.
    testing::internal::CaptureStderr();
    EXPECT_FALSE(s.open("/dev/null"));
    EXPECT_NE(testing::internal::GetCapturedStderr().find("FBIOGET_FSCREENINFO failed"),
              std::string::npos);
    EXPECT_TRUE(s.open("/dev/null"));
    EXPECT_EQ(s.mapping(), nullptr);
    VyWindowSurface* w = s.createWindow(nullptr, VyRect(0, 0, 10, 10));
    s.setWindowVisible(w, true);
    s.flush(); // nothing to write into, nothing must break
    EXPECT_EQ(s.flushedPixelCount(), 0u);
}

TEST(ScreenOpen, OpeningClearsWhatTheMemoryHeld) {
    char path[] = "/tmp/vy-screen-XXXXXX";
    const int fd = mkstemp(path);
    ASSERT_GE(fd, 0);
    std::vector<uint8_t> junk(16 * 8 * 2, 0xAB);
    ASSERT_EQ(write(fd, junk.data(), junk.size()), static_cast<ssize_t>(junk.size()));
    close(fd);
    {
        VyScreen s;
        ASSERT_TRUE(s.open(VyString("mem:16x8:") + path));
        s.cursor()->hide();
        for (size_t i = 0; i < s.length(); ++i)
            ASSERT_EQ(s.mapping()[i], 0) << i;
    }
    unlink(path);
}

TEST_F(ScreenTest, DirtyRegionLeavesOutShownWindowsAbove) {
    VyWindowSurface* bottom = shownWindow(m_screen, VyRect(0, 0, 64, 48), kRed);
    shownWindow(m_screen, VyRect(10, 10, 20, 20), kGreen);
    VyWindowSurface* hidden = shownWindow(m_screen, VyRect(40, 0, 10, 10), kBlue);
    m_screen.setWindowHiddenAttribute(hidden, true);
    VyWindowSurface* excluded = shownWindow(m_screen, VyRect(0, 40, 10, 8), kBlue);
    m_screen.setWindowExcluded(excluded, true);
    VyWindowSurface* invisible = shownWindow(m_screen, VyRect(50, 20, 5, 5), kBlue);
    m_screen.setWindowVisible(invisible, false);
    m_screen.flush();

    m_screen.update(bottom, VyRegion(VyRect(-5, -5, 200, 200)));
    EXPECT_TRUE(m_screen.updatePending());
    EXPECT_EQ(m_screen.dirtyRegion(),
              VyRegion(VyRect(0, 0, 64, 48)).subtracted(VyRect(10, 10, 20, 20)));

    // A window entirely under another marks nothing; an unknown one is ignored.
    m_screen.flush();
    m_screen.update(bottom, VyRegion(VyRect(12, 12, 5, 5)));
    VyWindowSurface stranger(nullptr, VyRect(0, 0, 4, 4));
    m_screen.update(&stranger);
    EXPECT_TRUE(m_screen.dirtyRegion().isEmpty());
    EXPECT_FALSE(m_screen.updatePending());
}

TEST_F(ScreenTest, FlushComposesBottomFirstAndWritesEachPixelOnce) {
    VyWindowSurface* bottom = shownWindow(m_screen, VyRect(0, 0, 40, 48), kRed);
    shownWindow(m_screen, VyRect(10, 10, 20, 20), kGreen);
    m_screen.update(bottom, VyRegion(VyRect(0, 0, 64, 48)));
    const uint64_t before = m_screen.flushedPixelCount();
    m_screen.flush();
    EXPECT_EQ(m_screen.flushCount(), 1);
    EXPECT_EQ(m_screen.flushedPixelCount() - before, 64u * 48u);
    EXPECT_EQ(fbPixel(m_screen, 5, 5), kRed);
    EXPECT_EQ(fbPixel(m_screen, 10, 10), kGreen);
    EXPECT_EQ(fbPixel(m_screen, 29, 29), kGreen);
    EXPECT_EQ(fbPixel(m_screen, 30, 29), kRed);
    EXPECT_EQ(fbPixel(m_screen, 45, 5), kBlack); // no window there
    EXPECT_TRUE(m_screen.dirtyRegion().isEmpty());
}

TEST_F(ScreenTest, WindowsPaintTheirDirtyPartInWindowCoordinatesBeforeTheCopy) {
    VyWindowSurface* bottom = shownWindow(m_screen, VyRect(0, 0, 64, 48), 0);
    VyWindowSurface* top = shownWindow(m_screen, VyRect(20, 8, 16, 16), 0);
    std::vector<std::pair<VyWindowSurface*, VyRegion>> painted;
    m_screen.setPaintHandler([&](VyWindowSurface* w, const VyRegion& region) {
        painted.emplace_back(w, region);
        for (const VyRect& r : region.rects())
            w->canvas()->fillRaw(r, w == top ? kGreen : kBlue);
    });
    m_screen.flush();
    ASSERT_EQ(painted.size(), 2u);
    EXPECT_EQ(painted[0].first, bottom);
    EXPECT_EQ(painted[0].second, VyRegion(VyRect(0, 0, 64, 48)).subtracted(VyRect(20, 8, 16, 16)));
    EXPECT_EQ(painted[1].first, top);
    EXPECT_EQ(painted[1].second, VyRegion(VyRect(0, 0, 16, 16)));
    EXPECT_EQ(fbPixel(m_screen, 20, 8), kGreen);
    EXPECT_EQ(fbPixel(m_screen, 19, 8), kBlue);

    // Removing the top window repaints only what it covered, from the window beneath.
    painted.clear();
    m_screen.removeWindow(top);
    EXPECT_EQ(m_screen.windowCount(), 1);
    m_screen.flush();
    ASSERT_EQ(painted.size(), 1u);
    EXPECT_EQ(painted[0].second, VyRegion(VyRect(20, 8, 16, 16)));
    EXPECT_EQ(fbPixel(m_screen, 25, 10), kBlue);
}

TEST_F(ScreenTest, UpdatesMadeWhilePaintingStartTheNextBatch) {
    VyWindowSurface* w = shownWindow(m_screen, VyRect(0, 0, 64, 48), kRed);
    m_screen.flush();
    bool again = true;
    m_screen.setPaintHandler([&](VyWindowSurface* window, const VyRegion&) {
        if (again)
            m_screen.update(window, VyRegion(VyRect(1, 1, 2, 2)));
        again = false;
    });
    m_screen.update(w);
    m_screen.flush();
    EXPECT_TRUE(m_screen.updatePending());
    EXPECT_EQ(m_screen.dirtyRegion(), VyRegion(VyRect(1, 1, 2, 2)));
}

TEST_F(ScreenTest, WithoutWindowsTheWholeScreenTurnsOpaqueBlack) {
    // The screen opened cleared to 0x0000; a small window is the only thing ever flushed.
    VyWindowSurface* w = shownWindow(m_screen, VyRect(8, 8, 10, 10), kRed);
    m_screen.flush();
    m_screen.removeWindow(w);
    m_screen.flush();
    for (int y = 0; y < 48; ++y)
        for (int x = 0; x < 64; ++x)
            ASSERT_EQ(fbPixel(m_screen, x, y), kBlack);
}

TEST_F(ScreenTest, ReopeningAtAnotherSizeMovesTheClipClearsAndRepaints) {
    Counter counter;
    VyObject::connect(&m_screen, &m_screen.geometryChanged, &counter, VY_SLOT(Counter, hit));
    VyWindowSurface* w = shownWindow(m_screen, VyRect(0, 0, 64, 48), kRed);
    m_screen.flush();

    ASSERT_TRUE(m_screen.reopen("mem:128x96"));
    EXPECT_EQ(counter.count, 1);
    EXPECT_EQ(m_screen.clipRect(), VyRect::fromEdges(0, 0, 127, 95));
    EXPECT_EQ(m_screen.frontCanvas()->width(), 128);
    EXPECT_EQ(fbPixel(m_screen, 10, 10), 0); // cleared, not yet composed
    EXPECT_EQ(m_screen.dirtyRegion(), VyRegion(VyRect(0, 0, 64, 48)));
    m_screen.flush();
    EXPECT_EQ(fbPixel(m_screen, 10, 10), kRed);
    EXPECT_EQ(fbPixel(m_screen, 100, 10), 0); // outside every window: still as cleared

    // A device that cannot open leaves the previous one in place.
    EXPECT_FALSE(m_screen.reopen("mem:0x0"));
    EXPECT_EQ(m_screen.width(), 128);
    EXPECT_EQ(counter.count, 2);
    m_screen.setWindowGeometry(w, VyRect(0, 0, 128, 96));
    EXPECT_EQ(w->canvas()->width(), 128);
}

TEST(ScreenUpdateRequest, ManyUpdatesPostOneRequestAndCostOneFlush) {
    VyApplication::setDisplayDevice("mem:64x48");
    VyApplication app;
    VyScreen* s = app.screen();
    ASSERT_NE(s, nullptr);
    app.processPostedEvents();
    VyWindowSurface* w = s->createWindow(nullptr, VyRect(0, 0, 64, 48));
    s->setWindowVisible(w, true);
    for (int i = 0; i < 1000; ++i)
        s->update(w, VyRegion(VyRect(i % 60, (i * 7) % 44, 3, 3)));
    EXPECT_EQ(s->postedEventCount(), 1);
    const int flushes = s->flushCount();
    app.processPostedEvents();
    EXPECT_EQ(s->flushCount(), flushes + 1);
    EXPECT_FALSE(s->updatePending());
    EXPECT_EQ(s->postedEventCount(), 0);
}
