// UiManager: construction, settings, formats and the clock.
#include "model/UiManager.h"
#include "protocol/MainType.h"
#include "protocol/SubType.h"
#include "protocol/UiEventType.h"

#include "model/AIManager.h"
#include "model/CameraModel.h"
#include "model/ParamAccess.h"
#include "model/RecorderLink.h"
#include "model/SystemInfo.h"
#include "model/UiModels.h"
#include "model/UiTimerSource.h"
#include "model/UserAccess.h"
#include "protocol/DisplaySwitchBlock.h"
#include "protocol/GeneralSettingsBlock.h"
#include "protocol/OutputSettingsBlock.h"
#include "runtime/VyFontEngine.h"
#include "runtime/VyFontMetrics.h"
#include "runtime/VyLog.h"
#include "runtime/VyResources.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/events/VyTimerEvent.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/input/VyKeyManager.h"
#include "toolkit/widgets/WndTimeoutManager.h"

#include <unistd.h>

namespace {

UiManager* g_instance = nullptr;

constexpr const char* kFontFile = "font/yahei_arial_gothic_unicode.ttf";
constexpr int kFontFileSize = 5242880; // bytes the device reserves for the font file
constexpr const char* kFallbackList = "font/fallback-fonts.txt";

const char* const kResolutionNames[] = {"1080p", "720p", "1024p", "768p", "600p"};

const char* const kCursorNames[] = {
    "arrow",         "cursor-uparrow",  "cursor-cross",     "cursor-wait",
    "cursor-ibeam",  "cursor-sizev",    "cursor-sizeh",     "cursor-vsplit",
    "cursor-hsplit", "cursor-hand",     "cursor-forbidden", "cursor-whatsthis",
    "cursor-busy",   "cursor-openhand", "cursor-closehand",
};

template <typename T, size_t N>
constexpr int countOf(const T (&)[N]) {
    return int(N);
}

} // namespace

UiManager::UiManager(UiModels* models, UiTimerSource* timers, DateSource today)
    : m_models(models)
    , m_timers(timers)
    , m_today(today) {
    // 1. The single instance; the delayed start may run.
    VY_ASSERT(g_instance == nullptr);
    g_instance = this;
    m_halted = 0;
    const SystemInfoRecord& info = SystemInfo::record();

    // 2. Calendar of every date the GUI shows.
    VyDate::setDateMode(info.dateMode != 0);

    // 3. The one font file of the whole GUI.
    VyFontMetrics::setFontFile(VyResources::path(kFontFile), kFontFileSize);
    // The scripts the device font lacks come from the fallback fonts listed beside it.
    VyFontEngine::instance().loadFallbackList(VyResources::path(kFallbackList),
                                              VyResources::path("font"));

    // 4. Models and managers, in their fixed order.
    createModels();

    // 5. From here on App's messages arrive as events.
    if (RecorderLink* link = RecorderLink::instance())
        link->setEventReceiver(this);

    // 6. General settings, display switches, output set-up.
    loadGeneralSettings();
    loadDisplaySwitches();
    setupOutput();

    // 7. Tell App which process draws the screen.
    if (RecorderLink* link = RecorderLink::instance()) {
        const uint32_t pid = uint32_t(getpid());
        link->send(MainType::System, SystemSubType::GuiPid, &pid, sizeof pid);
    }

    // 8. Texts of the GUI's own messages; the first text request creates the translation,
    // which reads the language from block 21.
    VyTranslation::setSettingsStore(&m_languageStore);
    m_translationInstalled = true;
    buildMessageTexts();

    // 9. The first screen waits until the network cameras have had time to connect.
    m_delayedStartMs = delayedStartInterval(m_models->camera()->ipChannelCount());
    vyStartupLog("delayed start in %d ms\n", m_delayedStartMs);
    if (m_timers != nullptr)
        m_timers->singleShot(m_delayedStartMs, this, VY_SLOT(UiManager, delayedStart));

    // 10. One integer per channel.
    m_channelValues.assign(size_t(info.channelCount), 0);

    // 11. Today, to notice the change of day.
    m_date = m_today();

    // 12. The tick.
    m_tickTimerId = startTimer(kTickMs);
}

UiManager::~UiManager() {
    if (g_instance == this)
        g_instance = nullptr;
    // The translation reads its settings through this manager's store.
    if (m_translationInstalled) {
        VyTranslation::resetInstance();
        VyTranslation::setSettingsStore(nullptr);
    }
}

UiManager* UiManager::instance() {
    return g_instance;
}

void UiManager::createModels() {
    VY_ASSERT(m_models != nullptr);
    m_models->create(SystemInfo::record());
    // App's key notifications (186) go to the key manager like any other device key.
    setReceiver(UiEventType::DvrKey, m_models->keyManager());
    setReceiver(UiEventType::FaceInfo, m_models->ai());
    setReceiver(UiEventType::AIObjInfo, m_models->ai());
    // Sees all input as an application filter, to restart its period.
    m_windowTimeout = new WndTimeoutManager(this);
    if (VyApplication* app = VyApplication::instance())
        app->installEventFilter(m_windowTimeout);
    connect(m_windowTimeout, &m_windowTimeout->timedOut, m_models->users(),
            VY_SLOT(UserAccess, menuTimedOut));
}

int UiManager::delayedStartInterval(uint8_t count) {
    // 62.5 ms per unused camera slot of 64 and 235 ms per camera; this form, in double and
    // truncated, is the one the devices in the field compute, so it is kept as it is
    // rather than simplified to 4000 + 172.5 * c.
    const double ms = (64 - int(count)) * 62.5 + 235 * int(count);
    const int truncated = int(ms);
    return truncated < kMinDelayedStartMs ? kMinDelayedStartMs : truncated;
}

void UiManager::loadGeneralSettings() {
    const GeneralSettingsBlock b = ParamAccess::get<GeneralSettingsBlock>();
    m_dateFormatIndex = b.dateFormat;
    m_hour12 = b.hour12 != 0;
    m_showTime = b.showTime != 0;
    m_showChannelName = b.showChannelName != 0;
    m_showRecordState = b.showRecordState != 0;
    m_menuTimeoutMinutes = b.menuTimeout;
    // Only after start-up step 8 created the translation: the language follows block 21
    // from then on.
    if (m_translationInstalled)
        VyTranslation::instance()->changeLanguage(int(b.languageIndex));
    if (m_windowTimeout != nullptr) {
        constexpr int kSecondsPerMinute = 60;
        m_windowTimeout->setTimeoutSeconds(m_menuTimeoutMinutes * kSecondsPerMinute);
        m_windowTimeout->setEnabled(m_menuTimeoutMinutes != 0);
    }
    emitSignal(this, &generalSettingsChanged);
}

void UiManager::loadDisplaySwitches() {
    m_showCellTitles = ParamAccess::get<DisplaySwitchBlock>().showCellTitles != 0;
}

void UiManager::setupOutput() {
    const OutputSettingsBlock b = ParamAccess::get<OutputSettingsBlock>();
    m_outputResolution = b.resolution;
    m_menuTransparency = b.transparency;
}

void UiManager::buildMessageTexts() {
    m_messageTexts.insert(MsgShutdown, TextId::SystemNotice::ShuttingDown);
    m_messageTexts.insert(MsgBusy, TextId::SystemNotice::DeviceBusy);
    VyTranslation::instance();
}

uint32_t UiManager::messageTextId(MessageId id) const {
    return m_messageTexts.value(id);
}

VyString UiManager::messageText(MessageId id) const {
    return VyTranslation::tr(messageTextId(id));
}

VyString UiManager::dateFormatFor(int index) {
    switch (index) {
    case 0:
        return VyString("MM/dd/yyyy");
    case 1:
        return VyString("yyyy-MM-dd");
    case 2:
        return VyString("dd/MM/yyyy");
    default:
        return VyString();
    }
}

VyString UiManager::timeFormatFor(bool hour12) {
    return VyString(hour12 ? "hh:mm:ss AP" : "hh:mm:ss");
}

VyString UiManager::outputResolutionName(int index) {
    return index >= 0 && index < countOf(kResolutionNames) ? VyString(kResolutionNames[index])
                                                           : VyString();
}

VyString UiManager::cursorImageName(int shape) {
    return shape >= 0 && shape < countOf(kCursorNames) ? VyString(kCursorNames[shape]) : VyString();
}

VyString UiManager::cursorImagePath(int shape) {
    const VyString name = cursorImageName(shape);
    return name.isEmpty() ? name : VyString("cursor-image/") + name + ".png";
}

int UiManager::channelValue(int channel) const {
    return channel >= 0 && channel < channelCount() ? m_channelValues[size_t(channel)] : 0;
}

void UiManager::setChannelValue(int channel, int value) {
    if (channel >= 0 && channel < channelCount())
        m_channelValues[size_t(channel)] = value;
}

uint32_t UiManager::lastNotificationValue(uint16_t subType) const {
    return m_lastValues.value(subType, 0u);
}

void UiManager::timerEvent(VyTimerEvent* e) {
    if (e->timerId() == m_tickTimerId) {
        onTick();
        return;
    }
    VyObject::timerEvent(e);
}

void UiManager::onTick() {
    emitSignal(this, &tick);
    const VyDate today = m_today();
    if (today != m_date) {
        emitSignal(this, &dateChanged);
        m_date = today;
    }
}
