#include "ui/analytics/stats/PeopleStatsPage.h"

#include "model/AnalyticsQueries.h"
#include "toolkit/core/VyPointer.h"
#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/widgets/VyBarChart.h"
#include "toolkit/widgets/VyCalendarWidget.h"
#include "toolkit/widgets/VyChartLegend.h"
#include "toolkit/widgets/VyCheckBox.h"
#include "toolkit/widgets/VyComboBox.h"
#include "toolkit/widgets/VyDateEdit.h"
#include "toolkit/widgets/VyLabel.h"
#include "toolkit/widgets/VyLineChart.h"
#include "toolkit/widgets/VyPushButton.h"
#include "ui/UiLook.h"

#include <cstdio>
#include <initializer_list>

namespace {

// Pixels at 1920x1080.
constexpr int kRowDesign = 48;
constexpr int kGapDesign = 24;
constexpr int kFieldDesign = 230;
constexpr int kCheckDesign = 170;
constexpr int kLegendDesign = 60;
constexpr int kMaxChannels = 64;
constexpr int kHoursPerDay = 24;

VyString twoDigits(const char* format, int a, int b) {
    char buf[24];
    std::snprintf(buf, sizeof buf, format, a, b);
    return VyString(buf);
}

} // namespace

PeopleStatsPage::PeopleStatsPage(VyWidget* parent, uint64_t channels, const VyDate& day)
    : CWidget(parent)
    , m_day(day) {
    m_period = new VyComboBox(this);
    m_period->addItem(VyTranslation::tr(TextId::Analytics::ByHour), PeopleStatsRequest::kHour);
    m_period->addItem(VyTranslation::tr(TextId::Analytics::ByDay), PeopleStatsRequest::kDay);
    m_period->addItem(VyTranslation::tr(TextId::Analytics::ByWeek), PeopleStatsRequest::kWeek);
    m_period->addItem(VyTranslation::tr(TextId::Analytics::ByMonth), PeopleStatsRequest::kMonth);
    m_kind = new VyComboBox(this);
    m_kind->addItem(VyTranslation::tr(TextId::Analytics::Bars), 0);
    m_kind->addItem(VyTranslation::tr(TextId::Analytics::Lines), 1);
    m_date = new VyDateEdit(this);
    m_date->setDate(day);
    m_search = new VyPushButton(VyTranslation::tr(TextId::Playback::Search), this);
    for (int ch = 0; ch < kMaxChannels && int(m_checks.size()) < kMaxCompared; ++ch) {
        if ((channels >> ch & 1) == 0)
            continue;
        auto* box =
            new VyCheckBox(VyTranslation::tr(TextId::Analytics::ChannelNumber).arg(ch + 1), this);
        // The first four are compared from the start: enough to compare, few enough to read.
        box->setChecked(m_checks.size() < 4);
        box->show();
        m_checks.push_back(box);
        m_checkChannel.push_back(ch);
    }
    m_bars = new VyBarChart(this);
    m_lines = new VyLineChart(this);
    m_legend = new VyChartLegend(this);
    m_empty = new VyLabel(this);
    m_empty->setTextId(TextId::Analytics::NoData);
    m_empty->setAlignment(VyCanvas::AlignCenter);
    for (VyWidget* w :
         std::initializer_list<VyWidget*>{m_period, m_kind, m_date, m_search, m_bars, m_legend})
        w->show();
    VyObject::connect(m_search, &m_search->clicked, this, VY_SLOT(PeopleStatsPage, searchClicked));
    VyObject::connect(m_kind, &m_kind->currentIndexChanged, this,
                      VY_SLOT(PeopleStatsPage, kindChosen));
    search();
}

VyChart* PeopleStatsPage::shownChart() const {
    return m_kind->currentData() == 1 ? static_cast<VyChart*>(m_lines) : m_bars;
}

void PeopleStatsPage::kindChosen() {
    m_bars->setVisible(m_kind->currentData() == 0);
    m_lines->setVisible(m_kind->currentData() == 1);
}

void PeopleStatsPage::setPeriod(uint32_t period) {
    m_period->setCurrentIndex(m_period->findData(period));
}

void PeopleStatsPage::setLines(bool lines) {
    m_kind->setCurrentIndex(lines ? 1 : 0);
}

void PeopleStatsPage::setDay(const VyDate& day) {
    m_date->setDate(day);
}

void PeopleStatsPage::setCompared(uint64_t channels) {
    for (size_t i = 0; i < m_checks.size(); ++i)
        m_checks[i]->setChecked((channels >> m_checkChannel[i] & 1) != 0);
}

PeopleStatsRequest PeopleStatsPage::request() const {
    PeopleStatsRequest r;
    for (size_t i = 0; i < m_checks.size(); ++i)
        if (m_checks[i]->isChecked())
            r.channels |= uint64_t(1) << m_checkChannel[i];
    r.period = uint32_t(m_period->currentData());
    VyDate first = m_date->date();
    switch (r.period) {
    case PeopleStatsRequest::kHour:
        r.bucketCount = kHoursPerDay;
        break;
    case PeopleStatsRequest::kDay:
        first = VyDate(first.year(), first.month(), 1);
        r.bucketCount = uint32_t(first.daysInMonth());
        break;
    case PeopleStatsRequest::kWeek:
        r.bucketCount = kWeeks;
        break;
    default:
        first = VyDate(first.year(), 1, 1);
        r.bucketCount = kMonths;
        break;
    }
    r.start.year = uint16_t(first.year());
    r.start.month = uint8_t(first.month());
    r.start.day = uint8_t(first.day());
    return r;
}

VyStringList PeopleStatsPage::bucketLabels(const PeopleStatsRequest& r) {
    VyStringList labels;
    const VyDate start(r.start.year, r.start.month, r.start.day);
    for (uint32_t b = 0; b < r.bucketCount && b < PeopleStatsRequest::kMaxBuckets; ++b) {
        switch (r.period) {
        case PeopleStatsRequest::kHour:
            labels.append(twoDigits("%02d:%02d", int(b % kHoursPerDay), 0));
            break;
        case PeopleStatsRequest::kDay:
            labels.append(VyString::number(start.addDays(b).day()));
            break;
        case PeopleStatsRequest::kWeek: {
            const VyDate d = start.addDays(7 * int64_t(b));
            labels.append(twoDigits("%02d-%02d", d.month(), d.day()));
            break;
        }
        default: {
            const VyDate d = start.addMonths(int(b));
            labels.append(twoDigits("%04d-%02d", d.year(), d.month()));
            break;
        }
        }
    }
    return labels;
}

bool PeopleStatsPage::search() {
    const PeopleStatsRequest r = request();
    const VyStringList labels = bucketLabels(r);
    std::vector<VyChartSeries> series;
    VyStringList names;
    if (r.channels != 0) {
        VyPointer<PeopleStatsPage> self(this);
        const auto reply = AnalyticsQueries::peopleStats(r);
        if (self.isNull())
            return false;
        if (reply && reply->head.bucketCount == r.bucketCount) {
            for (const PeopleStatsReply::Channel& c : reply->channels) {
                VyChartSeries s;
                s.name =
                    VyTranslation::tr(TextId::Analytics::ChannelNumber).arg(int(c.channel) + 1);
                s.values.assign(c.in.begin(), c.in.end());
                names.append(s.name);
                series.push_back(std::move(s));
            }
        }
    }
    m_bars->setData(labels, series);
    m_lines->setData(labels, series);
    m_legend->setNames(names);
    m_empty->setVisible(series.empty());
    if (series.empty())
        m_empty->raise();
    return !series.empty();
}

void PeopleStatsPage::resizeEvent(VyResizeEvent*) {
    const int gap = UiLook::scaledX(kGapDesign);
    const int row = UiLook::scaledY(kRowDesign);
    const int field = UiLook::scaledX(kFieldDesign);
    int x = gap;
    for (VyWidget* w : std::initializer_list<VyWidget*>{m_period, m_kind, m_date, m_search}) {
        w->setGeometry(x, gap, field, row);
        x += field + gap;
    }
    const int check = UiLook::scaledX(kCheckDesign);
    x = gap;
    for (VyCheckBox* box : m_checks) {
        box->setGeometry(x, 2 * gap + row, check, row);
        x += check;
    }
    const int top = 3 * gap + 2 * row;
    const int legend = UiLook::scaledY(kLegendDesign);
    const VyRect chart(gap, top, width() - 2 * gap, height() - top - legend - gap);
    m_bars->setGeometry(chart);
    m_lines->setGeometry(chart);
    m_empty->setGeometry(chart);
    m_legend->setGeometry(gap, chart.bottom + 1, chart.width(), legend);
}
