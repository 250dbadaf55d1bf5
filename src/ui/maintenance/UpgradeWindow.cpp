#include "ui/maintenance/UpgradeWindow.h"

#include "model/DeviceProfile.h"
#include "model/MaintenanceLink.h"
#include "model/SystemInfo.h"
#include "model/UpgradeCheck.h"
#include "runtime/VyLog.h"
#include "toolkit/core/VyTimer.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/widgets/VyLabel.h"
#include "toolkit/widgets/VyMessageBox.h"
#include "toolkit/widgets/VyPushButton.h"
#include "toolkit/widgets/VyTableWidget.h"
#include "ui/UiLook.h"

#include <cstring>

namespace {

// Pixels at 1920x1080.
constexpr int kDesignWidth = 1300;
constexpr int kDesignHeight = 760;
constexpr int kMarginDesign = 24;
constexpr int kRowDesign = 48;
constexpr int kButtonDesign = 190;
constexpr int kKiB = 1024;

UpgradeCheck::Verdict verdictOf(const UpgradeFileEntry& f) {
    const DeviceProfile& p = DeviceProfile::current();
    return UpgradeCheck::check(f, p.upgradePrefix, p.deviceType);
}

uint32_t verdictText(UpgradeCheck::Verdict v) {
    switch (v) {
    case UpgradeCheck::Verdict::Ok:
        return TextId::Maintenance::FileReady;
    case UpgradeCheck::Verdict::OtherModel:
        return TextId::Maintenance::FileOtherModel;
    case UpgradeCheck::Verdict::Damaged:
        break;
    }
    return TextId::Maintenance::FileDamaged;
}

} // namespace

UpgradeWindow::UpgradeWindow()
    : m_confirm(&UpgradeWindow::askWithMessageBox)
    , m_running(new VyLabel(this))
    , m_table(new VyTableWidget(this))
    , m_status(new VyLabel(this))
    , m_refresh(new VyPushButton(VyTranslation::tr(TextId::Maintenance::Refresh), this))
    , m_upgrade(new VyPushButton(VyTranslation::tr(TextId::Maintenance::Upgrade), this))
    , m_close(new VyPushButton(VyTranslation::tr(TextId::Common::Close), this))
    , m_timer(new VyTimer(this)) {
    setTitleId(TextId::Maintenance::Upgrade);
    const SystemInfoRecord& r = SystemInfo::record();
    m_running->setText(
        VyTranslation::tr(TextId::Maintenance::RunningVersion)
            .arg(VyString(std::string(r.softwareVersion,
                                      strnlen(r.softwareVersion, sizeof r.softwareVersion)))));
    m_table->setColumnCount(4);
    m_table->setHorizontalHeaderLabels({VyTranslation::tr(TextId::Maintenance::FileName),
                                        VyTranslation::tr(TextId::Maintenance::Version),
                                        VyTranslation::tr(TextId::Maintenance::Size),
                                        VyTranslation::tr(TextId::Maintenance::Status)});
    m_table->setCellSource([this](int row, int column) {
        VyTableCell cell;
        if (row < 0 || row >= int(m_files.size()))
            return cell;
        const UpgradeFileEntry& f = m_files[size_t(row)];
        switch (column) {
        case 0:
            cell.text = VyString(f.name);
            break;
        case 1:
            cell.text = VyString(f.version);
            break;
        case 2:
            cell.text = VyTranslation::tr(TextId::Maintenance::SizeMiB)
                            .arg(int((f.sizeKiB + kKiB - 1) / kKiB));
            break;
        default:
            cell.text = VyTranslation::tr(verdictText(verdictOf(f)));
            break;
        }
        return cell;
    });
    m_timer->setInterval(kPollMs);
    connect(m_timer, &m_timer->timeout, this, VY_SLOT(UpgradeWindow, poll));
    connect(m_refresh, &m_refresh->clicked, this, VY_SLOT(UpgradeWindow, refreshClicked));
    connect(m_upgrade, &m_upgrade->clicked, this, VY_SLOT(UpgradeWindow, upgradeClicked));
    connect(m_close, &m_close->clicked, this, VY_SLOT(VyDialog, reject));
    for (VyObject* o : children())
        if (o->inherits("VyWidget"))
            static_cast<VyWidget*>(o)->show();
    place(kDesignWidth, kDesignHeight);
}

void UpgradeWindow::refresh() {
    if (m_state == State::Running)
        return;
    VyPointer<UpgradeWindow> self(this);
    const auto files = MaintenanceLink::upgradeFiles(); // runs the event loop
    if (!self)
        return;
    m_files = files ? *files : std::vector<UpgradeFileEntry>();
    m_table->setRowCount(int(m_files.size()));
    m_status->setText(!files            ? VyTranslation::tr(TextId::Maintenance::AnswerRefused)
                      : m_files.empty() ? VyTranslation::tr(TextId::Maintenance::NoUpgradeFiles)
                                        : VyString());
    update();
}

bool UpgradeWindow::askWithMessageBox(const UpgradeFileEntry& file) {
    VyMessageBox box(
        VyMessageBox::Warning,
        VyTranslation::tr(TextId::Maintenance::ConfirmUpgrade).arg(VyString(file.version)),
        VyMessageBox::Yes | VyMessageBox::No);
    return box.exec() == VyMessageBox::Yes;
}

void UpgradeWindow::upgradeClicked() {
    upgrade(m_table->currentRow());
}

bool UpgradeWindow::upgrade(int row) {
    if (m_state == State::Running || row < 0 || row >= int(m_files.size()))
        return false;
    const UpgradeFileEntry file = m_files[size_t(row)];
    const UpgradeCheck::Verdict v = verdictOf(file);
    if (v != UpgradeCheck::Verdict::Ok) {
        VY_GUI_LOG("upgrade file %s refused: %s\n", file.name,
                   v == UpgradeCheck::Verdict::OtherModel ? "another model" : "damaged");
        m_status->setText(VyTranslation::tr(v == UpgradeCheck::Verdict::OtherModel
                                                ? TextId::Maintenance::FailedOtherModel
                                                : TextId::Maintenance::FailedDamaged));
        return false;
    }
    VyPointer<UpgradeWindow> self(this);
    const bool confirmed = m_confirm && m_confirm(file); // may run the event loop
    if (!self || !confirmed || !MaintenanceLink::startUpgrade(file.name))
        return false;
    m_state = State::Running;
    auto* progress = new ProgressDialog(TextId::Maintenance::Upgrade, false, this);
    progress->setText(VyTranslation::tr(TextId::Maintenance::Upgrading));
    m_progress.reset(progress);
    progress->show();
    m_status->setText(VyString());
    if (m_autoPoll)
        m_timer->start();
    return true;
}

bool UpgradeWindow::isPolling() const {
    return m_timer->isActive();
}

void UpgradeWindow::poll() {
    if (m_state != State::Running)
        return;
    VyPointer<UpgradeWindow> self(this);
    const auto p = MaintenanceLink::upgradeProgress(); // runs the event loop
    if (!self || !p || m_state != State::Running)
        return; // a broken answer: asked again at the next tick
    switch (p->state) {
    case UpgradeProgress::kRunning:
        if (m_progress)
            m_progress->setPercent(int(p->percent));
        break;
    case UpgradeProgress::kDone:
        end(State::Done, TextId::Maintenance::UpgradeDone);
        break;
    case UpgradeProgress::kFailed:
        end(State::Failed,
            p->error == UpgradeProgress::kNoDevice     ? TextId::Maintenance::FailedNoDevice
            : p->error == UpgradeProgress::kWrongModel ? TextId::Maintenance::FailedOtherModel
            : p->error == UpgradeProgress::kNoFile     ? TextId::Maintenance::NoUpgradeFiles
                                                       : TextId::Maintenance::FailedDamaged);
        break;
    default:
        // App forgot the upgrade (restarted under it): nothing more will come.
        end(State::Failed, TextId::Maintenance::FailedNoDevice);
        break;
    }
}

void UpgradeWindow::end(State state, uint32_t textId) {
    m_state = state;
    m_timer->stop();
    if (m_progress)
        m_progress->finish();
    delete m_progress.data();
    const VyString text = VyTranslation::tr(textId);
    m_status->setText(text);
    VY_GUI_LOG("upgrade %s: %s\n", state == State::Done ? "done" : "failed", text.c_str());
}

VyString UpgradeWindow::statusText() const {
    return m_status->text();
}

void UpgradeWindow::resizeEvent(VyResizeEvent* e) {
    VyDialog::resizeEvent(e);
    const VyRect c = contentRect();
    const int m = UiLook::scaledX(kMarginDesign);
    const int row = UiLook::scaledY(kRowDesign);
    const int button = UiLook::scaledX(kButtonDesign);
    const int left = c.x() + m, right = c.x() + c.width() - m;
    const int top = c.y() + m / 2;
    const int bottom = c.y() + c.height() - m / 2;
    m_running->setGeometry(left, top, right - left, row);
    const int tableTop = top + row + m / 2, tableBottom = bottom - 2 * row - m;
    m_table->setGeometry(left, tableTop, right - left, tableBottom - tableTop);
    const int w = right - left;
    m_table->setColumnWidth(0, w * 2 / 5);
    m_table->setColumnWidth(1, w / 5);
    m_table->setColumnWidth(2, w / 6);
    m_table->setColumnWidth(3, w - w * 2 / 5 - w / 5 - w / 6 - 4);
    m_status->setGeometry(left, tableBottom + m / 2, right - left, row);
    m_refresh->setGeometry(left, bottom - row, button, row);
    m_upgrade->setGeometry(right - 2 * button - m, bottom - row, button, row);
    m_close->setGeometry(right - button, bottom - row, button, row);
}
