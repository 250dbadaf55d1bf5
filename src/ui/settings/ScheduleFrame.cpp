#include "ui/settings/ScheduleFrame.h"

#include "runtime/VyIniSettings.h"
#include "runtime/VyResources.h"
#include "toolkit/events/VyMouseEvent.h"
#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "ui/UiLook.h"
#include "ui/settings/ScheduleBoard.h"

namespace {

constexpr uint8_t kLeftButton = 1;
constexpr int kDayLabelDesignWidth = 90; // pixels at 1920x1080
constexpr int kHourLabelDesignHeight = 30;
constexpr int kRightMarginDesign = 20;

// Row 0 is Sunday, as the recorder counts its week.
constexpr uint32_t kDayTexts[ScheduleGrid::kDays] = {
    TextId::Settings::Sunday,    TextId::Settings::Monday,   TextId::Settings::Tuesday,
    TextId::Settings::Wednesday, TextId::Settings::Thursday, TextId::Settings::Friday,
    TextId::Settings::Saturday};

} // namespace

ScheduleFrame::ScheduleFrame(VyWidget* parent)
    : CWidget(parent) {
    const VyIniSettings ini(VyResources::path(ScheduleBoard::kStyleFile));
    m_label = ini.color(VyString("Common/Label")).argb();
    m_dayLabelWidth = UiLook::scaledX(kDayLabelDesignWidth);
    m_hourLabelHeight = UiLook::scaledY(kHourLabelDesignHeight);
}

void ScheduleFrame::attachBoard(ScheduleBoard* board) {
    m_board = board;
    m_board->show();
}

void ScheduleFrame::resizeEvent(VyResizeEvent*) {
    if (m_board == nullptr)
        return;
    // Room on the right for half of the last hour label, which is centred on the last line.
    const int right = UiLook::scaledX(kRightMarginDesign);
    m_board->setGeometry(m_dayLabelWidth, m_hourLabelHeight, width() - m_dayLabelWidth - right,
                         height() - m_hourLabelHeight);
}

void ScheduleFrame::paintEvent(VyPaintEvent*) {
    VyCanvas* c = canvas();
    if (m_board == nullptr)
        return;
    const int px = UiLook::instance().fontPixelSize();
    for (int row = 0; row < ScheduleGrid::kDays; ++row) {
        const VyRect cell = m_board->cellRect(0, row);
        const VyRect r(0, m_hourLabelHeight + cell.top, m_dayLabelWidth - 4, cell.height());
        c->drawText(r, VyCanvas::AlignRight | VyCanvas::AlignVCenter,
                    VyTranslation::tr(kDayTexts[row]), px, m_label);
    }
    // Every second hour, centred on its line.
    for (int hour = 0; hour <= 24; hour += 2) {
        const int x = m_dayLabelWidth + int(float(hour * 2) * m_board->cellWidth());
        const VyRect r(x - px * 2, 0, px * 4, m_hourLabelHeight);
        c->drawText(r, VyCanvas::AlignHCenter | VyCanvas::AlignVCenter, VyString::number(hour), px,
                    m_label);
    }
}

void ScheduleFrame::mousePressEvent(VyMouseEvent* e) {
    if (e->button() != kLeftButton || m_board == nullptr) {
        e->ignore();
        return;
    }
    if (e->x() < m_dayLabelWidth && e->y() >= m_hourLabelHeight) {
        const int y = e->y() - m_hourLabelHeight;
        if (m_board->cellHeight() > 0)
            m_board->toggleDay(int(float(y) / m_board->cellHeight()));
    } else if (e->y() < m_hourLabelHeight && e->x() >= m_dayLabelWidth) {
        const int x = e->x() - m_dayLabelWidth;
        if (m_board->cellWidth() > 0)
            m_board->toggleColumn(int(float(x) / m_board->cellWidth()));
    }
    e->accept();
}
