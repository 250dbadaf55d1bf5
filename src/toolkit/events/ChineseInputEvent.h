#pragma once
// Chinese input (1027): the input-method window's request, in param and the data block.
#include "toolkit/events/CEvent.h"

class ChineseInputEvent : public CEvent {
public:
    explicit ChineseInputEvent(int value = 0)
        : CEvent(UiEventType::ChineseInput, value) {}
};
