#pragma once
// The record schedule: bit 0 normal (continuous), 1 motion, 2 alarm, 3 PIR recording.
#include "ui/settings/ScheduleBoard.h"

class RecScheduleBoard : public ScheduleBoard {
    VY_OBJECT(RecScheduleBoard, ScheduleBoard)
public:
    explicit RecScheduleBoard(VyWidget* parent = nullptr);
};
