#pragma once
// A month calendar in the colours of "style/calendar.ini": a header with the month and arrows
// to the previous and next month, a row of weekday names, and six weeks of days. It shows the
// Gregorian or the Solar Hijri calendar (weeks start on Sunday or Saturday), marks today, the
// selected day and any days given as marked (playback marks the days with recordings and
// refills the marks on `monthChanged`).
//
// Left and Right move the selection by a day, Up and Down by a week (the month follows), OK
// chooses the selected day, Escape cancels. A click on a day chooses it; the arrows change the
// month. As a popup (the date edit's) it closes on a choice, on Escape and on a press outside.
#include <set>
#include <vector>

#include "runtime/VyBitmap.h"
#include "runtime/VyDate.h"
#include "toolkit/widgets/CWidget.h"

class VyCalendarWidget : public CWidget {
    VY_OBJECT(VyCalendarWidget, CWidget)
public:
    static constexpr const char* kStyleFile = "style/calendar.ini";
    static constexpr int kCellWidthDesign = 48; // pixels at 1920x1080
    static constexpr int kCellHeightDesign = 36;

    // `popup`: a window of its own that closes itself, else a child control.
    explicit VyCalendarWidget(VyWidget* parent = nullptr, bool popup = false);
    ~VyCalendarWidget() override;

    VySignal chosen;       // selectedDate() was chosen
    VySignal cancelled;    // a popup closed without a choice
    VySignal monthChanged; // shownYear() / shownMonth() changed

    void setPersian(bool persian);
    bool isPersian() const { return m_persian; }
    // An invalid date is refused (logged); the month shown follows the selection.
    bool setSelectedDate(const VyDate& date);
    const VyDate& selectedDate() const { return m_selected; }
    void setToday(const VyDate& today);
    // In the calendar shown (Solar Hijri fields in that mode).
    int shownYear() const { return m_year; }
    int shownMonth() const { return m_month; }
    void showMonth(int year, int month);
    void showNextMonth();
    void showPreviousMonth();

    void setMarkedDays(const std::vector<VyDate>& days);
    void clearMarkedDays();
    bool isMarked(const VyDate& date) const;

    // The day in the grid cell (row 0..5, column 0..6), and the cell under a point (false
    // when none).
    VyDate dateAt(int row, int column) const;
    bool cellAt(VyPoint pos, int* row, int* column) const;
    VyRect cellRect(int row, int column) const;
    VyRect previousButtonRect() const;
    VyRect nextButtonRect() const;

    void open(const VyRect& under);
    void cancel();

    bool acceptsKeyFocus() const override { return true; }
    bool keyLeftRight(int key) override;
    bool keyUpDown(int key) override;
    bool keyActivate() override;

    VySize sizeHint() const override;

protected:
    void paintEvent(VyPaintEvent* e) override;
    void keyPressEvent(VyKeyEvent* e) override;
    void mousePressEvent(VyMouseEvent* e) override;
    void mouseMoveEvent(VyMouseEvent* e) override;
    void wheelEvent(VyWheelEvent* e) override;
    void closeEvent(VyCloseEvent* e) override;

private:
    VyDate firstShownDay() const;
    void moveSelection(long long days);
    void choose();

    bool m_persian = false;
    VyDate m_selected;
    VyDate m_today;
    int m_year = 2000;
    int m_month = 1;
    std::set<long long> m_marked; // Julian days
    VyBitmap m_previousImage;
    VyBitmap m_nextImage;
    int m_hoverRow = -1;
    int m_hoverColumn = -1;
    // Colours of the sheet.
    vyargb m_background = 0xFF24262B;
    vyargb m_border = 0xFF464A52;
    vyargb m_headerBackground = 0xFF2C2F35;
    vyargb m_headerForeground = 0xFFE6E8EB;
    vyargb m_day = 0xFFE6E8EB;
    vyargb m_otherMonth = 0xFF5A5E64;
    vyargb m_weekend = 0xFFE67864;
    vyargb m_todayColour = 0xFF0096DC;
    vyargb m_selectedBackground = 0xFF0078BE;
    vyargb m_selectedForeground = 0xFFFFFFFF;
    vyargb m_hoverBackground = 0xFF3A3E46;
    vyargb m_hasRecord = 0xFF00C878;
};
