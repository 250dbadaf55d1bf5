#include "ui/analytics/face/AttendancePage.h"

#include "runtime/VyDate.h"
#include "runtime/VyIniSettings.h"
#include "runtime/VyResources.h"
#include "runtime/VyStringList.h"
#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/widgets/VyCalendarWidget.h"
#include "toolkit/widgets/VyDateEdit.h"
#include "toolkit/widgets/VyLabel.h"
#include "toolkit/widgets/VyPushButton.h"
#include "toolkit/widgets/VySpinBox.h"
#include "toolkit/widgets/VyTableWidget.h"
#include "ui/analytics/face/FaceLibraryPage.h"
#include "ui/analytics/face/FacePageRow.h"

namespace {

constexpr const char* kStyleFile = "style/faceapps.ini";
constexpr long long kEpochJulianDay = 2440588; // 1970-01-01
constexpr int kDefaultDays = 7;
constexpr int kMaxChannels = 64;

int64_t dayOf(const VyDate& date) {
    return date.toJulianDay() - kEpochJulianDay;
}

} // namespace

AttendancePage::AttendancePage(FaceLibraryModel* library, int channelCount, VyWidget* parent)
    : VyWidget(parent)
    , m_library(library)
    , m_fromLabel(new VyLabel(this))
    , m_from(new VyDateEdit(this))
    , m_toLabel(new VyLabel(this))
    , m_to(new VyDateEdit(this))
    , m_dayStartLabel(new VyLabel(this))
    , m_dayStart(new VySpinBox(this))
    , m_search(new VyPushButton(VyTranslation::tr(TextId::Playback::Search), this))
    , m_export(new VyPushButton(VyTranslation::tr(TextId::Analytics::ExportCsv), this))
    , m_message(new VyLabel(this))
    , m_table(new VyTableWidget(this)) {
    const VyIniSettings ini(VyResources::path(kStyleFile));
    m_background = UiLook::colourOr(ini, "FacePage/Background", m_background);
    m_options.channelMask =
        channelCount >= kMaxChannels ? ~uint64_t(0) : (uint64_t(1) << channelCount) - 1;
    m_fromLabel->setTextId(TextId::Analytics::From);
    m_toLabel->setTextId(TextId::Analytics::To);
    m_dayStartLabel->setTextId(TextId::Analytics::DayStart);
    m_dayStart->setRange(0, 23);
    m_dayStart->setSuffix(":00");
    const VyDate today = VyDate::currentDate();
    m_to->setDate(today);
    m_from->setDate(today.addDays(-kDefaultDays));
    m_table->setColumnCount(ColumnCount);
    m_table->setHorizontalHeaderLabels(VyStringList()
                                       << VyTranslation::tr(TextId::Analytics::Name)
                                       << VyTranslation::tr(TextId::Analytics::Date)
                                       << VyTranslation::tr(TextId::Analytics::CheckIn)
                                       << VyTranslation::tr(TextId::Analytics::CheckOut));
    m_table->setCellSource([this](int row, int column) {
        VyTableCell cell;
        if (row < 0 || size_t(row) >= m_rows.size())
            return cell;
        const AttendanceReport::Row& r = m_rows[size_t(row)];
        std::string text;
        switch (column) {
        case NameColumn:
            cell.text = r.name;
            return cell;
        case DateColumn:
            text = AttendanceReport::dateText(r.day);
            break;
        case CheckInColumn:
            text = AttendanceReport::timeText(r.checkIn);
            break;
        default:
            // A check-out on a later calendar day (a night shift) shows its date too.
            if (r.checkOut >= 0)
                text = (r.checkOut / AttendanceReport::kSecondsPerDay ==
                                r.checkIn / AttendanceReport::kSecondsPerDay
                            ? std::string()
                            : AttendanceReport::dateText(r.checkOut /
                                                         AttendanceReport::kSecondsPerDay) +
                                  " ") +
                       AttendanceReport::timeText(r.checkOut);
            break;
        }
        cell.text = VyString(text.c_str());
        return cell;
    });
    connect(m_search, &m_search->clicked, this, VY_SLOT(AttendancePage, search));
    connect(m_export, &m_export->clicked, this, VY_SLOT(AttendancePage, exportCsv));
    for (VyObject* child : children())
        static_cast<VyWidget*>(child)->show();
}

AttendancePage::~AttendancePage() = default;

uint32_t AttendancePage::titleTextId() {
    return TextId::Analytics::Attendance;
}

void AttendancePage::search() {
    m_rows.clear();
    m_options.dayStartHour = m_dayStart->value();
    if (m_library != nullptr && m_from->date() <= m_to->date()) {
        if (!m_library->loaded())
            m_library->refresh();
        // Whole working days, each from dayStartHour to the same hour the next day.
        const int64_t from = dayOf(m_from->date()) * AttendanceReport::kSecondsPerDay +
                             m_options.dayStartHour * 3600;
        const int64_t to = (dayOf(m_to->date()) + 1) * AttendanceReport::kSecondsPerDay +
                           m_options.dayStartHour * 3600;
        const auto recs = m_library->recognitions(from, to, m_options.channelMask);
        FaceLibraryModel* library = m_library;
        m_rows = AttendanceReport::build(
            recs,
            [library](uint32_t id) -> std::optional<VyString> {
                if (const FaceLibraryModel::Face* f = library->face(id))
                    return f->name;
                return std::nullopt;
            },
            m_options);
    }
    m_table->setRowCount(int(m_rows.size()));
    m_table->update();
    m_message->setText(VyTranslation::tr(TextId::Analytics::Results).arg(int(m_rows.size())));
}

void AttendancePage::exportCsv() {
    if (m_library == nullptr)
        return;
    const std::string csv = AttendanceReport::toCsv(m_rows);
    const std::string name = "attendance_" + AttendanceReport::dateText(dayOf(m_from->date())) +
                             "_" + AttendanceReport::dateText(dayOf(m_to->date())) + ".csv";
    const auto r = m_library->writeUsbFile(VyString(name.c_str()),
                                           std::vector<uint8_t>(csv.begin(), csv.end()));
    m_message->setText(VyTranslation::tr(FaceLibraryPage::resultTextId(r.result)));
}

VyString AttendancePage::message() const {
    return m_message->text();
}

void AttendancePage::paintEvent(VyPaintEvent*) {
    canvas()->fillRect(rect(), m_background);
}

void AttendancePage::resizeEvent(VyResizeEvent*) {
    FacePageRow::place(0, {{m_fromLabel, 80},
                           {m_from, 220},
                           {m_toLabel, 80},
                           {m_to, 220},
                           {m_dayStartLabel, 220},
                           {m_dayStart, 120}});
    FacePageRow::place(1, {{m_search, 160}, {m_export, 280}, {m_message, 500}});
    const int top = FacePageRow::top(2);
    const int margin = UiLook::scaledX(FacePageRow::kMarginDesign);
    m_table->setGeometry(margin, top, std::max(0, width() - 2 * margin),
                         std::max(0, height() - top - margin));
    const int widths[] = {420, 240, 240};
    for (int c = 0; c < 3; ++c)
        m_table->setColumnWidth(c, UiLook::scaledX(widths[c]));
}
