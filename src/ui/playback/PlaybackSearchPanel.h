#pragma once
// The search panel beside the playback video: a month of days, those with recordings
// marked (the month search), the channels to play (up to the device's count, at most
// kMaxChannels at once) and the search button.
#include "runtime/VyDate.h"
#include "toolkit/core/VyWidget.h"

#include <vector>

class VyCheckBox;
class VyPushButton;

class PlaybackSearchPanel : public VyWidget {
    VY_OBJECT(PlaybackSearchPanel, VyWidget)
public:
    static constexpr const char* kStyleFile = "style/playbacksearchpanel.ini";
    static constexpr int kMaxChannels = 16; // channels played at once

    PlaybackSearchPanel(int deviceChannels, VyWidget* parent = nullptr);

    void setDate(const VyDate& date);
    const VyDate& date() const { return m_date; }
    // Bit d - 1: day d of the shown month holds recordings.
    void setMarkedDays(const VyDate& month, uint32_t days);
    bool isMarked(int day) const;
    std::vector<int> checkedChannels() const;
    // The record-type bits the checked type filters let through to the time bar.
    uint32_t typeFilter() const;
    enum TypeGroup { Continuous, Motion, Alarm, Analytics, TypeGroupCount };
    static uint32_t typeGroupBits(int group);
    VyCheckBox* typeBox(int group) const { return m_types[group]; }
    void setChannelChecked(int channel, bool on);
    // The rectangle of a day of the shown month in the grid (widget coordinates).
    VyRect dayRect(int day) const;
    VyPushButton* searchButton() const { return m_search; }
    // The height its month, channels and button need.
    int contentHeight() const;

    VySignal dateChosen;        // a day of the grid or a month arrow (date())
    VySignal searchRequested;   // the search button
    VySignal typeFilterChanged; // a type filter was checked or unchecked (typeFilter())

protected:
    void paintEvent(VyPaintEvent* e) override;
    void mousePressEvent(VyMouseEvent* e) override;
    void resizeEvent(VyResizeEvent* e) override;

private:
    void retranslate();
    void onSearchClicked();
    void onTypeToggled();
    void onPreviousMonth();
    void onNextMonth();
    VyRect gridRect() const;

    VyDate m_date;
    VyDate m_markedMonth;
    uint32_t m_markedDays = 0;
    std::vector<VyCheckBox*> m_channels;
    VyCheckBox* m_types[TypeGroupCount] = {};
    VyPushButton* m_search = nullptr;
    VyPushButton* m_previousMonth = nullptr;
    VyPushButton* m_nextMonth = nullptr;
    vyargb m_background = 0xFF202226;
    vyargb m_border = 0xFF3C3F45;
    vyargb m_title = 0xFFFFFFFF;
    vyargb m_text = 0xFFC8CCD2;
    vyargb m_checked = 0xFF0096DC;
    vyargb m_marked = 0xFF00C878;
};
