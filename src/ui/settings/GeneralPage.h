#pragma once
// The system's general settings: the interface language among those this device offers
// and has files for, the date format (shown as today's date in each), 12- or 24-hour time
// and the menu time-out. Holds block 21; when Apply changes the language, App's "parameter
// changed" makes the whole interface switch.
#include "ui/settings/SettingsPage.h"

#include <vector>

class VyCheckBox;
class VyComboBox;
class VySpinBox;

class GeneralPage : public SettingsPage {
    VY_OBJECT(GeneralPage, SettingsPage)
public:
    static constexpr int kDateFormats = 3;

    explicit GeneralPage(VyWidget* parent = nullptr);

    VyComboBox* languageBox() const { return m_language; }
    VyComboBox* dateFormatBox() const { return m_dateFormat; }
    VyCheckBox* hour12Box() const { return m_hour12; }
    VySpinBox* menuTimeoutBox() const { return m_menuTimeout; }

    void restoreDefaults() override;

protected:
    void showValues() override;
    void collectValues() override;
    void opened() override;

private:
    int m_slot;
    VyComboBox* m_language;
    VyComboBox* m_dateFormat;
    VyCheckBox* m_hour12;
    VySpinBox* m_menuTimeout;
};
