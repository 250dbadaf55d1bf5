#pragma once
// A time field "hh:mm:ss", or "hh:mm:ss AP" on the 12-hour clock (the hour-format byte of the
// general settings). One section has the focus: Up and Down step it and wrap within it (the
// hour after 23 is 0, the minute after 59 is 0, without carrying), the AM/PM section switches
// half days; Left and Right move between sections; digits type into the section, a full one
// moving on. An impossible time is refused and the previous time stays.
#include "runtime/VyString.h"
#include "runtime/VyTime.h"
#include "toolkit/core/VyWidget.h"

class VyTimeEdit : public VyWidget {
    VY_OBJECT(VyTimeEdit, VyWidget)
public:
    enum Section { HourSection, MinuteSection, SecondSection, AmPmSection };

    explicit VyTimeEdit(VyWidget* parent = nullptr);
    ~VyTimeEdit() override;

    VySignal timeChanged;

    void setHour12(bool on);
    bool isHour12() const { return m_hour12; }
    bool setTime(const VyTime& time);
    const VyTime& time() const { return m_time; }
    int sectionCount() const { return m_hour12 ? 4 : 3; }
    Section currentSection() const { return static_cast<Section>(m_position); }
    void setCurrentSection(Section section);
    void stepBy(int steps);
    VyString text() const;
    int styleSlot() const;
    VySize sizeHint() const override;

protected:
    void paintEvent(VyPaintEvent* e) override;
    void keyPressEvent(VyKeyEvent* e) override;
    void wheelEvent(VyWheelEvent* e) override;
    void mousePressEvent(VyMouseEvent* e) override;
    void hoverEnterEvent(VyHoverEvent* e) override;
    void hoverLeaveEvent(VyHoverEvent* e) override;
    void focusInEvent(VyFocusEvent* e) override;
    void focusOutEvent(VyFocusEvent* e) override;

private:
    VyString sectionText(int position) const;
    VyString separatorAfter(int position) const;
    void commitTyped();

    VyTime m_time{0, 0, 0};
    bool m_hour12 = false;
    bool m_hovered = false;
    int m_position = 0;
    VyString m_typed;
};
