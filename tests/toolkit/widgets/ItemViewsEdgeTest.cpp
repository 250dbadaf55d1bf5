// The item views at their edges: controls deleted by their own signals, empty and degenerate
// contents, and drawing that must stay inside the control.
#include "ControlTestApp.h"

#include <functional>
#include <memory>

#include "toolkit/core/VyScreen.h"
#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/widgets/VyCalendarWidget.h"
#include "toolkit/widgets/VyComboBox.h"
#include "toolkit/widgets/VyDateEdit.h"
#include "toolkit/widgets/VyHeaderView.h"
#include "toolkit/widgets/VyInnerListWidget.h"
#include "toolkit/widgets/VyListWidget.h"
#include "toolkit/widgets/VyTabBar.h"
#include "toolkit/widgets/VyTableWidget.h"
#include "toolkit/widgets/VyTableWidgetHHeader.h"
#include "toolkit/widgets/VyTimeEdit.h"
#include "toolkit/widgets/WndTimeoutManager.h"

using ItemViewEdges = ControlTest;

namespace {

// Deletes a widget from a slot, as an owner closing a page on a choice would.
class Deleter : public VyObject {
    VY_OBJECT(Deleter, VyObject)
public:
    explicit Deleter(VyWidget* target)
        : m_target(target) {}
    void hit() {
        delete m_target;
        m_target = nullptr;
    }
    bool done() const { return m_target == nullptr; }

private:
    VyWidget* m_target;
};

class Backdrop : public VyWidget {
    VY_OBJECT(Backdrop, VyWidget)
public:
    static constexpr vyargb kColour = 0xFF102030;
    void paintEvent(VyPaintEvent*) override { canvas()->fillRect(rect(), kColour); }
};

} // namespace

TEST_F(ItemViewEdges, ControlsDeletedByTheirOwnSignalsAreSurvived) {
    Backdrop window;
    window.setGeometry(0, 0, 640, 480);
    window.show();
    {
        auto* combo = new VyComboBox(&window);
        combo->setGeometry(10, 10, 200, 36);
        combo->show();
        combo->addItems(VyStringList() << "A"
                                       << "B");
        Deleter deleter(combo);
        VyObject::connect(combo, &combo->currentIndexChanged, &deleter, VY_SLOT(Deleter, hit));
        key(combo, VyKeyEvent::KeyOk);
        key(combo->popup(), VyKeyEvent::KeyDown);
        key(combo->popup(), VyKeyEvent::KeyOk);
        EXPECT_TRUE(deleter.done());
        app()->processPostedEvents();
        EXPECT_EQ(app()->activePopupWidget(), nullptr);
    }
    {
        auto* list = new VyListWidget(&window);
        list->setGeometry(10, 60, 200, 200);
        list->show();
        list->addItem("Disk 1");
        list->setItemCheckable(0, true);
        list->setCurrentRow(0);
        Deleter deleter(list);
        VyObject::connect(list, &list->itemCheckChanged, &deleter, VY_SLOT(Deleter, hit));
        key(list, VyKeyEvent::KeyOk);
        EXPECT_TRUE(deleter.done());
    }
    {
        auto* table = new VyTableWidget(&window);
        table->setGeometry(10, 60, 300, 200);
        table->setColumnCount(2);
        table->setRowCount(5);
        table->show();
        Deleter deleter(table);
        VyObject::connect(table, &table->currentCellChanged, &deleter, VY_SLOT(Deleter, hit));
        click(40, 60 + table->rowHeight() * 2 + 5);
        EXPECT_TRUE(deleter.done());
    }
    app()->processPostedEvents();
}

TEST_F(ItemViewEdges, EveryControlDrawsOnlyInsideItsRectangle) {
    using Make = std::function<VyWidget*(VyWidget*)>;
    const std::pair<const char*, Make> controls[] = {
        {"combo",
         [](VyWidget* p) {
             auto* w = new VyComboBox(p);
             w->addItem("A very long resolution name that cannot fit in the field");
             return w;
         }},
        {"list",
         [](VyWidget* p) {
             auto* w = new VyListWidget(p);
             for (int i = 0; i < 40; ++i)
                 w->addItem("A row far wider than the list is, row " + VyString::number(i));
             w->setItemCheckable(0, true);
             return w;
         }},
        {"table",
         [](VyWidget* p) {
             auto* w = new VyTableWidget(p);
             w->setColumnCount(9);
             w->setRowCount(1000);
             w->setColumnWidth(0, 0);
             w->setColumnWidth(1, 500); // wider than the table
             w->setCellSource([](int r, int c) {
                 VyTableCell cell;
                 cell.text = "cell " + VyString::number(r) + "," + VyString::number(c);
                 return cell;
             });
             w->setVerticalHeaderVisible(true);
             return w;
         }},
        {"empty table", [](VyWidget* p) { return new VyTableWidget(p); }},
        {"date", [](VyWidget* p) { return new VyDateEdit(p); }},
        {"time",
         [](VyWidget* p) {
             auto* w = new VyTimeEdit(p);
             w->setHour12(true);
             return w;
         }},
        {"tabs",
         [](VyWidget* p) {
             auto* w = new VyTabBar(p);
             for (int i = 0; i < 9; ++i)
                 w->addTab("Maintenance " + VyString::number(i));
             return w;
         }},
        {"calendar", [](VyWidget* p) { return new VyCalendarWidget(p); }},
    };
    const VyRect place(100, 100, 180, 70);
    for (const auto& [name, make] : controls) {
        Backdrop window;
        window.setGeometry(0, 0, 640, 480);
        VyWidget* control = make(&window);
        control->setGeometry(place);
        window.show();
        control->show();
        for (VyObject* child : control->children())
            if (child->isWidgetType() && !static_cast<VyWidget*>(child)->isWindow())
                static_cast<VyWidget*>(child)->show();
        control->setFocus();
        app()->processPostedEvents();
        VyScreen* screen = app()->screen();
        const uint16_t backdrop = 0x8000 | ((Backdrop::kColour >> 19) & 31) << 10 |
                                  ((Backdrop::kColour >> 11) & 31) << 5 |
                                  ((Backdrop::kColour >> 3) & 31);
        int outside = 0;
        int inside = 0;
        for (int y = 0; y < 480; ++y) {
            const auto* line =
                reinterpret_cast<const uint16_t*>(screen->mapping() + y * screen->lineLength());
            for (int x = 0; x < 640; ++x) {
                if (place.contains(VyPoint(x, y)))
                    inside += line[x] != backdrop;
                else
                    outside += line[x] != backdrop;
            }
        }
        EXPECT_EQ(outside, 0) << name;
        EXPECT_GT(inside, 0) << name;
    }
}

TEST_F(ItemViewEdges, HeaderSectionsStretchHideAndReopenFromZero) {
    VyWidget window;
    window.setGeometry(0, 0, 640, 480);
    window.show();
    auto* header = new VyHeaderView(VyHeaderView::Horizontal, &window);
    header->setGeometry(0, 0, 400, 30);
    header->show();
    header->setDefaultSectionSize(100);
    header->setSectionCount(3);
    header->setStretchLastSection(true);
    EXPECT_EQ(header->sectionSize(2), 200); // the rest of the header
    EXPECT_EQ(header->sectionAt(399), 2);
    EXPECT_EQ(header->sectionAt(-1), -1);
    header->setSectionSize(1, -5);
    EXPECT_EQ(header->sectionSize(1), 0);
    EXPECT_EQ(header->sectionAt(100), 2); // the hidden section takes no hits
    // Its edge lies on the first one's: a drag there pulls the hidden section open again.
    press(100, 10);
    pointer(160, 10, 1);
    release(160, 10);
    EXPECT_EQ(header->sectionSize(1), 60);
    EXPECT_EQ(header->sectionSize(0), 100);
    header->setOffset(50);
    EXPECT_EQ(header->sectionAt(0), 0);
    EXPECT_EQ(header->sectionAt(60), 1);
    header->setSectionCount(0);
    EXPECT_EQ(header->length(), 0);
    EXPECT_EQ(header->sectionAt(10), -1);
}

TEST_F(ItemViewEdges, ComboPopupOpensAboveAFieldAtTheBottomAndSurvivesClear) {
    Backdrop window;
    window.setGeometry(0, 0, 640, 480);
    window.show();
    auto* combo = new VyComboBox(&window);
    combo->setGeometry(10, 430, 200, 36);
    combo->show();
    for (int i = 0; i < 8; ++i)
        combo->addItem(VyString::number(i));
    combo->setCurrentIndex(7);
    combo->showPopup();
    VyInnerListWidget* list = combo->popup();
    ASSERT_NE(list, nullptr);
    EXPECT_LE(list->geometry().bottom, 429); // above the field
    EXPECT_EQ(list->currentRow(), 7);        // the current item highlighted, in view
    EXPECT_GE(list->currentRow(), list->topRow());
    combo->clear();
    EXPECT_FALSE(combo->isPopupVisible());
    EXPECT_EQ(combo->currentIndex(), -1);
    app()->processPostedEvents();
    combo->addItem("x");
    EXPECT_EQ(combo->currentIndex(), 0);
}

TEST_F(ItemViewEdges, TheWindowTimeoutManagerCancelsOpenDropDowns) {
    Backdrop window;
    window.setGeometry(0, 0, 640, 480);
    window.show();
    auto* combo = new VyComboBox(&window);
    combo->setGeometry(10, 10, 200, 36);
    combo->show();
    combo->addItems(VyStringList() << "PAL"
                                   << "NTSC");
    auto* date = new VyDateEdit(&window);
    date->setGeometry(10, 100, 200, 36);
    date->show();
    date->setDate(VyDate(2026, 1, 1));
    WndTimeoutManager timeouts;
    timeouts.setEnabled(true);
    combo->showPopup();
    key(combo->popup(), VyKeyEvent::KeyDown);
    timeouts.onIdleTimeout();
    EXPECT_FALSE(combo->isPopupVisible());
    EXPECT_EQ(combo->currentIndex(), 0); // nothing chosen
    date->showCalendar();
    key(date->calendar(), VyKeyEvent::KeyRight);
    timeouts.onIdleTimeout();
    EXPECT_EQ(date->calendar(), nullptr);
    EXPECT_EQ(date->date(), VyDate(2026, 1, 1));
    app()->processPostedEvents();
    EXPECT_EQ(app()->activeModalWidget(), nullptr);
}
