#pragma once
// The clock: today's date and the time, set by hand (sent only when the user changed them),
// how dates and times are written, the time zone, and setting the clock from a time server
// with "sync now". Holds blocks 93 (clock and zone), 55 (time server) and 21 (formats). A
// new zone comes back from App as its time-zone notice, which moves the GUI's own clock.
#include "ui/settings/SettingsPage.h"

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
    explicit DateTimePage(VyWidget* parent = nullptr);

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

    void restoreDefaults() override;

protected:
    void showValues() override;
    void collectValues() override;
    void written(int sent) override;
    void resizeEvent(VyResizeEvent* e) override;

private:
    void clockEdited();
    void formatChosen();
    void syncNow();

    int m_clockSlot;
    int m_ntpSlot;
    int m_generalSlot;
    bool m_showing = false;      // the page, not the user, is setting the controls
    bool m_clockChanged = false; // the user set the date or the time
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
