#pragma once
// When events of each type send e-mail, on the e-mail schedule board: motion, alarm,
// exception, intelligent analysis and PIR. Offered where the model has EmailScheduleEnable.
// Holds block 91.
#include "ui/settings/ScheduleTypesPage.h"

class EmailSchedulePage : public ScheduleTypesPage {
    VY_OBJECT(EmailSchedulePage, ScheduleTypesPage)
public:
    explicit EmailSchedulePage(VyWidget* parent = nullptr);

protected:
    uint8_t* schedule() override;

private:
    int m_slot;
};
