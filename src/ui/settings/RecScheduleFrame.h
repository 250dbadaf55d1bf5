#pragma once
// The RecScheduleBoard with its day and hour labels.
#include "ui/settings/RecScheduleBoard.h"
#include "ui/settings/ScheduleFrame.h"

class RecScheduleFrame : public ScheduleFrame {
    VY_OBJECT(RecScheduleFrame, ScheduleFrame)
public:
    explicit RecScheduleFrame(VyWidget* parent = nullptr)
        : ScheduleFrame(parent) {
        attachBoard(new RecScheduleBoard(this));
    }
    RecScheduleBoard* recBoard() const { return static_cast<RecScheduleBoard*>(board()); }
};
