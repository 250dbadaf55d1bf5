#include "ui/settings/SettingsManager.h"

#include "model/DeviceProfile.h"
#include "model/UiManager.h"
#include "protocol/ByteOrder.h"
#include "protocol/IpcMsgHeader.h"
#include "protocol/UiEventType.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/events/CEvent.h"
#include "toolkit/i18n/TextId.h"
#include "ui/liveview/MainViewTaskBar.h"
#include "ui/settings/AlarmInputPage.h"
#include "ui/settings/CameraPage.h"
#include "ui/settings/DateTimePage.h"
#include "ui/settings/DdnsPage.h"
#include "ui/settings/DeviceInfoPage.h"
#include "ui/settings/DstPage.h"
#include "ui/settings/EmailPage.h"
#include "ui/settings/EmailSchedulePage.h"
#include "ui/settings/ExceptionPage.h"
#include "ui/settings/FtpPage.h"
#include "ui/settings/FtpSchedulePage.h"
#include "ui/settings/GeneralPage.h"
#include "ui/settings/ImagePage.h"
#include "ui/settings/MaintenancePage.h"
#include "ui/settings/MotionPage.h"
#include "ui/settings/NetworkCameraPage.h"
#include "ui/settings/NetworkPage.h"
#include "ui/settings/OutputPage.h"
#include "ui/settings/PrivacyMaskPage.h"
#include "ui/settings/RecordParamPage.h"
#include "ui/settings/RecordSchedulePage.h"
#include "ui/settings/RemoteAccessPage.h"
#include "ui/settings/SettingsWindow.h"
#include "ui/settings/StoragePage.h"
#include "ui/settings/StreamPage.h"
#include "ui/users/UsersPage.h"

namespace {

template <typename Page>
SettingsPage* makePage(VyWidget* parent) {
    return new Page(parent);
}

constexpr uint32_t kCategoryTitles[SettingsManager::CategoryCount] = {
    TextId::Settings::Camera,  TextId::Settings::Record,  TextId::Settings::Alarm,
    TextId::Settings::Network, TextId::Settings::Storage, TextId::Settings::System};

SettingsManager* g_instance = nullptr; // the live manager; see instance()

} // namespace

SettingsManager::SettingsManager(VyObject* parent)
    : VyObject(parent) {
    g_instance = this;
}

SettingsManager::~SettingsManager() {
    delete m_window.data();
    setCurrentPage(nullptr);
    if (g_instance == this)
        g_instance = nullptr;
}

SettingsManager* SettingsManager::instance() {
    return g_instance;
}

SettingsPage* SettingsManager::currentPage() const {
    return m_page.data();
}

SettingsWindow* SettingsManager::window() const {
    return m_window.data();
}

void SettingsManager::taskBarClicked(VyObject* taskBar) {
    auto* bar = taskBar != nullptr && taskBar->inherits("MainViewTaskBar")
                    ? static_cast<MainViewTaskBar*>(taskBar)
                    : nullptr;
    if (bar != nullptr && bar->lastButton() == MainViewTaskBar::Start)
        openWindow();
}

SettingsWindow* SettingsManager::openWindow() {
    if (!m_window) {
        auto* w = new SettingsWindow(this);
        if (VyApplication* app = VyApplication::instance(); app && app->screen())
            w->setGeometry(0, 0, app->screen()->width(), app->screen()->height());
        m_window.reset(w);
        w->show();
    }
    return m_window.data();
}

uint32_t SettingsManager::categoryTitle(int category) {
    return category >= 0 && category < CategoryCount ? kCategoryTitles[category] : 0;
}

std::vector<SettingsManager::PageEntry> SettingsManager::pagesOf(int category,
                                                                 const DeviceProfile& profile) {
    std::vector<PageEntry> pages;
    switch (category) {
    case Camera:
        if (profile.channelCount > 0) {
            pages.push_back({TextId::Settings::Camera, &makePage<CameraPage>});
            pages.push_back({TextId::Settings::Image, &makePage<ImagePage>});
            pages.push_back({TextId::Settings::TypeMotion, &makePage<MotionPage>});
            pages.push_back({TextId::Settings::PrivacyMask, &makePage<PrivacyMaskPage>});
            pages.push_back({TextId::Settings::NetworkCameras, &makePage<NetworkCameraPage>});
        }
        break;
    case Record:
        if (profile.enableNormalRecord || profile.enableMotionRecord || profile.enablePirRecord ||
            profile.alarmInputNum > 0)
            pages.push_back({TextId::Settings::Schedule, &makePage<RecordSchedulePage>});
        pages.push_back({TextId::Settings::Record, &makePage<RecordParamPage>});
        if (profile.channelCount > 0)
            pages.push_back({TextId::Settings::Encoding, &makePage<StreamPage>});
        break;
    case Alarm:
        if (profile.alarmInputNum > 0)
            pages.push_back({TextId::Settings::AlarmInput, &makePage<AlarmInputPage>});
        pages.push_back({TextId::Settings::TypeException, &makePage<ExceptionPage>});
        pages.push_back({TextId::Settings::Email, &makePage<EmailPage>});
        if (profile.emailScheduleEnable)
            pages.push_back({TextId::Settings::EmailSchedule, &makePage<EmailSchedulePage>});
        break;
    case Network:
        pages.push_back({TextId::Settings::Network, &makePage<NetworkPage>});
        pages.push_back({TextId::Settings::Ddns, &makePage<DdnsPage>});
        pages.push_back({TextId::Settings::RemoteAccess, &makePage<RemoteAccessPage>});
        if (profile.ftpEnable) {
            pages.push_back({TextId::Settings::Ftp, &makePage<FtpPage>});
            pages.push_back({TextId::Settings::FtpSchedule, &makePage<FtpSchedulePage>});
        }
        break;
    case Storage:
        if (profile.maxDiskNum > 0)
            pages.push_back({TextId::Settings::Storage, &makePage<StoragePage>});
        break;
    case System:
        pages.push_back({TextId::Settings::General, &makePage<GeneralPage>});
        pages.push_back({TextId::Settings::DateTime, &makePage<DateTimePage>});
        pages.push_back({TextId::Settings::DaylightSaving, &makePage<DstPage>});
        pages.push_back({TextId::Settings::Output, &makePage<OutputPage>});
        pages.push_back({TextId::Settings::DeviceInfo, &makePage<DeviceInfoPage>});
        pages.push_back({TextId::User::Users, &makePage<UsersPage>});
        pages.push_back({TextId::Maintenance::Title, &makePage<MaintenancePage>});
        break;
    default:
        break;
    }
    return pages;
}

void SettingsManager::setCurrentPage(SettingsPage* page) {
    m_page.reset(page);
    if (UiManager* ui = UiManager::instance())
        ui->setReceiver(UiEventType::ParamChanged, page != nullptr ? this : nullptr);
}

bool SettingsManager::pageHolds(uint32_t number) const {
    if (!m_page)
        return false;
    SettingsBlockSet& set = m_page->blocks();
    for (int i = 0; i < set.count(); ++i)
        if (set.block(i).number == number)
            return true;
    return false;
}

void SettingsManager::customEvent(VyEvent* e) {
    if (e->type() != UiEventType::ParamChanged)
        return;
    auto* ce = static_cast<CEvent*>(e);
    const auto* block = static_cast<const uint8_t*>(ce->data());
    if (block == nullptr || !m_page)
        return;
    const IpcMsgHeader h = ipcDecodeHeader(block);
    if (h.dataLen < 4)
        return;
    const uint32_t number = ByteOrder::loadLe32(block + kIpcHeaderSize);
    if (!pageHolds(number))
        return;
    m_changes.run(number, [this](uint32_t changed) {
        if (m_page && m_page->parameterChanged(changed))
            ++m_refreshes;
    });
}
