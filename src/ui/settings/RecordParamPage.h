#pragma once
// Recording parameters per channel: pre- and post-record times within the recorder's
// limits, and recording the channel's audio where the model has audio inputs (AudioNum).
// Holds block 14 once per channel.
#include "ui/settings/ChannelPage.h"

class VyCheckBox;
class VySpinBox;

class RecordParamPage : public ChannelPage {
    VY_OBJECT(RecordParamPage, ChannelPage)
public:
    explicit RecordParamPage(VyWidget* parent = nullptr);

    VySpinBox* channelBox() const { return selector(); }
    VySpinBox* preRecordBox() const { return m_pre; }
    VySpinBox* postRecordBox() const { return m_post; }
    // Null on a model without audio inputs.
    VyCheckBox* audioBox() const { return m_audio; }

    void restoreDefaults() override;

protected:
    void showItem(int index) override;
    void collectItem(int index) override;

private:
    VySpinBox* m_pre;
    VySpinBox* m_post;
    VyCheckBox* m_audio = nullptr;
};
