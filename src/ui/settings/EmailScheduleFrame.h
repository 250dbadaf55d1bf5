#pragma once
// The EmailScheduleBoard with its day and hour labels.
#include "ui/settings/EmailScheduleBoard.h"
#include "ui/settings/ScheduleFrame.h"

class EmailScheduleFrame : public ScheduleFrame {
    VY_OBJECT(EmailScheduleFrame, ScheduleFrame)
public:
    explicit EmailScheduleFrame(VyWidget* parent = nullptr)
        : ScheduleFrame(parent) {
        attachBoard(new EmailScheduleBoard(this));
    }
    EmailScheduleBoard* emailBoard() const { return static_cast<EmailScheduleBoard*>(board()); }
};
