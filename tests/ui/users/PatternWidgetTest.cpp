#include "../settings/SettingsUiTestApp.h"

#include "ui/users/PatternWidget.h"

namespace {

class Counter : public VyObject {
public:
    void hit() { ++count; }
    int count = 0;
};

class PatternWidgetTest : public SettingsUiTest {
protected:
    void drag(PatternWidget& w, const std::vector<VyPoint>& path) {
        mouse(&w, VyEvent::MouseButtonPress, path.front().x, path.front().y);
        for (size_t i = 1; i < path.size(); ++i)
            mouse(&w, VyEvent::MouseMove, path[i].x, path[i].y);
        mouse(&w, VyEvent::MouseButtonRelease, path.back().x, path.back().y);
    }
};

} // namespace

TEST_F(PatternWidgetTest, DragJoinsEachDotOnceInOrderAndAShortPatternIsAnError) {
    PatternWidget w;
    w.setGeometry(0, 0, 300, 300);
    Counter entered;
    VyObject::connect(&w, &w.entered, &entered, VY_SLOT(Counter, hit));
    // Between two dots (the gap of 1-2) and back over 2: neither adds anything.
    drag(w, {w.dotCentre(1), VyPoint(100, 50), w.dotCentre(2), w.dotCentre(1), w.dotCentre(2),
             w.dotCentre(3), w.dotCentre(6), w.dotCentre(9)});
    EXPECT_EQ(w.pattern(), "12369");
    EXPECT_EQ(entered.count, 1);
    EXPECT_FALSE(w.isError());

    drag(w, {w.dotCentre(5), w.dotCentre(8), w.dotCentre(7)});
    EXPECT_EQ(w.pattern(), "587");
    EXPECT_TRUE(w.isError());
    EXPECT_EQ(entered.count, 1);
    EXPECT_EQ(w.dotAt(VyPoint(100, 50)), 0);
}
