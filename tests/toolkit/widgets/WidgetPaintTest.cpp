#include "WidgetProbe.h"

#include "toolkit/graphics/VyWindowSurface.h"

#include <cstring>

using WidgetPaint = CoreAppTest;

namespace {

// What an opaque colour becomes in the 16-bit framebuffer.
uint16_t pixel1555(vyargb c) {
    return static_cast<uint16_t>(0x8000 | (((c >> 19) & 0x1F) << 10) | (((c >> 11) & 0x1F) << 5) |
                                 ((c >> 3) & 0x1F));
}

uint16_t framebufferAt(const VyScreen* screen, int x, int y) {
    uint16_t v;
    std::memcpy(&v, screen->mapping() + y * screen->lineLength() + x * 2, sizeof v);
    return v;
}

constexpr vyargb kGrey = 0xFF808080;
constexpr vyargb kBlue = 0xFF0000F8;
constexpr vyargb kRed = 0xFFF80000;
constexpr vyargb kGreen = 0xFF00F800;

} // namespace

TEST_F(WidgetPaint, WindowTreeReachesTheFramebufferChildrenOnTopAndClipped) {
    VyScreen* screen = app()->screen();
    Probe win("win", nullptr);
    win.fill = kGrey;
    win.setGeometry(20, 10, 100, 80);
    auto* panel = new Probe("panel", nullptr, &win);
    panel->fill = kBlue;
    panel->setGeometry(10, 10, 50, 40);
    auto* overflow = new Probe("overflow", nullptr, panel);
    overflow->fill = kRed; // sticks out of the panel on the right: clipped there
    overflow->setGeometry(40, 5, 30, 10);
    auto* hidden = new Probe("hidden", nullptr, &win);
    hidden->fill = kGreen;
    hidden->setGeometry(0, 0, 100, 80); // never shown: paints nothing
    for (Probe* p : {&win, panel, overflow})
        p->show();
    app()->processPostedEvents();

    // Outside the window nothing was dirty: the memory stays as the open cleared it.
    EXPECT_EQ(framebufferAt(screen, 0, 0), 0);
    EXPECT_EQ(framebufferAt(screen, 20 + 5, 10 + 5), pixel1555(kGrey));
    EXPECT_EQ(framebufferAt(screen, 20 + 15, 10 + 12), pixel1555(kBlue));
    EXPECT_EQ(framebufferAt(screen, 20 + 10 + 45, 10 + 10 + 8), pixel1555(kRed));
    // Right of the panel's edge the red child is cut off.
    EXPECT_EQ(framebufferAt(screen, 20 + 10 + 55, 10 + 10 + 8), pixel1555(kGrey));
    EXPECT_EQ(hidden->paints, 0);
    EXPECT_EQ(framebufferAt(screen, 20 + 99, 10 + 79), pixel1555(kGrey));
    EXPECT_EQ(framebufferAt(screen, 20 + 100, 10 + 80), 0);
}

TEST_F(WidgetPaint, UpdateOfAChildRepaintsOnlyWhatItCoversWithItsOwnRegionCopy) {
    VyScreen* screen = app()->screen();
    Probe win("win", nullptr);
    win.fill = kGrey;
    win.setGeometry(0, 0, 200, 100);
    auto* a = new Probe("a", nullptr, &win);
    a->fill = kBlue;
    a->setGeometry(10, 10, 40, 20);
    auto* b = new Probe("b", nullptr, &win);
    b->fill = kRed;
    b->setGeometry(100, 10, 40, 20);
    for (Probe* p : {&win, a, b})
        p->show();
    app()->processPostedEvents();
    int winPaints = win.paints, bPaints = b->paints;
    uint64_t pixelsBefore = screen->flushedPixelCount();

    a->fill = kGreen;
    a->update(VyRect(5, 5, 10, 10));
    app()->processPostedEvents();
    EXPECT_EQ(b->paints, bPaints);
    EXPECT_EQ(win.paints, winPaints + 1);
    EXPECT_EQ(a->paintRegion, VyRegion(VyRect(5, 5, 10, 10)));
    EXPECT_EQ(win.paintRegion, VyRegion(VyRect(15, 15, 10, 10)));
    EXPECT_EQ(screen->flushedPixelCount() - pixelsBefore, 100u);
    // The fill covered the whole widget in the surface, but only the dirty square reached
    // the framebuffer.
    EXPECT_EQ(framebufferAt(screen, 16, 16), pixel1555(kGreen));
    EXPECT_EQ(framebufferAt(screen, 12, 12), pixel1555(kBlue));
}
