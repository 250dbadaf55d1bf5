#pragma once
// A control request (1031) from one screen to another or to the model layer. The request
// code tells a CtrlReqEvent from a CommonCtrlEvent, which shares the type.
#include "toolkit/events/CEvent.h"

#include <cstdint>

class CtrlReqEvent : public CEvent {
public:
    explicit CtrlReqEvent(int32_t requestCode, uint8_t flag = 0)
        : CEvent(UiEventType::CtrlReq)
        , m_requestCode(requestCode)
        , m_flag(flag) {}

    int32_t requestCode() const { return m_requestCode; }
    uint8_t flag() const { return m_flag; }

private:
    int32_t m_requestCode;
    uint8_t m_flag;
};
