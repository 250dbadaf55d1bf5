#pragma once
// Analytics object information (1093): an object detection result from App, in the data block.
#include "toolkit/events/CEvent.h"

class AIObjInfoEvent : public CEvent {
public:
    explicit AIObjInfoEvent(int value = 0)
        : CEvent(UiEventType::AIObjInfo, value) {}
};
