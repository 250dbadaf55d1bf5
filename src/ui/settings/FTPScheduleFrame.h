#pragma once
// The FTPScheduleBoard with its day and hour labels.
#include "ui/settings/FTPScheduleBoard.h"
#include "ui/settings/ScheduleFrame.h"

class FTPScheduleFrame : public ScheduleFrame {
    VY_OBJECT(FTPScheduleFrame, ScheduleFrame)
public:
    explicit FTPScheduleFrame(VyWidget* parent = nullptr)
        : ScheduleFrame(parent) {
        attachBoard(new FTPScheduleBoard(this));
    }
    FTPScheduleBoard* ftpBoard() const { return static_cast<FTPScheduleBoard*>(board()); }
};
