#pragma once
// The record schedule of every channel: the schedule board of the channel chosen, the
// record types this model offers (EnableNormalRecord, EnableMotionRecord, AlarmInputNum,
// EnablePirRecord), and copying the channel's week onto every other channel. Holds block
// 16 once per channel, so that copies reach channels not shown and Apply sends exactly the
// channels that changed.
#include "ui/settings/SettingsPage.h"

#include "ui/settings/ScheduleCopyHandler.h"

#include <vector>

class RecScheduleFrame;
class VyCheckBox;
class VyPushButton;
class VySpinBox;

class RecordSchedulePage : public SettingsPage {
    VY_OBJECT(RecordSchedulePage, SettingsPage)
public:
    explicit RecordSchedulePage(VyWidget* parent = nullptr);

    RecScheduleFrame* frame() const { return m_frame; }
    VySpinBox* channelBox() const { return m_channel; }
    VyCheckBox* enabledBox() const { return m_enabled; }
    VyPushButton* copyButton() const { return m_copy; }
    // The type buttons offered, in bit order; null for a type this model does not offer.
    VyPushButton* typeButton(int bit) const { return m_types[size_t(bit)]; }
    ScheduleCopyHandler& copyHandler() { return m_copyHandler; }
    int shownChannel() const { return m_shown; }

    void restoreDefaults() override;

protected:
    void showValues() override;
    void collectValues() override;
    void opened() override;
    void beforeWrite() override;
    void resizeEvent(VyResizeEvent* e) override;

private:
    void channelChosen();
    void typeChosen(VyObject* sender);
    void copyToAllChannels();
    void selectType(int bit);

    std::vector<int> m_slots; // block slot per channel
    int m_shown = 0;          // channel on the board
    VySpinBox* m_channel;
    VyCheckBox* m_enabled;
    RecScheduleFrame* m_frame;
    VyPushButton* m_copy;
    VyPushButton* m_types[4] = {};
    ScheduleCopyHandler m_copyHandler;
};
