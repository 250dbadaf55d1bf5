#pragma once
// A schedule board with its day labels on the left and hour labels above, drawn in
// "Common/Label". Pressing a day label sets or clears that whole day; pressing above a
// half-hour column does the same for that column across the week.
#include "runtime/VyGlobal.h"
#include "toolkit/widgets/CWidget.h"

class ScheduleBoard;

class ScheduleFrame : public CWidget {
    VY_OBJECT(ScheduleFrame, CWidget)
public:
    ScheduleBoard* board() const { return m_board; }
    // The label strips' sizes in pixels.
    int dayLabelWidth() const { return m_dayLabelWidth; }
    int hourLabelHeight() const { return m_hourLabelHeight; }

protected:
    explicit ScheduleFrame(VyWidget* parent);
    // The subclass makes its board as a child of the frame and hands it over here.
    void attachBoard(ScheduleBoard* board);

    void paintEvent(VyPaintEvent* e) override;
    void mousePressEvent(VyMouseEvent* e) override;
    void resizeEvent(VyResizeEvent* e) override;

private:
    ScheduleBoard* m_board = nullptr; // child, owned through the widget tree
    vyargb m_label = 0;
    int m_dayLabelWidth = 0;
    int m_hourLabelHeight = 0;
};
