#pragma once
// A control request (1031) with two arguments; the second one is optional, -1 when unset.
#include "toolkit/events/CtrlReqEvent.h"

#include <cstdint>

class CommonCtrlEvent : public CtrlReqEvent {
public:
    static constexpr int32_t kNoArgument = -1;

    CommonCtrlEvent(int32_t requestCode, int32_t arg1, int32_t arg2 = kNoArgument, uint8_t flag = 0)
        : CtrlReqEvent(requestCode, flag)
        , m_arg1(arg1)
        , m_arg2(arg2) {}

    int32_t arg1() const { return m_arg1; }
    int32_t arg2() const { return m_arg2; }

private:
    int32_t m_arg1;
    int32_t m_arg2;
};
