#include "ui/settings/EmailSchedulePage.h"

#include "protocol/EmailScheduleBlock.h"
#include "toolkit/i18n/TextId.h"
#include "ui/settings/EmailScheduleFrame.h"

EmailSchedulePage::EmailSchedulePage(VyWidget* parent)
    : ScheduleTypesPage(TextId::Settings::EmailSchedule, parent) {
    m_slot = blocks().declare<EmailScheduleBlock>();
    // In the board's bit order.
    setUp(new EmailScheduleFrame(this),
          {TextId::Settings::TypeMotion, TextId::Settings::TypeAlarm,
           TextId::Settings::TypeException, TextId::Settings::TypeIntelligent,
           TextId::Settings::TypePir});
}

uint8_t* EmailSchedulePage::schedule() {
    return blocks().editAs<EmailScheduleBlock>(m_slot).schedule;
}
