#pragma once
// Two-way talk (1034): App's talk state, in param and the data block.
#include "toolkit/events/CEvent.h"

class DualTalkEvent : public CEvent {
public:
    explicit DualTalkEvent(int param = 0)
        : CEvent(UiEventType::DualTalk, param) {}
};
