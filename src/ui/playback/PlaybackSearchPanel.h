#pragma once
// The search panel beside the playback video: the month calendar with the days that hold
// recordings marked (the month search, asked again whenever another month is shown), the
// channels to play (up to the device's count, at most kMaxChannels at once), the record-type
// filters and the search button.
#include "runtime/VyDate.h"
#include "toolkit/core/VyWidget.h"

#include <vector>

class VyCalendarWidget;
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
    // The first day of the month the calendar shows.
    VyDate shownMonth() const;
    // Bit d - 1: day d of `month` holds recordings.
    void setMarkedDays(const VyDate& month, uint32_t days);
    bool isMarked(int day) const;
    std::vector<int> checkedChannels() const;
    void setChannelChecked(int channel, bool on);
    // The record-type bits the checked type filters let through to the time bar.
    uint32_t typeFilter() const;
    enum TypeGroup { Continuous, Motion, Alarm, Analytics, TypeGroupCount };
    static uint32_t typeGroupBits(int group);
    VyCheckBox* typeBox(int group) const { return m_types[group]; }
    VyCalendarWidget* calendar() const { return m_calendar; }
    VyPushButton* searchButton() const { return m_search; }
    // The height its calendar, channels, filters and button need.
    int contentHeight() const;

    VySignal dateChosen;        // a day of the calendar was chosen (date())
    VySignal monthShown;        // the calendar turned to another month (shownMonth())
    VySignal searchRequested;   // the search button
    VySignal typeFilterChanged; // a type filter was checked or unchecked (typeFilter())

protected:
    void paintEvent(VyPaintEvent* e) override;
    void resizeEvent(VyResizeEvent* e) override;

private:
    void retranslate();
    void onSearchClicked();
    void onTypeToggled();
    void onCalendarChosen();
    void onMonthChanged();
    int calendarHeight() const;

    VyDate m_date;
    VyCalendarWidget* m_calendar = nullptr;
    std::vector<VyCheckBox*> m_channels;
    VyCheckBox* m_types[TypeGroupCount] = {};
    VyPushButton* m_search = nullptr;
    vyargb m_background = 0xFF202226;
    vyargb m_border = 0xFF3C3F45;
};
