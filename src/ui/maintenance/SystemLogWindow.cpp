#include "ui/maintenance/SystemLogWindow.h"

#include "model/CsvText.h"
#include "model/MaintenanceLink.h"
#include "model/RecDataManager.h"
#include "model/UsbFileWriter.h"
#include "protocol/UsbFileEntry.h"
#include "runtime/VyLog.h"
#include "toolkit/core/VyPointer.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/widgets/VyCalendarWidget.h"
#include "toolkit/widgets/VyCheckBox.h"
#include "toolkit/widgets/VyDateEdit.h"
#include "toolkit/widgets/VyLabel.h"
#include "toolkit/widgets/VyPushButton.h"
#include "toolkit/widgets/VyTableWidget.h"
#include "toolkit/widgets/VyTimeEdit.h"
#include "ui/UiLook.h"

namespace {

// Pixels at 1920x1080.
constexpr int kDesignWidth = 1500;
constexpr int kDesignHeight = 900;
constexpr int kMarginDesign = 24;
constexpr int kRowDesign = 48;
constexpr int kEditDesign = 210;
constexpr int kButtonDesign = 190;

struct TypeChoice {
    uint32_t bit;
    uint32_t textId;
};
constexpr TypeChoice kTypes[SystemLogWindow::kTypeCount] = {
    {LogSearchRequest::kSystem, TextId::Settings::System},
    {LogSearchRequest::kConfig, TextId::Maintenance::TypeConfig},
    {LogSearchRequest::kAlarm, TextId::Settings::Alarm},
    {LogSearchRequest::kStorage, TextId::Settings::Storage},
    {LogSearchRequest::kUser, TextId::Maintenance::TypeUser},
};

constexpr int kColumns = 4;

VyString columnText(const LogEntry& e, int column) {
    switch (column) {
    case 0:
        return RecDataManager::unpack(e.time).toString("yyyy-MM-dd HH:mm:ss");
    case 1:
        return SystemLogWindow::typeName(e.type);
    case 2:
        return e.channel >= 0 ? VyTranslation::tr(TextId::LiveView::ChannelName).arg(e.channel + 1)
                              : VyString("-");
    default:
        return VyString(e.text);
    }
}

} // namespace

SystemLogWindow::SystemLogWindow()
    : m_fromDate(new VyDateEdit(this))
    , m_fromTime(new VyTimeEdit(this))
    , m_toDate(new VyDateEdit(this))
    , m_toTime(new VyTimeEdit(this))
    , m_search(new VyPushButton(VyTranslation::tr(TextId::Playback::Search), this))
    , m_table(new VyTableWidget(this))
    , m_previous(new VyPushButton(VyTranslation::tr(TextId::Maintenance::PreviousPage), this))
    , m_pager(new VyLabel(this))
    , m_next(new VyPushButton(VyTranslation::tr(TextId::Maintenance::NextPage), this))
    , m_export(new VyPushButton(VyTranslation::tr(TextId::Maintenance::Export), this))
    , m_status(new VyLabel(this))
    , m_close(new VyPushButton(VyTranslation::tr(TextId::Common::Close), this)) {
    setTitleId(TextId::Maintenance::LogTitle);
    const VyDate today = VyDate::currentDate();
    m_fromDate->setDate(today);
    m_fromTime->setTime(VyTime(0, 0));
    m_toDate->setDate(today);
    m_toTime->setTime(VyTime(23, 59, 59));
    for (int i = 0; i < kTypeCount; ++i) {
        m_types[i] = new VyCheckBox(VyTranslation::tr(kTypes[i].textId), this);
        m_types[i]->setChecked(true);
    }
    m_table->setColumnCount(kColumns);
    m_table->setHorizontalHeaderLabels({VyTranslation::tr(TextId::Maintenance::Time),
                                        VyTranslation::tr(TextId::Maintenance::Type),
                                        VyTranslation::tr(TextId::Settings::Channel),
                                        VyTranslation::tr(TextId::Maintenance::Description)});
    m_table->setCellSource([this](int row, int column) {
        VyTableCell cell;
        if (row < 0 || row >= int(m_entries.size()))
            return cell;
        cell.text = columnText(m_entries[size_t(row)], column);
        return cell;
    });
    connect(m_search, &m_search->clicked, this, VY_SLOT(SystemLogWindow, searchClicked));
    connect(m_previous, &m_previous->clicked, this, VY_SLOT(SystemLogWindow, previousClicked));
    connect(m_next, &m_next->clicked, this, VY_SLOT(SystemLogWindow, nextClicked));
    connect(m_export, &m_export->clicked, this, VY_SLOT(SystemLogWindow, exportClicked));
    connect(m_close, &m_close->clicked, this, VY_SLOT(VyDialog, reject));
    for (VyObject* o : children())
        if (o->inherits("VyWidget"))
            static_cast<VyWidget*>(o)->show();
    syncPager();
    place(kDesignWidth, kDesignHeight);
}

VyString SystemLogWindow::typeName(uint32_t type) {
    for (const TypeChoice& t : kTypes)
        if (t.bit == type)
            return VyTranslation::tr(t.textId);
    return VyString("?");
}

int SystemLogWindow::pageCount() const {
    return int((m_total + kPageSize - 1) / kPageSize);
}

bool SystemLogWindow::search() {
    LogSearchRequest req;
    req.from = RecDataManager::pack(VyDateTime(m_fromDate->date(), m_fromTime->time()));
    req.to = RecDataManager::pack(VyDateTime(m_toDate->date(), m_toTime->time()));
    req.typeMask = 0;
    for (int i = 0; i < kTypeCount; ++i)
        if (m_types[i]->isChecked())
            req.typeMask |= kTypes[i].bit;
    req.maxCount = kPageSize;
    m_request = req;
    m_searched = true;
    m_total = 0;
    m_page = 0;
    return showPage(0);
}

bool SystemLogWindow::showPage(int index) {
    if (index < 0 || (index > 0 && index >= pageCount()))
        return false;
    m_request.first = uint32_t(index) * kPageSize;
    VyPointer<SystemLogWindow> self(this);
    const auto page = MaintenanceLink::searchLog(m_request); // runs the event loop
    if (!self)
        return false;
    if (!page) {
        m_entries.clear();
        m_total = 0;
        m_page = 0;
        m_status->setText(VyTranslation::tr(TextId::Maintenance::AnswerRefused));
        m_table->setRowCount(0);
        syncPager();
        return false;
    }
    m_total = page->total;
    m_page = index;
    m_entries = page->entries;
    m_status->setText(VyString());
    m_table->setRowCount(int(m_entries.size()));
    m_table->scrollToRow(0);
    syncPager();
    update();
    return true;
}

std::string SystemLogWindow::csvLine(const LogEntry& entry) {
    std::string line;
    for (int column = 0; column < kColumns; ++column) {
        if (column > 0)
            line += ',';
        line += CsvText::field(columnText(entry, column).toStdString());
    }
    return line + "\r\n";
}

VyString SystemLogWindow::exportFileName() const {
    return VyString("systemlog_") + m_fromDate->date().toString("yyyyMMdd") + "_" +
           m_toDate->date().toString("yyyyMMdd") + ".csv";
}

bool SystemLogWindow::exportToUsb() {
    if (!m_searched && !search())
        return false;
    // Page by page as App serves them, never more than one file's worth held: a search of
    // a million entries stops at the limit instead of filling the memory.
    std::string csv = kCsvHeader;
    LogSearchRequest req = m_request;
    uint32_t total = m_total;
    VyPointer<SystemLogWindow> self(this);
    for (req.first = 0; req.first < total; req.first += kPageSize) {
        const auto page = MaintenanceLink::searchLog(req); // runs the event loop
        if (!self)
            return false;
        if (!page || page->entries.empty()) {
            m_status->setText(VyTranslation::tr(TextId::Maintenance::AnswerRefused));
            return false;
        }
        total = page->total; // App may have logged more meanwhile
        for (const LogEntry& e : page->entries)
            csv += csvLine(e);
        if (csv.size() > UsbWriteRequest::kMaxBytes) {
            VY_GUI_LOG("system log export refused: more than %u bytes\n",
                       unsigned(UsbWriteRequest::kMaxBytes));
            m_status->setText(VyTranslation::tr(TextId::Maintenance::LogTooLarge));
            return false;
        }
    }
    const VyString name = exportFileName();
    const FaceEditAnswer answer =
        UsbFileWriter::write(name, std::vector<uint8_t>(csv.begin(), csv.end()));
    if (!self)
        return false;
    if (answer.result != FaceEditAnswer::kOk) {
        VY_GUI_LOG("system log export to \"%s\" failed: %u\n", name.c_str(), answer.result);
        m_status->setText(VyTranslation::tr(TextId::Maintenance::LogExportFailed));
        return false;
    }
    VY_GUI_LOG("system log exported to \"%s\": %zu bytes\n", name.c_str(), csv.size());
    m_status->setText(VyTranslation::tr(TextId::Maintenance::LogExported).arg(name));
    return true;
}

VyString SystemLogWindow::pageText() const {
    return m_pager->text();
}

VyString SystemLogWindow::statusText() const {
    return m_status->text();
}

void SystemLogWindow::syncPager() {
    const int pages = pageCount();
    m_pager->setText(VyTranslation::tr(TextId::Maintenance::PageOf)
                         .arg(pages == 0 ? 0 : m_page + 1)
                         .arg(pages)
                         .arg(VyString::number(m_total)));
    m_previous->setEnabled(m_page > 0);
    m_next->setEnabled(m_page + 1 < pages);
}

void SystemLogWindow::resizeEvent(VyResizeEvent* e) {
    VyDialog::resizeEvent(e);
    const VyRect c = contentRect();
    const int m = UiLook::scaledX(kMarginDesign);
    const int row = UiLook::scaledY(kRowDesign);
    const int edit = UiLook::scaledX(kEditDesign);
    const int button = UiLook::scaledX(kButtonDesign);
    const int left = c.x() + m, right = c.x() + c.width() - m;
    int y = c.y() + m / 2;
    int x = left;
    for (VyWidget* w : {static_cast<VyWidget*>(m_fromDate), static_cast<VyWidget*>(m_fromTime),
                        static_cast<VyWidget*>(m_toDate), static_cast<VyWidget*>(m_toTime)}) {
        w->setGeometry(x, y, edit, row);
        x += edit + m / 2;
    }
    y += row + m / 2;
    x = left;
    for (VyCheckBox* box : m_types) {
        box->setGeometry(x, y, edit, row);
        x += edit + m / 2;
    }
    m_search->setGeometry(right - button, y, button, row);
    y += row + m;
    const int bottom = c.y() + c.height() - m / 2;
    const int tableBottom = bottom - 2 * row - m;
    m_table->setGeometry(left, y, right - left, tableBottom - y);
    const int w = right - left;
    m_table->setColumnWidth(0, w / 4);
    m_table->setColumnWidth(1, w / 6);
    m_table->setColumnWidth(2, w / 6);
    m_table->setColumnWidth(3, w - w / 4 - 2 * (w / 6) - 4);
    m_status->setGeometry(left, tableBottom + m / 2, right - left, row);
    m_previous->setGeometry(left, bottom - row, button, row);
    m_pager->setGeometry(left + button + m, bottom - row, right - left - 4 * button - 4 * m, row);
    m_next->setGeometry(right - 3 * button - 2 * m, bottom - row, button, row);
    m_export->setGeometry(right - 2 * button - m, bottom - row, button, row);
    m_close->setGeometry(right - button, bottom - row, button, row);
}
