#pragma once
// The sensor inputs (AlarmInputNum of them): contact type and what an alarm on the input
// does: buzzer, pop-up, e-mail, recording channels, PTZ preset, relay outputs
// (AlarmOutputNum; the row is left out without outputs) and how long it lasts. Holds
// block 11 once per input.
#include "ui/settings/SettingsPage.h"

#include <vector>

class BitMaskChecks;
class VyCheckBox;
class VySpinBox;

class AlarmInputPage : public SettingsPage {
    VY_OBJECT(AlarmInputPage, SettingsPage)
public:
    explicit AlarmInputPage(VyWidget* parent = nullptr);

    VySpinBox* inputBox() const { return m_input; }
    VyCheckBox* enabledBox() const { return m_enabled; }
    VyCheckBox* normallyClosedBox() const { return m_normallyClosed; }
    VyCheckBox* buzzerBox() const { return m_buzzer; }
    VyCheckBox* popupBox() const { return m_popup; }
    VyCheckBox* emailBox() const { return m_email; }
    BitMaskChecks* recordChannels() const { return m_record; }
    // Null on a model without relay outputs.
    BitMaskChecks* alarmOutputs() const { return m_outputs; }
    VySpinBox* presetBox() const { return m_preset; }
    VySpinBox* holdBox() const { return m_hold; }

    void restoreDefaults() override;

protected:
    void showValues() override;
    void collectValues() override;
    void beforeWrite() override;

private:
    void inputChosen();

    std::vector<int> m_slots; // block slot per input
    int m_shown = 0;
    VySpinBox* m_input;
    VyCheckBox* m_enabled;
    VyCheckBox* m_normallyClosed;
    VyCheckBox* m_buzzer;
    VyCheckBox* m_popup;
    VyCheckBox* m_email;
    BitMaskChecks* m_record;
    BitMaskChecks* m_outputs = nullptr;
    VySpinBox* m_preset;
    VySpinBox* m_hold;
};
