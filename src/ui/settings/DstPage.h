#pragma once
// Daylight saving: on or off, the rule by week of the month or by date, when it starts and
// ends, and how far the clock goes forward. Holds block 93, which it shares with the date
// and time page; each sends it only when it changed something.
#include "ui/settings/SettingsPage.h"

class DstRuleEdit;
class VyCheckBox;
class VyComboBox;

class DstPage : public SettingsPage {
    VY_OBJECT(DstPage, SettingsPage)
public:
    explicit DstPage(VyWidget* parent = nullptr);

    VyCheckBox* enabledBox() const { return m_enabled; }
    VyComboBox* modeBox() const { return m_mode; }
    DstRuleEdit* startEdit() const { return m_start; }
    DstRuleEdit* endEdit() const { return m_end; }
    VyComboBox* offsetBox() const { return m_offset; }

    // The daylight-saving fields only: the zone stays the date and time page's.
    void restoreDefaults() override;

protected:
    void showValues() override;
    void collectValues() override;
    void resizeEvent(VyResizeEvent* e) override;

private:
    void modeChosen();

    int m_slot;
    bool m_showing = false; // the page, not the user, is setting the controls
    VyCheckBox* m_enabled;
    VyComboBox* m_mode;
    DstRuleEdit* m_start;
    DstRuleEdit* m_end;
    VyComboBox* m_offset;
};
