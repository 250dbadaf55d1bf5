#pragma once
// Face information (1074): a face detection or match result from App, in the data block.
#include "toolkit/events/CEvent.h"

class FaceInfoEvent : public CEvent {
public:
    explicit FaceInfoEvent(int value = 0)
        : CEvent(UiEventType::FaceInfo, value) {}
};
