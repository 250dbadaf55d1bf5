#pragma once
// The system's general settings: the interface language among those this device offers
// and has files for, and the menu time-out (how dates and times are written is on the
// date and time page). Holds block 21; when Apply changes the language, App's "parameter
// changed" makes the whole interface switch.
#include "ui/settings/SettingsPage.h"

#include <vector>

class VyComboBox;
class VySpinBox;

class GeneralPage : public SettingsPage {
    VY_OBJECT(GeneralPage, SettingsPage)
public:
    explicit GeneralPage(VyWidget* parent = nullptr);

    VyComboBox* languageBox() const { return m_language; }
    VySpinBox* menuTimeoutBox() const { return m_menuTimeout; }

    void restoreDefaults() override;

protected:
    void showValues() override;
    void collectValues() override;
    void opened() override;

private:
    int m_slot;
    VyComboBox* m_language;
    VySpinBox* m_menuTimeout;
};
