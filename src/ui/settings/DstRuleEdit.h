#pragma once
// When daylight saving starts or ends, in one row: the month, then either the week of the
// month and the weekday (by week; week 5 is the month's last) or the day of the month (by
// date), then the hour.
#include "protocol/DateTimeBlock.h"
#include "toolkit/widgets/CWidget.h"

class VyComboBox;
class VySpinBox;

class DstRuleEdit : public CWidget {
    VY_OBJECT(DstRuleEdit, CWidget)
public:
    explicit DstRuleEdit(VyWidget* parent = nullptr);

    void setMode(uint8_t mode);
    // Values out of range are shown clamped (with a line naming `what`).
    void setRule(const DateTimeBlock::DstRule& rule, const char* what);
    // The controls into `rule`; fields of the other mode keep what `rule` held, and a field
    // still showing App's out-of-range value clamped keeps App's value (`saved`).
    void collect(DateTimeBlock::DstRule* rule, const DateTimeBlock::DstRule& saved) const;

    VySpinBox* monthBox() const { return m_month; }
    VySpinBox* weekOrDayBox() const { return m_weekOrDay; }
    VyComboBox* weekdayBox() const { return m_weekday; }
    VySpinBox* hourBox() const { return m_hour; }

    VySignal edited;

protected:
    void resizeEvent(VyResizeEvent* e) override;

private:
    void changed();
    void layoutControls();

    uint8_t m_mode = DateTimeBlock::ByWeek;
    VySpinBox* m_month;
    VySpinBox* m_weekOrDay;
    VyComboBox* m_weekday;
    VySpinBox* m_hour;
};
