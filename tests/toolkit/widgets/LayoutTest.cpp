#include "WidgetProbe.h"

#include "toolkit/widgets/VyGridLayout.h"
#include "toolkit/widgets/VyHBoxLayout.h"
#include "toolkit/widgets/VyVBoxLayout.h"

#include <memory>

using Layouts = CoreAppTest;

namespace {

VyWidget* fixedChild(int w, int h) {
    auto* child = new VyWidget;
    child->setMinimumSize(w, h);
    return child;
}

} // namespace

TEST_F(Layouts, DistributionKeepsLimitsAndSharesByStretch) {
    // Surplus by stretch, a slot capped at its maximum hands its share on.
    std::vector<VyLayoutSlot> slots(3);
    slots[0] = {10, 20, VyWidget::kMaxSize, 1};
    slots[1] = {10, 20, 30, 3};
    slots[2] = {10, 20, VyWidget::kMaxSize, 0};
    std::vector<int> sizes = VyLayout::distribute(slots, 120);
    EXPECT_EQ(sizes, (std::vector<int>{70, 30, 20}));
    // Shortage comes off the room above each minimum; never below a minimum.
    EXPECT_EQ(VyLayout::distribute(slots, 45), (std::vector<int>{15, 15, 15}));
    EXPECT_EQ(VyLayout::distribute(slots, 10), (std::vector<int>{10, 10, 10}));
    // Without stretch the surplus is shared by all slots that can grow.
    slots[1].stretch = slots[0].stretch = 0;
    EXPECT_EQ(VyLayout::distribute(slots, 90), (std::vector<int>{30, 30, 30}));
}

TEST_F(Layouts, NestedBoxesGiveTheExpectedGeometry) {
    // A dialog: a row of two fields over a row with a stretch and two fixed buttons.
    VyWidget dialog;
    dialog.setGeometry(0, 0, 300, 200);
    auto* column = new VyVBoxLayout(&dialog);
    column->setContentsMargins(10, 10, 10, 10);
    column->setSpacing(5);
    auto* fields = new VyHBoxLayout;
    fields->setSpacing(4);
    VyWidget* name = fixedChild(0, 20);
    VyWidget* value = fixedChild(0, 20);
    fields->addWidget(name, 1);
    fields->addWidget(value, 2);
    column->addLayout(fields);
    VyWidget* body = fixedChild(0, 10);
    column->addWidget(body, 1);
    auto* buttons = new VyHBoxLayout;
    buttons->setSpacing(6);
    buttons->addStretch();
    VyWidget* ok = fixedChild(60, 24);
    ok->setMaximumSize(60, 24);
    VyWidget* cancel = fixedChild(60, 24);
    cancel->setMaximumSize(60, 24);
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    column->addLayout(buttons);
    dialog.show();
    app()->processPostedEvents();

    for (VyWidget* w : {name, value, body, ok, cancel})
        EXPECT_EQ(w->parent(), &dialog);
    // Inner width 280; fields: (280 - 4) split 1:2 = 92 + 184.
    EXPECT_EQ(name->geometry(), VyRect(10, 10, 92, 20));
    EXPECT_EQ(value->geometry(), VyRect(106, 10, 184, 20));
    // Heights: 180 - 2 * 5 = 170; rows 20 and 24 fixed, the body takes 126.
    EXPECT_EQ(body->geometry(), VyRect(10, 35, 280, 126));
    EXPECT_EQ(ok->geometry(), VyRect(164, 166, 60, 24));
    EXPECT_EQ(cancel->geometry(), VyRect(230, 166, 60, 24));

    // Resizing the dialog lays it out again at once.
    dialog.resize(400, 200);
    EXPECT_EQ(cancel->geometry(), VyRect(330, 166, 60, 24));
    // Preferred size: margins, and the spacing counts after the stretch too.
    EXPECT_EQ(dialog.sizeHint(), VySize(20 + 0 + 6 + 60 + 6 + 60, 20 + 20 + 5 + 10 + 5 + 24));
}

TEST_F(Layouts, GridColumnsFollowTheirWidestCellAndStretch) {
    VyWidget page;
    page.setGeometry(0, 0, 200, 100);
    auto* grid = new VyGridLayout(&page);
    grid->setSpacing(10);
    VyWidget* label1 = fixedChild(40, 20);
    VyWidget* label2 = fixedChild(60, 20);
    VyWidget* edit1 = fixedChild(20, 20);
    VyWidget* wide = fixedChild(20, 30);
    grid->addWidget(label1, 0, 0);
    grid->addWidget(edit1, 0, 1);
    grid->addWidget(label2, 1, 0);
    grid->addWidget(wide, 2, 0, 1, 2);
    grid->setColumnStretch(1, 1);
    testing::internal::CaptureStdout();
    std::unique_ptr<VyWidget> stray(fixedChild(1, 1));
    grid->addWidget(stray.get(), -1, 0); // refused: stays ours
    EXPECT_NE(testing::internal::GetCapturedStdout().find("out of range !!!"), std::string::npos);
    page.show();
    app()->processPostedEvents();

    // Column 0 is as wide as its widest label (60); column 1 takes the rest (130). Rows
    // want 20, 20 and 30 with 10 between, 90 of 100: no row stretches, so each grows by 3
    // and the first takes the odd pixel.
    EXPECT_EQ(label1->geometry(), VyRect(0, 0, 60, 24));
    EXPECT_EQ(edit1->geometry(), VyRect(70, 0, 130, 24));
    EXPECT_EQ(label2->geometry(), VyRect(0, 34, 60, 23));
    EXPECT_EQ(wide->geometry(), VyRect(0, 67, 200, 33));
}
