#pragma once
// People statistics: the people who came in on the chosen channels per hour of a day, per
// day of a month, per week (twelve from the chosen day) or per month of a year, as grouped
// bars or as lines, one series per channel so channels compare side by side.
#include "protocol/PeopleStatsRequest.h"
#include "runtime/VyDate.h"
#include "runtime/VyStringList.h"
#include "toolkit/widgets/CWidget.h"

#include <vector>

class VyBarChart;
class VyChart;
class VyChartLegend;
class VyCheckBox;
class VyComboBox;
class VyDateEdit;
class VyLabel;
class VyLineChart;
class VyPushButton;

class PeopleStatsPage : public CWidget {
    VY_OBJECT(PeopleStatsPage, CWidget)
public:
    static constexpr int kWeeks = 12;
    static constexpr int kMonths = 12;
    // At most this many channels are compared at once (their check boxes come first).
    static constexpr int kMaxCompared = 8;

    PeopleStatsPage(VyWidget* parent, uint64_t channels, const VyDate& day = VyDate::currentDate());

    // The request for the period, day and channels chosen now.
    PeopleStatsRequest request() const;
    bool search();
    void setPeriod(uint32_t period);
    void setLines(bool lines);
    void setDay(const VyDate& day);
    // Only these channels are compared (bit n = channel n), as far as they are offered.
    void setCompared(uint64_t channels);

    VyBarChart* barChart() const { return m_bars; }
    VyLineChart* lineChart() const { return m_lines; }
    VyChart* shownChart() const;
    VyChartLegend* legend() const { return m_legend; }
    // The category labels of a request's buckets ("09:00", "Mon 3", "W12", "2026-05").
    static VyStringList bucketLabels(const PeopleStatsRequest& request);

protected:
    void resizeEvent(VyResizeEvent* e) override;

private:
    void searchClicked() { search(); }
    void kindChosen();

    VyDate m_day;
    VyComboBox* m_period;
    VyComboBox* m_kind;
    VyDateEdit* m_date;
    VyPushButton* m_search;
    std::vector<VyCheckBox*> m_checks; // the offered channels, up to kMaxCompared
    std::vector<int> m_checkChannel;
    VyBarChart* m_bars;
    VyLineChart* m_lines;
    VyChartLegend* m_legend;
    VyLabel* m_empty;
};
