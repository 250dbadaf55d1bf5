#pragma once
// The sensor inputs (AlarmInputNum of them): contact type and what an alarm on the input
// does: buzzer, pop-up, e-mail, recording channels, PTZ preset, relay outputs
// (AlarmOutputNum; the row is left out without outputs) and how long it lasts. Holds
// block 11 once per input.
#include "ui/settings/ChannelPage.h"

class BitMaskChecks;
class VyCheckBox;
class VySpinBox;

class AlarmInputPage : public ChannelPage {
    VY_OBJECT(AlarmInputPage, ChannelPage)
public:
    explicit AlarmInputPage(VyWidget* parent = nullptr);

    VySpinBox* inputBox() const { return selector(); }
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
    void showItem(int index) override;
    void collectItem(int index) override;

private:
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
