#include "ControlTestApp.h"

#include "toolkit/widgets/VyComboBox.h"
#include "toolkit/widgets/VyInnerListWidget.h"
#include "toolkit/widgets/VyListWidget.h"
#include "toolkit/widgets/VyPushButton.h"
#include "toolkit/widgets/VyTableWidget.h"
#include "toolkit/widgets/VyTableWidgetHHeader.h"
#include "toolkit/widgets/VyTableWidgetViewPort.h"

using ComboBox = ControlTest;
using ListWidget = ControlTest;
using TableWidget = ControlTest;

namespace {

VyWidget* makeWindow() {
    auto* w = new VyWidget;
    w->setGeometry(0, 0, 640, 480);
    w->show();
    return w;
}

} // namespace

TEST_F(ComboBox, PopupOpensOnOkChoosesWithArrowsAndCancelsWithEscape) {
    std::unique_ptr<VyWidget> window(makeWindow());
    auto* combo = new VyComboBox(window.get());
    combo->setGeometry(20, 20, 200, 36);
    combo->show();
    combo->addItems(VyStringList() << "CIF"
                                   << "D1"
                                   << "720P"
                                   << "1080P");
    EXPECT_EQ(combo->currentIndex(), 0);
    SignalCounter activated(combo, &combo->activated);
    EXPECT_FALSE(key(combo, VyKeyEvent::KeyDown)); // closed: the arrows move the focus on
    EXPECT_TRUE(key(combo, VyKeyEvent::KeyOk));
    ASSERT_TRUE(combo->isPopupVisible());
    VyInnerListWidget* list = combo->popup();
    EXPECT_EQ(app()->activePopupWidget(), list);
    EXPECT_GE(list->geometry().top, 56); // under the field
    key(list, VyKeyEvent::KeyDown);
    key(list, VyKeyEvent::KeyDown);
    key(list, VyKeyEvent::KeyUp);
    key(list, VyKeyEvent::KeyOk);
    EXPECT_FALSE(combo->isPopupVisible());
    EXPECT_EQ(combo->currentIndex(), 1);
    EXPECT_EQ(activated.count, 1);
    EXPECT_TRUE(combo->hasFocus());
    // Escape leaves the index where it was.
    key(combo, VyKeyEvent::KeyOk);
    key(combo->popup(), VyKeyEvent::KeyDown);
    key(combo->popup(), VyKeyEvent::KeyEscape);
    EXPECT_FALSE(combo->isPopupVisible());
    EXPECT_EQ(combo->currentIndex(), 1);
    EXPECT_EQ(activated.count, 1);
    app()->processPostedEvents(); // the closed popups are deleted
    EXPECT_EQ(combo->popup(), nullptr);
}

TEST_F(ComboBox, ClickChoosesAClickOutsideCancelsAndTheWheelSteps) {
    std::unique_ptr<VyWidget> window(makeWindow());
    auto* combo = new VyComboBox(window.get());
    combo->setGeometry(20, 20, 200, 36);
    combo->show();
    for (int i = 1; i <= 64; ++i)
        combo->addItem(VyString("Channel ") + VyString::number(i), 100 + i);
    click(60, 30);
    ASSERT_TRUE(combo->isPopupVisible());
    VyInnerListWidget* list = combo->popup();
    // 64 rows do not fit: the popup keeps to the screen and scrolls.
    EXPECT_LE(list->geometry().bottom, 479);
    EXPECT_LT(list->visibleRowCount(), 64);
    const VyRect g = list->geometry();
    const int rowH = list->rowHeight();
    click(g.left + 20, g.top + 2 + rowH * 2 + rowH / 2);
    EXPECT_FALSE(combo->isPopupVisible());
    EXPECT_EQ(combo->currentIndex(), 2);
    EXPECT_EQ(combo->currentData(), 103);
    click(60, 30);
    ASSERT_TRUE(combo->isPopupVisible());
    click(600, 400); // outside: nothing chosen, and the window below gets no click
    EXPECT_FALSE(combo->isPopupVisible());
    EXPECT_EQ(combo->currentIndex(), 2);
    EXPECT_TRUE(wheel(combo, -120));
    EXPECT_EQ(combo->currentIndex(), 3);
    wheel(combo, 240);
    EXPECT_EQ(combo->currentIndex(), 1);
    EXPECT_EQ(combo->findData(164), 63);
}

TEST_F(ComboBox, EmptyAndOutOfRangeAreRefusedWithoutCrashing) {
    std::unique_ptr<VyWidget> window(makeWindow());
    auto* combo = new VyComboBox(window.get());
    combo->setGeometry(20, 20, 200, 36);
    combo->show();
    EXPECT_FALSE(key(combo, VyKeyEvent::KeyOk));
    EXPECT_FALSE(combo->isPopupVisible());
    EXPECT_FALSE(combo->setCurrentIndex(3));
    combo->addItem("PAL");
    EXPECT_FALSE(combo->setCurrentIndex(1));
    EXPECT_EQ(combo->currentIndex(), 0);
    EXPECT_TRUE(combo->setCurrentIndex(-1));
    EXPECT_EQ(combo->currentText(), "");
    app()->processPostedEvents(); // paints the empty field
    // Deleting the combo with its popup open takes the popup along.
    combo->showPopup();
    ASSERT_TRUE(combo->isPopupVisible());
    delete combo;
    EXPECT_EQ(app()->activePopupWidget(), nullptr);
}

TEST_F(ListWidget, SingleSelectionFollowsTheKeysAndMultipleSelectionTogglesOnOk) {
    std::unique_ptr<VyWidget> window(makeWindow());
    auto* list = new VyListWidget(window.get());
    list->setGeometry(10, 10, 300, 200);
    list->show();
    for (int i = 0; i < 20; ++i)
        list->addItem(VyString("Camera ") + VyString::number(i + 1));
    list->setFocus();
    EXPECT_EQ(list->currentRow(), -1);
    EXPECT_TRUE(key(list, VyKeyEvent::KeyDown)); // the first arrow picks the first row
    EXPECT_EQ(list->currentRow(), 0);
    EXPECT_TRUE(key(list, VyKeyEvent::KeyDown));
    EXPECT_TRUE(key(list, VyKeyEvent::KeyDown));
    EXPECT_EQ(list->selectedRows(), std::vector<int>{2});
    const int page = list->visibleRowCount();
    EXPECT_TRUE(key(list, VyKeyEvent::KeyRight)); // a page down, scrolled into view
    EXPECT_EQ(list->currentRow(), 2 + page);
    EXPECT_GE(list->currentRow(), list->topRow());
    EXPECT_LT(list->currentRow(), list->topRow() + page);
    for (int i = 0; i < 5; ++i)
        key(list, VyKeyEvent::KeyRight);
    EXPECT_EQ(list->currentRow(), 19); // stops at the end
    for (int i = 0; i < 5; ++i)
        key(list, VyKeyEvent::KeyLeft);
    EXPECT_EQ(list->currentRow(), 0);
    EXPECT_EQ(list->topRow(), 0);
    EXPECT_FALSE(key(list, VyKeyEvent::KeyEscape));

    list->setSelectionMode(VyListWidget::MultiSelection);
    SignalCounter activated(list, &list->activated);
    key(list, VyKeyEvent::KeyOk);
    key(list, VyKeyEvent::KeyDown);
    key(list, VyKeyEvent::KeyDown);
    key(list, VyKeyEvent::KeyOk);
    EXPECT_EQ(list->selectedRows(), (std::vector<int>{0, 2}));
    key(list, VyKeyEvent::KeyUp);
    key(list, VyKeyEvent::KeyUp);
    key(list, VyKeyEvent::KeyOk);
    EXPECT_EQ(list->selectedRows(), std::vector<int>{2});
    EXPECT_EQ(activated.count, 3);
}

TEST_F(ListWidget, MouseChoosesRowsTogglesCheckBoxesAndTheWheelScrolls) {
    std::unique_ptr<VyWidget> window(makeWindow());
    auto* list = new VyListWidget(window.get());
    list->setGeometry(10, 10, 300, 200);
    list->show();
    for (int i = 0; i < 30; ++i) {
        list->addItem(VyString("Disk ") + VyString::number(i + 1));
        list->setItemCheckable(i, true);
    }
    const VyRect r2 = list->rowRect(2);
    click(10 + r2.left + 150, 10 + r2.top + 5); // on the text: chosen, not checked
    EXPECT_EQ(list->currentRow(), 2);
    EXPECT_FALSE(list->isItemChecked(2));
    click(10 + r2.left + 5, 10 + r2.top + 5); // on the check box
    EXPECT_TRUE(list->isItemChecked(2));
    key(list, VyKeyEvent::KeyOk); // OK toggles a checkable row
    EXPECT_FALSE(list->isItemChecked(2));
    EXPECT_TRUE(wheel(list, -120));
    EXPECT_EQ(list->topRow(), VyListWidget::kWheelRows);
    for (int i = 0; i < 20; ++i)
        wheel(list, -120);
    EXPECT_EQ(list->topRow(), 30 - list->visibleRowCount());
    // Removing rows keeps the current row and the scroll position inside the list.
    list->setCurrentRow(29);
    for (int i = 0; i < 25; ++i)
        list->removeItem(0);
    EXPECT_EQ(list->currentRow(), 4);
    EXPECT_EQ(list->topRow(), 0);
}

TEST_F(ListWidget, EmptyListsAndBadRowsAreSurvived) {
    std::unique_ptr<VyWidget> window(makeWindow());
    auto* list = new VyListWidget(window.get());
    list->setGeometry(10, 10, 300, 200);
    list->show();
    list->setFocus();
    for (int k : {VyKeyEvent::KeyUp, VyKeyEvent::KeyDown, VyKeyEvent::KeyLeft, VyKeyEvent::KeyOk})
        EXPECT_FALSE(key(list, k));
    EXPECT_FALSE(list->setCurrentRow(0));
    EXPECT_EQ(list->currentRow(), -1);
    list->setItemChecked(5, true);
    list->removeItem(-1);
    EXPECT_EQ(list->itemText(3), "");
    click(50, 50);
    app()->processPostedEvents();
    EXPECT_EQ(list->count(), 0);
}

namespace {

// A table of log entries built from a row number alone, counting what it is asked for.
struct LogSource {
    int asked = 0;
    VyTableCell operator()(int row, int column) {
        ++asked;
        VyTableCell c;
        c.text = VyString::number(row) + "/" + VyString::number(column);
        return c;
    }
};

} // namespace

TEST_F(TableWidget, AHundredThousandRowsAskTheSourceOnlyForThePageInView) {
    std::unique_ptr<VyWidget> window(makeWindow());
    auto* table = new VyTableWidget(window.get());
    table->setGeometry(0, 0, 640, 480);
    table->setColumnCount(4);
    table->setHorizontalHeaderLabels(VyStringList() << "No."
                                                    << "Time"
                                                    << "Type"
                                                    << "Channel");
    auto source = std::make_shared<LogSource>();
    table->setCellSource([source](int r, int c) { return (*source)(r, c); });
    table->setRowCount(100000);
    table->show();
    app()->processPostedEvents();
    const int page = table->visibleRowCount();
    EXPECT_GT(source->asked, 0);
    EXPECT_LE(source->asked, (page + 1) * 4);
    source->asked = 0;
    table->setFocus();
    key(table, VyKeyEvent::KeyRight); // pages in row selection
    app()->processPostedEvents();
    EXPECT_EQ(table->currentRow(), page);
    EXPECT_LE(source->asked, (page + 1) * 4);
    table->scrollToRow(99999);
    EXPECT_EQ(table->topRow(), 100000 - page);
    EXPECT_EQ(table->cell(99999, 3).text, "99999/3");
    // Shrinking the table drops the current row and selection that no longer exist.
    table->setCurrentCell(99990, 0);
    table->setRowCount(10);
    EXPECT_EQ(table->currentRow(), 9);
    EXPECT_EQ(table->topRow(), 0);
    EXPECT_EQ(table->selectedRows(), std::vector<int>{9});
}

TEST_F(TableWidget, KeysAndMouseMoveTheCurrentCellAndSelectRows) {
    std::unique_ptr<VyWidget> window(makeWindow());
    auto* table = new VyTableWidget(window.get());
    table->setGeometry(0, 0, 640, 300);
    table->setColumnCount(3);
    table->setRowCount(40);
    for (int c = 0; c < 3; ++c)
        table->setColumnWidth(c, 150);
    table->show();
    table->setFocus();
    key(table, VyKeyEvent::KeyUp);
    EXPECT_EQ(table->currentRow(), 0);
    table->setSelectionBehavior(VyTableWidget::SelectItems);
    EXPECT_TRUE(key(table, VyKeyEvent::KeyRight));
    EXPECT_TRUE(key(table, VyKeyEvent::KeyRight));
    EXPECT_TRUE(key(table, VyKeyEvent::KeyRight));
    EXPECT_EQ(table->currentColumn(), 2);
    EXPECT_TRUE(key(table, VyKeyEvent::KeyDown));
    EXPECT_EQ(table->currentRow(), 1);
    EXPECT_EQ(table->selectedRows(), std::vector<int>{1});
    // A press on the viewport is a press on the table.
    const VyRect vp = table->viewport()->geometry();
    click(vp.left + 160, vp.top + table->rowHeight() * 3 + 4);
    EXPECT_EQ(table->currentRow(), 3);
    EXPECT_EQ(table->currentColumn(), 1);
    table->setSelectionMode(VyTableWidget::MultiSelection);
    key(table, VyKeyEvent::KeyOk);
    click(vp.left + 10, vp.top + table->rowHeight() * 5 + 4);
    EXPECT_EQ(table->selectedRows(), (std::vector<int>{3, 5}));
    EXPECT_FALSE(table->setCurrentCell(40, 0));
    EXPECT_FALSE(table->setCurrentCell(0, 3));
    EXPECT_EQ(table->currentRow(), 5);
}

TEST_F(TableWidget, HeaderClicksSortStoredRowsAndDragsResizeColumns) {
    std::unique_ptr<VyWidget> window(makeWindow());
    auto* table = new VyTableWidget(window.get());
    table->setGeometry(0, 0, 640, 300);
    table->setColumnCount(2);
    table->setColumnWidth(0, 200);
    table->setRowCount(3);
    const char* sizes[] = {"9", "100", "25"};
    for (int r = 0; r < 3; ++r) {
        table->setCellText(r, 0, VyString("Disk ") + VyString::number(r));
        table->setCellText(r, 1, sizes[r]);
    }
    table->setCellText(3, 0, "refused"); // no such row
    table->setSortingEnabled(true);
    table->show();
    table->setCurrentCell(1, 0);
    const VyRect hh = table->horizontalHeader()->geometry();
    click(hh.left + 300, hh.top + 5); // the second column's title
    EXPECT_EQ(table->sortColumn(), 1);
    EXPECT_EQ(table->sortOrder(), VyHeaderView::Ascending);
    EXPECT_EQ(table->cell(0, 1).text, "9"); // as numbers, not as text
    EXPECT_EQ(table->cell(2, 1).text, "100");
    EXPECT_EQ(table->currentRow(), 2); // the current row moved with its data
    click(hh.left + 300, hh.top + 5);
    EXPECT_EQ(table->sortOrder(), VyHeaderView::Descending);
    EXPECT_EQ(table->cell(0, 0).text, "Disk 1");
    // Dragging the first column's right edge.
    pointer(hh.left + 200, hh.top + 5, 1);
    pointer(hh.left + 260, hh.top + 5, 1);
    release(hh.left + 260, hh.top + 5);
    EXPECT_EQ(table->columnWidth(0), 260);
    EXPECT_EQ(table->sortOrder(), VyHeaderView::Descending); // a drag is no click
    // A zero width hides the column from hits and drawing.
    table->setColumnWidth(0, 0);
    EXPECT_EQ(table->columnAt(VyPoint(table->viewport()->geometry().left + 5, 100)), 1);
    app()->processPostedEvents();
}

TEST_F(TableWidget, ACellControlFollowsItsRowAndTakesOk) {
    std::unique_ptr<VyWidget> window(makeWindow());
    auto* table = new VyTableWidget(window.get());
    table->setGeometry(0, 0, 640, 300);
    table->setColumnCount(2);
    table->setRowCount(50);
    table->setCellWidget(1, 1, new VyPushButton("window")); // parentless: refused
    auto* button = new VyPushButton("Play", table->viewport());
    table->setCellWidget(1, 1, button);
    table->show();
    SignalCounter clicks(button, &button->clicked);
    EXPECT_TRUE(button->isVisible());
    EXPECT_EQ(button->parentWidget(), table->viewport());
    table->setFocus();
    table->setCurrentCell(1, 1);
    key(table, VyKeyEvent::KeyOk);
    advance(VyAbstractButton::kAnimateClickMs + 10);
    EXPECT_EQ(clicks.count, 1);
    table->scrollToRow(49); // its row leaves the view
    EXPECT_FALSE(button->isVisible());
    table->scrollToRow(0);
    EXPECT_TRUE(button->isVisible());
    table->setCellWidget(1, 1, nullptr);
    EXPECT_EQ(table->cellWidget(1, 1), nullptr);
    table->setCellWidget(99, 0, new VyPushButton("x", table)); // no such row: refused, deleted
}
