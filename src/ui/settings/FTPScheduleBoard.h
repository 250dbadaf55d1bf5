#pragma once
// The FTP upload schedule: bit 0 normal, 1 motion, 2 alarm, 3 PIR, 4 intelligent.
#include "ui/settings/ScheduleBoard.h"

class FTPScheduleBoard : public ScheduleBoard {
    VY_OBJECT(FTPScheduleBoard, ScheduleBoard)
public:
    explicit FTPScheduleBoard(VyWidget* parent = nullptr);
};
