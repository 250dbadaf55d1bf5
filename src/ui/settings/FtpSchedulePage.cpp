#include "ui/settings/FtpSchedulePage.h"

#include "protocol/FtpBlock.h"
#include "toolkit/i18n/TextId.h"
#include "ui/settings/FTPScheduleFrame.h"

FtpSchedulePage::FtpSchedulePage(VyWidget* parent)
    : ScheduleTypesPage(TextId::Settings::FtpSchedule, parent) {
    m_slot = blocks().declare<FtpBlock>();
    setUp(new FTPScheduleFrame(this),
          {TextId::Settings::TypeNormal, TextId::Settings::TypeMotion, TextId::Settings::TypeAlarm,
           TextId::Settings::TypePir, TextId::Settings::TypeIntelligent});
}

uint8_t* FtpSchedulePage::schedule() {
    return blocks().editAs<FtpBlock>(m_slot).schedule;
}
