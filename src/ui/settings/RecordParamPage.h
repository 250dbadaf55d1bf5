#pragma once
// Recording parameters per channel: pre- and post-record times within the recorder's
// limits, and recording the channel's audio where the model has audio inputs (AudioNum).
// Holds block 14 once per channel.
#include "ui/settings/SettingsPage.h"

#include <vector>

class VyCheckBox;
class VySpinBox;

class RecordParamPage : public SettingsPage {
    VY_OBJECT(RecordParamPage, SettingsPage)
public:
    explicit RecordParamPage(VyWidget* parent = nullptr);

    VySpinBox* channelBox() const { return m_channel; }
    VySpinBox* preRecordBox() const { return m_pre; }
    VySpinBox* postRecordBox() const { return m_post; }
    // Null on a model without audio inputs.
    VyCheckBox* audioBox() const { return m_audio; }

    void restoreDefaults() override;

protected:
    void showValues() override;
    void collectValues() override;
    void beforeWrite() override;

private:
    void channelChosen();

    std::vector<int> m_slots; // block slot per channel
    int m_shown = 0;
    VySpinBox* m_channel;
    VySpinBox* m_pre;
    VySpinBox* m_post;
    VyCheckBox* m_audio = nullptr;
};
