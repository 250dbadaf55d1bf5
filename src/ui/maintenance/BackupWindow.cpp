#include "ui/maintenance/BackupWindow.h"

#include "model/MaintenanceLink.h"
#include "model/ParamAccess.h"
#include "model/UiManager.h"
#include "protocol/PlaybackStatus.h"
#include "protocol/RecordTypeBit.h"
#include "runtime/VyLog.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
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
#include "ui/maintenance/ProgressDialog.h"
#include "ui/playback/PlaybackSession.h"
#include "ui/settings/BitMaskChecks.h"

#include <algorithm>

namespace {

// Pixels at 1920x1080.
constexpr int kDesignWidth = 1500;
constexpr int kDesignHeight = 900;
constexpr int kMarginDesign = 24;
constexpr int kRowDesign = 48;
constexpr int kCaptionDesign = 170;
constexpr int kEditDesign = 220;
constexpr int kButtonDesign = 170;
constexpr int kTypeBoxDesign = 330; // "Motion detection" in the longer languages

constexpr int kMiB = 1 << 20;
// StreamPair answers kbit/s of 1024 bits, as App counts its encoders' rates.
constexpr uint64_t kBitsPerKbit = 1024;
// Used when App does not answer a channel's rate: 2 Mbit/s, a main stream of 1080p.
constexpr uint64_t kFallbackBytesPerSecond = 2048 * kBitsPerKbit / 8;

// The record types of the check boxes, each with the bits of App's segments it stands for.
struct TypeChoice {
    uint32_t textId;
    uint32_t bits;
};
constexpr TypeChoice kTypes[BackupWindow::kTypeCount] = {
    {TextId::Playback::Continuous, RecordTypeBit::Continuous | RecordTypeBit::Manual},
    {TextId::Playback::Motion, RecordTypeBit::Motion | RecordTypeBit::MotionAndAlarm |
                                   RecordTypeBit::Smart | RecordTypeBit::AnalyticsMask},
    {TextId::Playback::Alarm,
     RecordTypeBit::Alarm | RecordTypeBit::MotionAndAlarm | RecordTypeBit::Pir},
};

VyString megabytes(uint64_t bytes) {
    return VyTranslation::tr(TextId::Maintenance::SizeMiB)
        .arg(VyString::number((unsigned long long)((bytes + kMiB - 1) / kMiB)));
}

} // namespace

BackupWindow::BackupWindow(int channelCount)
    : m_session(new PlaybackSession(this))
    , m_channels(
          new BitMaskChecks(std::max(1, std::min(channelCount, BitMaskChecks::kMaxBits)), this))
    , m_date(new VyDateEdit(this))
    , m_from(new VyTimeEdit(this))
    , m_to(new VyTimeEdit(this))
    , m_search(new VyPushButton(VyTranslation::tr(TextId::Playback::Search), this))
    , m_table(new VyTableWidget(this))
    , m_usb(new VyLabel(this))
    , m_status(new VyLabel(this))
    , m_export(new VyPushButton(VyTranslation::tr(TextId::Maintenance::Export), this))
    , m_close(new VyPushButton(VyTranslation::tr(TextId::Common::Close), this)) {
    setTitleId(TextId::LiveView::MenuBackup);
    for (uint32_t caption :
         {TextId::Maintenance::Channels, TextId::Maintenance::Date, TextId::Maintenance::From,
          TextId::Maintenance::To, TextId::Maintenance::RecordTypes}) {
        auto* l = new VyLabel(this);
        l->setTextId(caption);
        m_captions.push_back(l);
    }
    m_channels->setMask(~0ull);
    m_date->setDate(VyDate::currentDate());
    m_from->setTime(VyTime(0, 0));
    m_to->setTime(VyTime(23, 59, 59));
    for (int i = 0; i < kTypeCount; ++i) {
        m_types[i] = new VyCheckBox(VyTranslation::tr(kTypes[i].textId), this);
        m_types[i]->setChecked(true);
    }
    m_table->setColumnCount(4);
    m_table->setHorizontalHeaderLabels({VyTranslation::tr(TextId::Settings::Channel),
                                        VyTranslation::tr(TextId::Maintenance::Start),
                                        VyTranslation::tr(TextId::Maintenance::End),
                                        VyTranslation::tr(TextId::Maintenance::Size)});
    m_table->setSelectionMode(VyTableWidget::MultiSelection);
    m_table->setCellSource([this](int row, int column) {
        VyTableCell cell;
        if (row < 0 || row >= int(m_items.size()))
            return cell;
        const Item& it = m_items[size_t(row)];
        switch (column) {
        case 0:
            cell.text = VyTranslation::tr(TextId::LiveView::ChannelName).arg(it.channel + 1);
            break;
        case 1:
            cell.text = it.start.toString("yyyy-MM-dd HH:mm:ss");
            break;
        case 2:
            cell.text = it.end.toString("yyyy-MM-dd HH:mm:ss");
            break;
        default:
            cell.text = megabytes(it.bytes);
            cell.alignment = VyCanvas::AlignRight | VyCanvas::AlignVCenter;
            break;
        }
        return cell;
    });
    connect(m_search, &m_search->clicked, this, VY_SLOT(BackupWindow, searchClicked));
    connect(m_export, &m_export->clicked, this, VY_SLOT(BackupWindow, exportClicked));
    connect(m_close, &m_close->clicked, this, VY_SLOT(VyDialog, reject));
    connect(m_session, &m_session->daySearched, this, VY_SLOT(BackupWindow, onDaySearched));
    connect(m_session, &m_session->exportChanged, this, VY_SLOT(BackupWindow, onExportChanged));
    for (VyObject* o : children())
        if (o->inherits("VyWidget"))
            static_cast<VyWidget*>(o)->show();
    place(kDesignWidth, kDesignHeight);
}

BackupWindow::~BackupWindow() {
    m_session->setReady(false);
}

void BackupWindow::open() {
    m_session->setReady(true);
    if (UiManager* manager = UiManager::instance())
        manager->setPlaybackReceivers(m_session, nullptr);
    show();
    readUsb();
}

bool BackupWindow::readUsb() {
    VyPointer<BackupWindow> self(this);
    const auto info = MaintenanceLink::usbInfo(); // runs the event loop
    if (!self)
        return false;
    m_usbPresent = info && info->present != 0;
    m_usbFreeMiB = m_usbPresent ? info->freeMiB : 0;
    m_usbTotalMiB = m_usbPresent ? info->totalMiB : 0;
    m_usb->setText(m_usbPresent ? VyTranslation::tr(TextId::Maintenance::UsbFree)
                                      .arg(int(m_usbFreeMiB))
                                      .arg(int(m_usbTotalMiB))
                                : VyTranslation::tr(TextId::Playback::NoUsbDevice));
    return true;
}

uint32_t BackupWindow::typeMask() const {
    uint32_t mask = 0;
    for (int i = 0; i < kTypeCount; ++i)
        if (m_types[i]->isChecked())
            mask |= kTypes[i].bits;
    return mask;
}

uint64_t BackupWindow::bytesPerSecond(int channel) const {
    auto known = m_rates.find(channel);
    return known != m_rates.end() ? known->second : kFallbackBytesPerSecond;
}

bool BackupWindow::search() {
    if (m_state == ExportState::Running)
        return false;
    std::vector<int> channels;
    const uint64_t mask = m_channels->mask();
    for (int c = 0; c < m_channels->count(); ++c)
        if ((mask >> c) & 1u)
            channels.push_back(c);
    m_items.clear();
    m_table->setRowCount(0);
    const VyDate day = m_date->date();
    m_rangeStart = VyDateTime(day, m_from->time());
    m_rangeEnd = VyDateTime(day, m_to->time());
    if (channels.empty() || typeMask() == 0 || m_rangeEnd <= m_rangeStart) {
        setStatus(VyTranslation::tr(TextId::Maintenance::NothingFound));
        return false;
    }
    m_rates.clear();
    VyPointer<BackupWindow> self(this);
    for (int c : channels) {
        const uint32_t kbps = ParamAccess::requestPair(uint32_t(c)).first; // runs the event loop
        if (!self)
            return false;
        m_rates[c] = kbps > 0 ? uint64_t(kbps) * kBitsPerKbit / 8 : kFallbackBytesPerSecond;
    }
    setStatus(VyString());
    VY_GUI_LOG("backup search of %zu channels on %s\n", channels.size(),
               m_rangeStart.toString("yyyy-MM-dd").c_str());
    return m_session->searchDay(day, channels);
}

void BackupWindow::onDaySearched() {
    rebuildItems();
}

void BackupWindow::rebuildItems() {
    const uint32_t types = typeMask();
    m_items.clear();
    for (const RecordChannel& rc : m_session->results()) {
        for (const RecordSegment& s : rc.segments) {
            if ((s.typeBits & types) == 0)
                continue;
            const VyDateTime from = std::max(s.start, m_rangeStart);
            const VyDateTime to = std::min(s.end, m_rangeEnd);
            if (!(from < to))
                continue;
            Item it;
            it.channel = rc.channel;
            it.start = from;
            it.end = to;
            it.typeBits = s.typeBits;
            it.bytes = uint64_t(from.secsTo(to)) * bytesPerSecond(rc.channel);
            m_items.push_back(it);
        }
    }
    std::stable_sort(m_items.begin(), m_items.end(), [](const Item& a, const Item& b) {
        return a.channel != b.channel ? a.channel < b.channel : a.start < b.start;
    });
    m_table->clearSelection();
    m_table->setRowCount(int(m_items.size()));
    setStatus(m_items.empty() ? VyTranslation::tr(TextId::Maintenance::NothingFound) : VyString());
    update();
}

std::vector<int> BackupWindow::chosenRows() const {
    std::vector<int> rows;
    for (int r = 0; r < int(m_items.size()); ++r)
        if (m_table->isRowSelected(r))
            rows.push_back(r);
    if (rows.empty())
        for (int r = 0; r < int(m_items.size()); ++r)
            rows.push_back(r);
    return rows;
}

uint64_t BackupWindow::chosenBytes() const {
    uint64_t sum = 0;
    for (int r : chosenRows())
        sum += m_items[size_t(r)].bytes;
    return sum;
}

bool BackupWindow::exportChosen() {
    if (m_state == ExportState::Running)
        return false;
    if (m_items.empty()) {
        setStatus(VyTranslation::tr(TextId::Maintenance::NothingFound));
        return false;
    }
    if (!readUsb())
        return false;
    if (!m_usbPresent) {
        setStatus(VyTranslation::tr(TextId::Playback::NoUsbDevice));
        VY_GUI_LOG("backup refused: no USB device\n");
        return false;
    }
    const uint64_t bytes = chosenBytes();
    if (bytes > uint64_t(m_usbFreeMiB) * kMiB) {
        setStatus(VyTranslation::tr(TextId::Maintenance::TooLarge)
                      .arg(VyString::number((unsigned long long)((bytes + kMiB - 1) / kMiB)))
                      .arg(int(m_usbFreeMiB)));
        VY_GUI_LOG("backup refused: %llu bytes, %u MiB free\n", (unsigned long long)bytes,
                   m_usbFreeMiB);
        return false;
    }
    m_job.clear();
    for (int r : chosenRows())
        m_job.push_back(m_items[size_t(r)]);
    m_next = 0;
    m_percent = 0;
    m_state = ExportState::Running;
    auto* progress = new ProgressDialog(TextId::LiveView::MenuBackup, true, this);
    connect(progress, &progress->cancelRequested, this, VY_SLOT(BackupWindow, onCancelRequested));
    m_progress.reset(progress);
    progress->show();
    VY_GUI_LOG("backup of %zu files, %llu bytes\n", m_job.size(), (unsigned long long)bytes);
    return startNext();
}

bool BackupWindow::startNext() {
    const Item& it = m_job[size_t(m_next)];
    // One file per clip on the stick, named after channel and start like the snapshots.
    const std::string name =
        "CH" + std::to_string(it.channel + 1) + "_" + it.start.toString("yyyyMMdd_HHmmss").c_str();
    if (m_progress)
        m_progress->setText(VyTranslation::tr(TextId::Maintenance::ExportingFile)
                                .arg(m_next + 1)
                                .arg(int(m_job.size())));
    if (!m_session->exportClip(it.start, it.end, {it.channel}, name)) {
        endJob(ExportState::Failed, TextId::Playback::NoUsbDevice);
        return false;
    }
    return true;
}

void BackupWindow::onExportChanged() {
    if (m_state != ExportState::Running || m_job.empty())
        return;
    const int n = int(m_job.size());
    switch (m_session->exportState()) {
    case PlaybackSession::ExportState::Running:
        m_percent = (m_next * 100 + std::clamp(m_session->exportPercent(), 0, 100)) / n;
        if (m_progress)
            m_progress->setPercent(m_percent);
        break;
    case PlaybackSession::ExportState::Done:
        ++m_next;
        m_percent = m_next * 100 / n;
        if (m_progress)
            m_progress->setPercent(m_percent);
        if (m_next < n)
            startNext();
        else
            endJob(ExportState::Done, TextId::Maintenance::ExportDone);
        break;
    case PlaybackSession::ExportState::Failed: {
        const uint32_t why = m_session->exportFailure();
        if (why == PlaybackStatus::kCancelled)
            endJob(ExportState::Cancelled, TextId::Playback::ExportCancelled);
        else if (why == PlaybackStatus::kNoSpace)
            endJob(ExportState::Failed, TextId::Playback::UsbFull);
        else
            endJob(ExportState::Failed, TextId::Maintenance::UsbRemoved);
        break;
    }
    case PlaybackSession::ExportState::Idle:
        break;
    }
}

void BackupWindow::cancelExport() {
    if (m_state == ExportState::Running)
        m_session->cancelExport();
}

void BackupWindow::onCancelRequested() {
    cancelExport();
}

void BackupWindow::endJob(ExportState state, uint32_t textId) {
    m_state = state;
    VyString text = VyTranslation::tr(textId);
    if (state == ExportState::Done)
        text = text.arg(m_next);
    VY_GUI_LOG("backup ended after %d of %zu files: %s\n", m_next, m_job.size(), text.c_str());
    if (m_progress)
        m_progress->finish();
    delete m_progress.data();
    setStatus(text);
    readUsb();
}

void BackupWindow::setStatus(const VyString& text) {
    m_status->setText(text);
}

VyString BackupWindow::statusText() const {
    return m_status->text();
}

void BackupWindow::resizeEvent(VyResizeEvent* e) {
    VyDialog::resizeEvent(e);
    const VyRect c = contentRect();
    const int m = UiLook::scaledX(kMarginDesign);
    const int row = UiLook::scaledY(kRowDesign);
    const int caption = UiLook::scaledX(kCaptionDesign);
    const int edit = UiLook::scaledX(kEditDesign);
    const int button = UiLook::scaledX(kButtonDesign);
    const int left = c.x() + m, right = c.x() + c.width() - m;
    int y = c.y() + m / 2;
    // Channels on the first row, day and times on the second, types and Search on the third.
    m_captions[0]->setGeometry(left, y, caption, row);
    m_channels->setGeometry(left + caption, y, right - left - caption, row);
    y += row + m / 2;
    int x = left;
    const std::pair<VyLabel*, VyWidget*> fields[] = {
        {m_captions[1], m_date}, {m_captions[2], m_from}, {m_captions[3], m_to}};
    for (const auto& f : fields) {
        f.first->setGeometry(x, y, caption * 2 / 3, row);
        f.second->setGeometry(x + caption * 2 / 3, y, edit, row);
        x += caption * 2 / 3 + edit + m;
    }
    y += row + m / 2;
    m_captions[4]->setGeometry(left, y, caption, row);
    x = left + caption;
    const int typeBox = UiLook::scaledX(kTypeBoxDesign);
    for (VyCheckBox* box : m_types) {
        box->setGeometry(x, y, typeBox, row);
        x += typeBox + m / 2;
    }
    m_search->setGeometry(right - button, y, button, row);
    y += row + m;
    const int bottom = c.y() + c.height() - m / 2;
    const int tableBottom = bottom - 2 * row - m;
    m_table->setGeometry(left, y, right - left, tableBottom - y);
    const int w = right - left;
    m_table->setColumnWidth(0, w / 5);
    m_table->setColumnWidth(1, w * 3 / 10);
    m_table->setColumnWidth(2, w * 3 / 10);
    m_table->setColumnWidth(3, w - w / 5 - 2 * (w * 3 / 10) - 4);
    m_status->setGeometry(left, tableBottom + m / 2, right - left, row);
    m_usb->setGeometry(left, bottom - row, right - left - 2 * (button + m), row);
    m_export->setGeometry(right - 2 * button - m, bottom - row, button, row);
    m_close->setGeometry(right - button, bottom - row, button, row);
}
