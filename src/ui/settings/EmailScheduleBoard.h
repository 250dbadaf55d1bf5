#pragma once
// The e-mail schedule: bit 0 motion, 1 alarm, 2 exception, 3 intelligent, 4 PIR. There is
// no normal type, so hide-normal changes nothing here.
#include "ui/settings/ScheduleBoard.h"

class EmailScheduleBoard : public ScheduleBoard {
    VY_OBJECT(EmailScheduleBoard, ScheduleBoard)
public:
    explicit EmailScheduleBoard(VyWidget* parent = nullptr);

protected:
    bool bit0IsNormal() const override { return false; }
};
