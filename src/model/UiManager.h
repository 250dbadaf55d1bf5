#pragma once
// The UI manager: routes every unsolicited message of App to the window or model that wants
// it, handles the notifications that concern the whole GUI (network status, LED state, time
// zone, shutdown, ...), keeps the general display settings and the date, and runs the
// delayed start that decides the first screen.
//
// It lives from start-up to process end and is never deleted. Everything here runs on the
// GUI thread: App's messages reach it only as posted IPC events.
#include "model/ChangeCoalescer.h"
#include "model/GeneralSettingsLanguageStore.h"
#include "runtime/VyDate.h"
#include "runtime/VyMap.h"
#include "runtime/VyString.h"
#include "toolkit/core/VyObject.h"

#include <cstdint>
#include <vector>

class CEvent;
class UiShell;
class UiModels;
class UiTimerSource;
class WndTimeoutManager;
struct IpcMsgHeader;

// A playback receiver answers whether it can take App's record-search answers right now.
class PlaybackReceiver : public VyObject {
    VY_OBJECT(PlaybackReceiver, VyObject)
public:
    explicit PlaybackReceiver(VyObject* parent = nullptr)
        : VyObject(parent) {}
    virtual bool readyForRecorderMessages() const = 0;
};

class UiManager : public VyObject {
    VY_OBJECT(UiManager, VyObject)
public:
    using DateSource = VyDate (*)();

    static constexpr int kTickMs = 1000;
    static constexpr int kMinDelayedStartMs = 100;
    // Messages of the translated-text table.
    enum MessageId { MsgShutdown = 0, MsgBusy = 1, MsgCount };

    // Runs construction steps 1-12 of the start-up's UiManager: the models (created into
    // `models`, which the caller owns and keeps beyond the manager), event receiver, general
    // settings, pid message, delayed-start timer, per-channel table, date and tick timer.
    // `timers` arms the delayed start; `today` reads the date for the day-change check.
    UiManager(UiModels* models, UiTimerSource* timers, DateSource today = &VyDate::currentDate);
    ~UiManager() override;

    static UiManager* instance();

    // ---- Start-up ----
    // 4000 + 172.5 * c ms, computed as (64 - c) * 62.5 + 235 * c, truncated, at least 100.
    static int delayedStartInterval(uint8_t count);
    int delayedStartIntervalMs() const { return m_delayedStartMs; }
    bool delayedStartDone() const { return m_delayedStartDone; }
    // While set the delayed start does nothing.
    bool isHalted() const { return m_halted != 0; }
    void setHalted(bool halted) { m_halted = halted ? 1 : 0; }
    // Set by App's shutdown notice and by the wizard once it has been shown.
    bool isWizardSuppressed() const { return m_wizardSuppressed; }
    void setWizardSuppressed(bool suppressed) { m_wizardSuppressed = suppressed; }
    void setShell(UiShell* shell) { m_shell = shell; }
    UiShell* shell() const { return m_shell; }
    // Slot of the delayed-start timer; public so the timer source can call it.
    void delayedStart();
    // Block 12 names a resolution the user has not kept yet: asks through the shell and
    // writes back the kept or the previous one. Run at start-up and after the output page
    // changed the resolution; runs a nested loop while the dialog is up.
    void checkOutputResolution();

    // ---- Routing ----
    // The object that wants a forwarded UI event type (1013..1119, 1015/1016, 1028), or
    // null. A window sets it when it opens and clears it when it closes.
    void setReceiver(int uiEventType, VyObject* receiver);
    VyObject* receiver(int uiEventType) const;
    // SubType 13 (event 1032) goes to the first present of two receivers; this is the second.
    void setSecondReceiver1032(VyObject* receiver) { m_second1032.reset(receiver); }
    // MainType 300 goes to the first present of these two when it reports itself ready.
    void setPlaybackReceivers(PlaybackReceiver* first, PlaybackReceiver* second);
    int droppedCount() const { return m_droppedCount; }

    // ---- State from App ----
    uint32_t networkStatus() const { return m_networkStatus; }
    uint32_t timeZoneValue() const { return m_timeZoneValue; }
    // The msgValue last seen for a self-handled SubType that has no action of its own.
    uint32_t lastNotificationValue(uint16_t subType) const;
    bool isShuttingDown() const { return m_shuttingDown; }

    // ---- Settings and formats ----
    int dateFormatIndex() const { return m_dateFormatIndex; }
    VyString dateFormat() const { return dateFormatFor(m_dateFormatIndex); }
    bool is12Hour() const { return m_hour12; }
    VyString timeFormat() const { return timeFormatFor(m_hour12); }
    bool showTime() const { return m_showTime; }
    bool showChannelName() const { return m_showChannelName; }
    bool showRecordState() const { return m_showRecordState; }
    bool showCellTitles() const { return m_showCellTitles; }
    int outputResolution() const { return m_outputResolution; }
    // Minutes without input before menus close; 0 never.
    int menuTimeoutMinutes() const { return m_menuTimeoutMinutes; }
    UiModels* models() const { return m_models; }
    // Closes menus and dialogs after the menu time-out; created with the models.
    WndTimeoutManager* windowTimeoutManager() const { return m_windowTimeout; }
    int menuTransparency() const { return m_menuTransparency; }
    static VyString dateFormatFor(int index);
    static VyString timeFormatFor(bool hour12);
    // "1080p", "720p", "1024p", "768p", "600p"; empty outside the table.
    static VyString outputResolutionName(int index);
    // Cursor image name by shape (0 arrow .. 14 closed hand); empty outside the table.
    static VyString cursorImageName(int shape);
    // "cursor-image/<name>.png".
    static VyString cursorImagePath(int shape);
    // The catalogue text ID of a message, and its text in the current language.
    uint32_t messageTextId(MessageId id) const;
    VyString messageText(MessageId id) const;

    // Per channel integers (record state bits), sized by the system information's channel
    // count.
    int channelCount() const { return int(m_channelValues.size()); }
    int channelValue(int channel) const;
    void setChannelValue(int channel, int value);

    // ---- Clock ----
    VyDate rememberedDate() const { return m_date; }
    // One tick of the 1000 ms timer: tick, then dateChanged when the day changed.
    void onTick();

    // Loads block 21 into the display settings; once the translation exists, a new
    // language index in it switches the language.
    void loadGeneralSettings();
    // Rereads block 50.
    void loadDisplaySwitches();
    // The last set-up step: output resolution and menu transparency from block 12.
    void setupOutput();

    VySignal networkStatusChanged;
    VySignal connectionStateChanged;
    VySignal tick;
    VySignal dateChanged;
    VySignal block6Changed;
    VySignal block60Changed;
    VySignal generalSettingsChanged;

protected:
    void customEvent(VyEvent* e) override;
    void timerEvent(VyTimerEvent* e) override;

private:
    void createModels();
    void buildMessageTexts();
    void routeMessage(CEvent* e);
    void routeSubType(CEvent* e, const IpcMsgHeader& h, int uiEventType);
    void handleSelf(const IpcMsgHeader& h);
    void handleParameter(CEvent* e, const IpcMsgHeader& h, const uint8_t* body);
    void handleTimeZone(const IpcMsgHeader& h, const uint8_t* body);
    void reactToParameterChange(uint32_t blockNumber);
    void react(uint32_t blockNumber);
    void forward(CEvent* e, VyObject* target, int uiEventType, int param = 0);
    void reply(uint16_t subType);
    void showMessage(MessageId id);

    static constexpr int kSlotBase = 1000;
    static constexpr int kSlotCount = 128; // event types 1000..1127
    // Windows register themselves and may die without clearing their slot: guarded.
    VyPointer<VyObject> m_receivers[kSlotCount];
    VyPointer<VyObject> m_second1032;
    VyPointer<PlaybackReceiver> m_playback[2];

    UiModels* m_models;
    UiTimerSource* m_timers;
    DateSource m_today;
    UiShell* m_shell = nullptr;
    GeneralSettingsLanguageStore m_languageStore;
    VyMap<int, uint32_t> m_messageTexts; // MessageId -> text ID
    bool m_translationInstalled = false;
    VyMap<int, uint32_t> m_lastValues;
    std::vector<int> m_channelValues;
    VyDate m_date;
    int m_tickTimerId = 0;
    int m_delayedStartMs = 0;
    int m_droppedCount = 0;
    ChangeCoalescer m_changes; // block reactions, one at a time
    uint32_t m_networkStatus = 0;
    uint32_t m_timeZoneValue = 0;
    int m_dateFormatIndex = 0;
    int m_outputResolution = 0;
    int m_menuTimeoutMinutes = 0;
    WndTimeoutManager* m_windowTimeout = nullptr; // child
    int m_menuTransparency = 0;
    uint8_t m_halted = 0;
    bool m_wizardSuppressed = false;
    bool m_delayedStartDone = false;
    bool m_shuttingDown = false;
    bool m_hour12 = false;
    bool m_showTime = false;
    bool m_showChannelName = false;
    bool m_showRecordState = false;
    bool m_showCellTitles = false;
};
