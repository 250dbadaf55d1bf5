#pragma once
// Turn page (1078): a paged list asks for its next or previous page, in param and the data block.
#include "toolkit/events/CEvent.h"

class TurnPageEvent : public CEvent {
public:
    explicit TurnPageEvent(int value = 0)
        : CEvent(UiEventType::TurnPage, value) {}
};
