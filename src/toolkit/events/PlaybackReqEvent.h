#pragma once
// Playback request (1077): a playback screen's request, in param and the data block.
#include "toolkit/events/CEvent.h"

class PlaybackReqEvent : public CEvent {
public:
    explicit PlaybackReqEvent(int value = 0)
        : CEvent(UiEventType::PlaybackReq, value) {}
};
