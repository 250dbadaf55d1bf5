#include "ItemGallery.h"

#include <functional>

#include "toolkit/events/VyKeyEvent.h"
#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/style/VyStyle.h"
#include "toolkit/style/VyStyleDefaults.h"
#include "toolkit/style/VyStyleSlot.h"
#include "toolkit/style/VyTextLayout.h"
#include "toolkit/widgets/VyCalendarWidget.h"
#include "toolkit/widgets/VyComboBox.h"
#include "toolkit/widgets/VyDateEdit.h"
#include "toolkit/widgets/VyLabel.h"
#include "toolkit/widgets/VyListWidget.h"
#include "toolkit/widgets/VyMenu.h"
#include "toolkit/widgets/VyMessageBox.h"
#include "toolkit/widgets/VyPushButton.h"
#include "toolkit/widgets/VyTabBar.h"
#include "toolkit/widgets/VyTableWidget.h"
#include "toolkit/widgets/VyTableWidgetHHeader.h"
#include "toolkit/widgets/VyTableWidgetViewPort.h"
#include "toolkit/widgets/VyTimeEdit.h"

namespace {

// Design metrics of the page (pixels at 1920x1080).
constexpr int kMargin = 40;
constexpr int kNameWidth = 190;
constexpr int kColumnLeft = kMargin + kNameWidth;
constexpr int kColumnStep = 275;
constexpr int kCellWidth = 245;
constexpr int kCellHeight = 40;
constexpr int kRowStep = 58;

class StyleCell : public VyWidget {
    VY_OBJECT(StyleCell, VyWidget)
public:
    using Draw = std::function<void(VyCanvas*, const VyRect&)>;
    StyleCell(VyWidget* parent, Draw draw)
        : VyWidget(parent)
        , m_draw(std::move(draw)) {}

protected:
    void paintEvent(VyPaintEvent*) override { m_draw(canvas(), rect()); }

private:
    Draw m_draw;
};

void showTree(VyWidget* w) {
    w->show();
    for (VyObject* child : w->children())
        if (child->isWidgetType() && !static_cast<VyWidget*>(child)->isWindow())
            showTree(static_cast<VyWidget*>(child));
}

const char* const kStates[] = {"Normal", "Hover", "Focus", "Disabled"};

} // namespace

ItemGallery::ItemGallery(int screenWidth, int screenHeight)
    : VyWidget(nullptr)
    , m_hScale(static_cast<float>(screenWidth) / 1920.0f)
    , m_vScale(static_cast<float>(screenHeight) / 1080.0f) {
    setObjectName("ItemGallery");
    // The standard buttons' texts come from the catalogue: the page shows them in English.
    VyTranslation::instance()->changeLanguage(VyTranslation::kEnglish);
    setGeometry(0, 0, screenWidth, screenHeight);
    buildStateRows();
    buildViews();
}

ItemGallery::~ItemGallery() = default;

int ItemGallery::sx(int designX) const {
    return static_cast<int>(static_cast<float>(designX) * m_hScale);
}

int ItemGallery::sy(int designY) const {
    return static_cast<int>(static_cast<float>(designY) * m_vScale);
}

void ItemGallery::paintEvent(VyPaintEvent*) {
    canvas()->fillRect(rect(), VyStyleDefaults::kControlDisabled);
}

void ItemGallery::showPage() {
    // Children first: a table lays out its parts when it is shown.
    showTree(this);
    m_openCombo->setFocus();
    m_openCombo->showPopup();
    m_menu->popup(VyPoint(sx(kMargin), sy(700)));
    m_menu->setHighlighted(3);
    m_menu->keyLeftRight(VyKeyEvent::KeyRight);
    m_box->show();
    m_box->move(sx(1180), sy(680));
}

void ItemGallery::buildStateRows() {
    VyStyle* style = VyStyle::instance();
    auto* title = new VyLabel("Item views and windows", this);
    title->setGeometry(sx(kMargin), sy(30), sx(900), sy(40));
    for (int c = 0; c < 4; ++c) {
        auto* head = new VyLabel(kStates[c], this);
        head->setAlignment(VyCanvas::AlignHCenter | VyCanvas::AlignVCenter);
        head->setGeometry(sx(kColumnLeft + c * kColumnStep), sy(80), sx(kCellWidth),
                          sy(kCellHeight));
    }
    using DrawState = std::function<void(VyCanvas*, const VyRect&, int slot)>;
    struct Row {
        const char* name;
        DrawState draw;
    };
    const Row rows[] = {
        {"VyComboBox", [style](VyCanvas* c, const VyRect& r,
                               int slot) { style->drawComboBox(c, r, slot, "1080P"); }},
        {"VyDateEdit",
         [style](VyCanvas* c, const VyRect& r, int slot) {
             // The focus look highlights the section being edited.
             const int px = VyStyle::fontSize(style->option().get<VyDateEditOption>().font, slot);
             const int to = slot == VyStyleFocus ? VyTextLayout::width("2026", px) : 0;
             style->drawDateEdit(c, r, slot, "2026-11-23", 0, to, true);
         }},
    };
    int top = 125;
    for (const Row& row : rows) {
        auto* name = new VyLabel(row.name, this);
        name->setGeometry(sx(kMargin), sy(top), sx(kNameWidth - 10), sy(kCellHeight));
        for (int c = 0; c < 4; ++c) {
            const DrawState draw = row.draw;
            auto* cell = new StyleCell(
                this, [draw, c](VyCanvas* canvas, const VyRect& r) { draw(canvas, r, c); });
            cell->setGeometry(sx(kColumnLeft + c * kColumnStep), sy(top), sx(kCellWidth),
                              sy(kCellHeight));
        }
        top += kRowStep;
    }
}

void ItemGallery::buildViews() {
    const int top = 260;
    auto* resolution = new VyComboBox(this);
    for (const char* r : {"1920x1080 / 60Hz", "1280x1024 / 60Hz", "1280x720 / 60Hz",
                          "1024x768 / 60Hz", "3840x2160 / 30Hz"})
        resolution->addItem(r);
    resolution->setCurrentIndex(2);
    resolution->setGeometry(sx(kMargin), sy(top), sx(300), sy(kCellHeight));
    m_openCombo = resolution;

    auto* list = new VyListWidget(this);
    list->setSelectionMode(VyListWidget::MultiSelection);
    for (int i = 0; i < 14; ++i) {
        list->addItem(VyString("Camera ") + VyString::number(i + 1));
        list->setItemCheckable(i, true);
        list->setItemChecked(i, i % 3 == 0);
    }
    list->setSelected(1, true);
    list->setCurrentRow(2);
    list->setGeometry(sx(kMargin + 340), sy(top), sx(300), sy(300));

    auto* table = new VyTableWidget(this);
    table->setColumnCount(4);
    table->setHorizontalHeaderLabels(VyStringList() << "No."
                                                    << "Time"
                                                    << "Type"
                                                    << "Action");
    table->setColumnWidth(0, sx(90));
    table->setColumnWidth(1, sx(260));
    table->setColumnWidth(2, sx(180));
    table->setVerticalHeaderVisible(false);
    table->setCellSource([](int row, int column) {
        VyTableCell c;
        switch (column) {
        case 0:
            c.text = VyString::number(row + 1);
            c.alignment = VyCanvas::AlignCenter;
            break;
        case 1:
            c.text =
                VyString("2026-11-23 08:") + (row < 10 ? "0" : "") + VyString::number(row) + ":15";
            break;
        case 2:
            c.text = row % 4 == 1 ? "Motion" : (row % 4 == 3 ? "Video loss" : "Record");
            if (row % 4 == 3)
                c.foreground = 0xFFE67864;
            break;
        default:
            break;
        }
        return c;
    });
    table->setRowCount(100000);
    table->setSortingEnabled(true);
    table->horizontalHeader()->setSortIndicator(1, VyHeaderView::Descending);
    table->setGeometry(sx(kMargin + 680), sy(top), sx(700), sy(300));
    table->setCellWidget(0, 3, new VyPushButton("Play", table->viewport()));
    table->setCellWidget(2, 3, new VyPushButton("Play", table->viewport()));
    table->setCurrentCell(1, 0);

    auto* tabs = new VyTabBar(this);
    for (const char* t : {"Display", "Record", "Network", "Alarm", "Storage", "System"})
        tabs->addTab(t);
    tabs->setCurrentIndex(1);
    tabs->setGeometry(sx(kMargin + 340), sy(600), sx(1040), sy(48));

    m_menu = new VyMenu(this);
    const VyBitmap icon = VyStyle::instance()->imageForScale(
        "images/messagebox-information.png", VyStyle::instance()->horizontalScale());
    m_menu->addAction("Main menu", 1, icon);
    m_menu->addAction("Playback", 2);
    m_menu->addSeparator();
    VyMenu* layouts = m_menu->addMenu("Layout");
    layouts->addAction("1 screen", 10);
    layouts->addAction("4 screens", 11);
    layouts->addAction("9 screens", 12);
    layouts->setItemEnabled(2, false);
    m_menu->addAction("Lock", 3);

    auto* date = new VyDateEdit(this);
    date->setDateFormat(VyDateEdit::YearMonthDay);
    date->setDate(VyDate(2026, 11, 23));
    date->setGeometry(sx(1460), sy(260), sx(240), sy(kCellHeight));
    auto* time = new VyTimeEdit(this);
    time->setHour12(true);
    time->setTime(VyTime(20, 15, 30));
    time->setGeometry(sx(1720), sy(260), sx(160), sy(kCellHeight));
    auto* calendar = new VyCalendarWidget(this);
    calendar->setToday(VyDate(2026, 11, 23));
    calendar->setSelectedDate(VyDate(2026, 11, 18));
    calendar->setMarkedDays({VyDate(2026, 11, 2), VyDate(2026, 11, 3), VyDate(2026, 11, 9),
                             VyDate(2026, 11, 18), VyDate(2026, 11, 20)});
    const VySize cs = calendar->sizeHint();
    calendar->setGeometry(sx(1460), sy(320), cs.width, cs.height);

    m_box =
        new VyMessageBox(VyMessageBox::Question, "Format the disk? Every recording on it is lost.",
                         VyMessageBox::Yes | VyMessageBox::No, this);
    m_box->setTitle("Question");
}
