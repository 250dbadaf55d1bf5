#include "ui/analytics/heatmap/HeatMapPage.h"

#include "model/AnalyticsQueries.h"
#include "runtime/VyBitmap.h"
#include "runtime/VyLog.h"
#include "toolkit/core/VyPointer.h"
#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/widgets/VyCalendarWidget.h"
#include "toolkit/widgets/VyColorScale.h"
#include "toolkit/widgets/VyComboBox.h"
#include "toolkit/widgets/VyDateEdit.h"
#include "toolkit/widgets/VyHeatMap.h"
#include "toolkit/widgets/VyLabel.h"
#include "toolkit/widgets/VyPushButton.h"
#include "ui/UiLook.h"

#include <initializer_list>

namespace {

// Pixels at 1920x1080.
constexpr int kRowDesign = 48;
constexpr int kGapDesign = 24;
constexpr int kFieldDesign = 260;
constexpr int kScaleDesign = 110;
constexpr int kMaxChannels = 64;

} // namespace

HeatMapPage::HeatMapPage(VyWidget* parent, uint64_t channels, const VyDate& day)
    : CWidget(parent) {
    m_channels = new VyComboBox(this);
    for (int ch = 0; ch < kMaxChannels; ++ch)
        if (channels >> ch & 1)
            m_channels->addItem(VyTranslation::tr(TextId::Analytics::ChannelNumber).arg(ch + 1),
                                ch);
    m_span = new VyComboBox(this);
    m_span->addItem(VyTranslation::tr(TextId::Analytics::Day), HeatMapRequest::kDay);
    m_span->addItem(VyTranslation::tr(TextId::Analytics::Week), HeatMapRequest::kWeek);
    m_date = new VyDateEdit(this);
    m_date->setDate(day);
    m_search = new VyPushButton(VyTranslation::tr(TextId::Playback::Search), this);
    m_map = new VyHeatMap(this);
    m_scale = new VyColorScale(this);
    m_empty = new VyLabel(this);
    m_empty->setTextId(TextId::Analytics::NoData);
    m_empty->setAlignment(VyCanvas::AlignCenter);
    for (VyWidget* w :
         std::initializer_list<VyWidget*>{m_channels, m_span, m_date, m_search, m_map, m_scale})
        w->show();
    VyObject::connect(m_search, &m_search->clicked, this, VY_SLOT(HeatMapPage, searchClicked));
    search();
}

bool HeatMapPage::setChannel(int channel) {
    const int index = m_channels->findData(channel);
    return index >= 0 && m_channels->setCurrentIndex(index);
}

void HeatMapPage::setWeek(bool week) {
    m_span->setCurrentIndex(week ? 1 : 0);
}

void HeatMapPage::setDay(const VyDate& day) {
    m_date->setDate(day);
}

bool HeatMapPage::hasData() const {
    return m_map->columns() > 0 && m_map->rows() > 0;
}

bool HeatMapPage::search() {
    if (m_channels->count() == 0)
        return false;
    HeatMapRequest request;
    request.channel = uint32_t(m_channels->currentData());
    request.span = uint32_t(m_span->currentData());
    const VyDate day = m_date->date();
    request.day.year = uint16_t(day.year());
    request.day.month = uint8_t(day.month());
    request.day.day = uint8_t(day.day());
    VyPointer<HeatMapPage> self(this);
    const auto reply = AnalyticsQueries::heatMap(request);
    if (self.isNull())
        return false;
    if (!reply || !m_map->setGrid(reply->head.columns, reply->head.rows, reply->values)) {
        m_map->setGrid(0, 0, {});
        m_map->setPicture(VyBitmap());
        m_scale->setLabels(VyString(), VyString());
        m_empty->show();
        return false;
    }
    VyBitmap picture;
    if (!reply->picture.empty()) {
        picture = VyBitmap::loadJpegFromMemory(reply->picture.data(), reply->picture.size());
        if (picture.isNull())
            VY_GUI_LOG("snapshot of channel %u does not decode; heat map drawn without it\n",
                       request.channel);
    }
    m_map->setPicture(picture);
    m_scale->setLabels(VyString::number(m_map->maximum()), "0");
    m_empty->setVisible(!hasData());
    return hasData();
}

void HeatMapPage::resizeEvent(VyResizeEvent*) {
    const int gap = UiLook::scaledX(kGapDesign);
    const int row = UiLook::scaledY(kRowDesign);
    const int field = UiLook::scaledX(kFieldDesign);
    int x = gap;
    for (VyWidget* w : std::initializer_list<VyWidget*>{m_channels, m_span, m_date, m_search}) {
        w->setGeometry(x, gap, field, row);
        x += field + gap;
    }
    const int top = 2 * gap + row;
    const int scaleW = UiLook::scaledX(kScaleDesign);
    // The map keeps the 16:9 of the snapshot inside the space left.
    int w = width() - 3 * gap - scaleW, h = height() - top - gap;
    if (w * 9 > h * 16)
        w = h * 16 / 9;
    else
        h = w * 9 / 16;
    m_map->setGeometry(gap, top, w, h);
    m_empty->setGeometry(gap, top, w, h);
    m_scale->setGeometry(2 * gap + w, top, scaleW, h);
}
