#include "WidgetProbe.h"

#include "toolkit/widgets/VyHBoxLayout.h"

using WidgetState = CoreAppTest;

namespace {

uint32_t allAttributes(const VyWidget& w) {
    uint32_t bits = 0;
    for (int i = 0; i < VyWidget::kAttributeCount; ++i)
        bits |= w.testAttribute(i) ? (1u << i) : 0u;
    return bits;
}

} // namespace

TEST_F(WidgetState, AttributeNumbersOutOfRangeAreReportedAndIgnored) {
    VyWidget w;
    w.setAttribute(3);
    w.setAttribute(31);
    uint32_t before = allAttributes(w);
    testing::internal::CaptureStdout();
    w.setAttribute(32, true);
    w.setAttribute(-1, true);
    std::string out = testing::internal::GetCapturedStdout();
    EXPECT_EQ(out, "[GUI-FRAMEWORK]: setAttribute(): Type is out of range !!!\n"
                   "[GUI-FRAMEWORK]: setAttribute(): Type is out of range !!!\n");
    EXPECT_EQ(allAttributes(w), before);
    EXPECT_TRUE(w.testAttribute(31));
    EXPECT_FALSE(w.testAttribute(40));
    EXPECT_FALSE(w.testAttribute(-3));
}

TEST_F(WidgetState, GeometryWithTheSameEdgesSendsNothing) {
    std::vector<std::string> log;
    Probe w("w", &log, VyRect(10, 20, 30, 40));
    w.show();
    log.clear();
    w.setGeometry(VyRect::fromEdges(10, 20, 39, 59));
    EXPECT_TRUE(log.empty());
    EXPECT_EQ(w.size(), VySize(30, 40));
    w.setGeometry(10, 20, 31, 40);
    EXPECT_EQ(log, (std::vector<std::string>{"w:resize"}));
    EXPECT_EQ(w.size(), VySize(31, 40));
    w.move(0, 0); // a move keeps the size: no Resize
    EXPECT_EQ(log.size(), 1u);
}

TEST_F(WidgetState, ShowSendsShowThenResizeFromAnUndefinedSize) {
    std::vector<std::string> log;
    Probe w("w", &log);
    EXPECT_FALSE(w.isVisible());
    w.setGeometry(0, 0, 10, 10);
    w.show();
    EXPECT_EQ(log, (std::vector<std::string>{"w:show", "w:resize"}));
    EXPECT_TRUE(w.testAttribute(VyWidget::SurfaceCreated));
    ASSERT_NE(w.surface(), nullptr);
    VyWindowSurface* first = w.surface();
    w.hide();
    w.show();
    EXPECT_EQ(w.surface(), first); // created once
}

TEST_F(WidgetState, ImpossibleSizeLimitsAreRefusedWithTheirWarnings) {
    VyWidget parent;
    auto* w = new VyWidget(&parent);
    w->setMaximumSize(100, 50);
    testing::internal::CaptureStdout();
    w->setMinimumSize(120, 10);
    w->setMaximumSize(100, 50);
    w->setMinimumSize(20, 20);
    w->setMaximumSize(10, 10);
    w->setMinimumSize(VyWidget::kMaxSize + 5, 0);
    std::string out = testing::internal::GetCapturedStdout();
    EXPECT_EQ(out, "Warning: setMinimumSize_helper: the size is not possible.\n"
                   "Warning: setMaximumSize_helper: the size is not possible.\n"
                   "Warning: exceed the max size.\n"
                   "Warning: setMinimumSize_helper: the size is not possible.\n");
    EXPECT_EQ(w->minimumSize(), VySize(20, 20));
    EXPECT_EQ(w->maximumSize(), VySize(100, 50));
    EXPECT_EQ(w->size(), VySize(20, 20)); // grown to its new minimum

    // A window's limits are first cut to the 320x240 screen.
    VyWidget window;
    window.setMinimumSize(1000, 1000);
    EXPECT_EQ(window.minimumSize(), VySize(320, 240));
    EXPECT_EQ(window.maximumSize(), VySize(VyWidget::kMaxSize, VyWidget::kMaxSize));
}

TEST_F(WidgetState, SetLayoutRefusesNullSecondAndAlreadyOwnedLayouts) {
    VyWidget a;
    VyWidget b;
    auto* first = new VyHBoxLayout;
    auto* second = new VyHBoxLayout;
    testing::internal::CaptureStdout();
    a.setLayout(nullptr);
    a.setLayout(first);
    a.setLayout(second);
    b.setLayout(first);
    std::string out = testing::internal::GetCapturedStdout();
    EXPECT_EQ(out, "VyWidget::setLayout: Cannot set layout to 0\n"
                   "VyWidget::setLayout: Attempting to set VyLayout, which already has a layout\n"
                   "VyWidget::setLayout: Attempting to set VyLayout, when the VyLayout already "
                   "has a parent\n");
    EXPECT_EQ(a.layout(), first);
    EXPECT_EQ(b.layout(), nullptr);
    delete second;
}

TEST_F(WidgetState, ScreenChangeReachesEveryWindowTreeAndDropsTheStyleCache) {
    VyWidget window;
    auto* child = new VyWidget(&window);
    VyWidget dialog(&window, VyWidget::Dialog);
    VyWidget other;
    for (VyWidget* w : {&window, child, &dialog, &other}) {
        w->setGeometry(0, 0, 10, 10);
        w->show();
        w->setStyleFontSize(17);
    }
    VyEvent change(VyEvent::ScreenChange);
    VyApplication::sendEvent(app(), &change);
    for (VyWidget* w : {&window, child, &dialog, &other})
        EXPECT_EQ(w->styleFontSize(), VyWidget::kStyleReloadSentinel);
}
