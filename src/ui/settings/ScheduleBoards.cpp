// The three boards differ only in the block colours they read, in this order.
#include "ui/settings/EmailScheduleBoard.h"
#include "ui/settings/FTPScheduleBoard.h"
#include "ui/settings/RecScheduleBoard.h"

RecScheduleBoard::RecScheduleBoard(VyWidget* parent)
    : ScheduleBoard(
          {"Record/NormalBlock", "Record/MotionBlock", "Record/AlarmBlock", "Record/PirBlock"},
          parent) {}

// The PIR colour is the record board's on purpose: PIR looks the same on both pages.
EmailScheduleBoard::EmailScheduleBoard(VyWidget* parent)
    : ScheduleBoard({"Email/MotionBlock", "Email/AlarmBlock", "Email/ExceptionBlock",
                     "Email/IntelligentBlock", "Record/PirBlock"},
                    parent) {}

FTPScheduleBoard::FTPScheduleBoard(VyWidget* parent)
    : ScheduleBoard({"FTP/NormalBlock", "FTP/MotionBlock", "FTP/AlarmBlock", "FTP/PirBlock",
                     "FTP/IntelligentBlock"},
                    parent) {}
