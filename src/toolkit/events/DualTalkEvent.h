#pragma once
// Two-way talk (1034): App's talk state, in param and the data block.
#include "toolkit/events/CEvent.h"

class DualTalkEvent : public CEvent {
public:
    explicit DualTalkEvent(int value = 0)
        : CEvent(UiEventType::DualTalk, value) {}
};
