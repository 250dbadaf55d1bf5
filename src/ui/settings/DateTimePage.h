#pragma once
// The clock: today's date and the time, set by hand (sent only when the user changed them),
// how dates and times are written, the time zone, and setting the clock from a time server
// with "sync now". Holds blocks 93 (clock and zone), 55 (time server) and 21 (formats). A
// new zone comes back from App as its time-zone notice, which moves the GUI's own clock.
//
// While shown, the date and time fields follow the recorder's clock once a second, until
// the user starts editing one of them: from then on they hold what the user set, and Apply
// sends it.
#include "runtime/VyDateTime.h"
#include "ui/settings/SettingsPage.h"

#include <functional>

class VyCheckBox;
class VyComboBox;
class VyDateEdit;
class VyLabel;
class VyLineEdit;
class VyPushButton;
class VySpinBox;
class VyTimeEdit;

class DateTimePage : public SettingsPage {
    VY_OBJECT(DateTimePage, SettingsPage)
public:
    static constexpr int kTickMs = 1000;
    // Where the shown date and time come from: the GUI's clock (the recorder's time in
    // App's zone) unless a test gives another.
    using Clock = std::function<VyDateTime()>;

    explicit DateTimePage(VyWidget* parent = nullptr);
    void setClock(Clock clock);

    VyDateEdit* dateEdit() const { return m_date; }
    VyTimeEdit* timeEdit() const { return m_time; }
    VyComboBox* dateFormatBox() const { return m_dateFormat; }
    VyCheckBox* hour12Box() const { return m_hour12; }
    VyComboBox* timeZoneBox() const { return m_zone; }
    VyCheckBox* ntpBox() const { return m_ntp; }
    VyLineEdit* ntpServerEdit() const { return m_server; }
    VySpinBox* ntpPortBox() const { return m_port; }
    VySpinBox* ntpIntervalBox() const { return m_interval; }
    VyPushButton* syncButton() const { return m_sync; }
    VyLabel* syncResultLabel() const { return m_result; }
    // False once the user started editing the date or the time.
    bool followsClock() const { return m_following && !m_clockChanged; }

    void restoreDefaults() override;

protected:
    void opened() override;
    void showValues() override;
    void collectValues() override;
    void written(int sent) override;
    void cancelled() override;
    void resizeEvent(VyResizeEvent* e) override;
    void timerEvent(VyTimerEvent* e) override;
    bool eventFilter(VyObject* watched, VyEvent* e) override;

private:
    void clockEdited();
    void showClock();
    void formatChosen();
    void syncNow();

    int m_clockSlot;
    int m_ntpSlot;
    int m_generalSlot;
    bool m_showing = false;      // the page, not the user, is setting the controls
    bool m_clockChanged = false; // the user set the date or the time
    bool m_following = true;     // false from the user's first key or click on them
    int m_tick = 0;              // timer id, 0 before the page opened
    Clock m_clock;
    VyDateEdit* m_date;
    VyTimeEdit* m_time;
    VyComboBox* m_dateFormat;
    VyCheckBox* m_hour12;
    VyComboBox* m_zone;
    VyCheckBox* m_ntp;
    VyLineEdit* m_server;
    VySpinBox* m_port;
    VySpinBox* m_interval;
    VyPushButton* m_sync;
    VyLabel* m_result;
};
