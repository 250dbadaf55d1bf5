#pragma once
// The base of the recorder-level events (types 1000 and up). They bypass event filters
// and reach the receiver's customEvent.
#include "toolkit/events/VyEvent.h"
#include "toolkit/events/VyEventData.h"

#include <cstdint>

class CEvent : public VyEvent {
public:
    // Recorder-level type numbers whose classes derive from CEvent. The link to App
    // posts its messages as a plain CEvent of type IpcMessage; the UI manager maps them
    // onto 1013..1119.
    enum RecorderType : int32_t {
        IpcMessage = 1000,
        NtpUpdate = 1014,
        ChineseInput = 1027,
        DvrKey = 1029,
        CtrlReq = 1031, // CtrlReqEvent and CommonCtrlEvent; the request code tells them apart
        DualTalk = 1034,
        FaceInfo = 1074,
        PlaybackReq = 1077,
        TurnPage = 1078,
        AIObjInfo = 1093,
    };

    explicit CEvent(int type, int value = 0)
        : VyEvent(type)
        , param(value) {}

    // An owned block (such as an IPC message) travelling with the event; freed with the
    // event unless a consumer takes it. Forwarding:
    //     auto* next = new CEvent(type); next->setData(old->takeData());
    void setData(VyEventData data) { m_data = std::move(data); }
    void* data() const { return m_data.get(); }
    VyEventData takeData() { return std::move(m_data); }

    int32_t param;

private:
    VyEventData m_data;
};
