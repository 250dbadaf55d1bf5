#pragma once
// Each channel's video encoding: the main stream and the sub-stream, one shown at a time,
// with picture size, frame rate, bit-rate control, I-frame interval, codec and audio, all
// within what the channel's encoder can do (the limits App sends with the block), and
// copying the shown channel's settings to every other channel. Holds block 5 per channel.
#include "ui/settings/ChannelPage.h"

#include "protocol/StreamBlock.h"

class VyCheckBox;
class VyComboBox;
class VyPushButton;
class VySpinBox;

class StreamPage : public ChannelPage {
    VY_OBJECT(StreamPage, ChannelPage)
public:
    explicit StreamPage(VyWidget* parent = nullptr);

    VyComboBox* streamBox() const { return m_stream; }
    VyComboBox* resolutionBox() const { return m_resolution; }
    VySpinBox* frameRateBox() const { return m_frameRate; }
    VyComboBox* bitrateModeBox() const { return m_mode; }
    VySpinBox* bitrateBox() const { return m_bitrate; }
    VySpinBox* qualityBox() const { return m_quality; }
    VySpinBox* iFrameBox() const { return m_iFrame; }
    VyComboBox* codecBox() const { return m_codec; }
    // Null on a model without audio inputs.
    VyCheckBox* audioBox() const { return m_audio; }
    VyPushButton* copyButton() const { return m_copy; }

    // `from`'s settings onto `to`, each value brought within `to`'s own limits.
    static void copyStream(const StreamBlock::Stream& from, StreamBlock::Stream* to);

    // Both streams of every channel back to the factory encoding, within each encoder's
    // limits.
    void restoreDefaults() override;

protected:
    void showItem(int index) override;
    void collectItem(int index) override;
    void resizeEvent(VyResizeEvent* e) override;

private:
    void streamChosen();
    void copyToAllChannels();
    void showStream(const StreamBlock::Stream& s);

    int m_shownStream = 0;
    VyComboBox* m_stream;
    VyComboBox* m_resolution;
    VySpinBox* m_frameRate;
    VyComboBox* m_mode;
    VySpinBox* m_bitrate;
    VySpinBox* m_quality;
    VySpinBox* m_iFrame;
    VyComboBox* m_codec;
    VyCheckBox* m_audio = nullptr;
    VyPushButton* m_copy;
};
