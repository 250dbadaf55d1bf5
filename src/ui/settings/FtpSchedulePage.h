#pragma once
// When events of each type upload by FTP, on the FTP schedule board: normal, motion,
// alarm, PIR and intelligent analysis. Holds block 92 (shared with the FTP page).
#include "ui/settings/ScheduleTypesPage.h"

class FtpSchedulePage : public ScheduleTypesPage {
    VY_OBJECT(FtpSchedulePage, ScheduleTypesPage)
public:
    explicit FtpSchedulePage(VyWidget* parent = nullptr);

protected:
    uint8_t* schedule() override;

private:
    int m_slot;
};
