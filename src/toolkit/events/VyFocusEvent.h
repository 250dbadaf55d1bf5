#pragma once
#include "toolkit/events/VyEvent.h"

#include <cstdint>

// FocusIn (12) and FocusOut (13) with the reason of the change.
class VyFocusEvent : public VyEvent {
public:
    enum Reason : int32_t {
        MouseFocusReason = 0,
        TabFocusReason = 1,
        BacktabFocusReason = 2,
        ActiveWindowFocusReason = 3, // a window re-activated after a modal one closed
        PopupFocusReason = 4,
        ShortcutFocusReason = 5,
        MenuBarFocusReason = 6,
        OtherFocusReason = 7,   // key navigation and text displays
        RefreshFocusReason = 8, // out-then-in refresh; never changes the focus widget
    };

    VyFocusEvent(int type, int reason)
        : VyEvent(type)
        , m_reason(reason) {}

    int reason() const { return m_reason; }
    bool gotFocus() const { return type() == FocusIn; }
    bool lostFocus() const { return type() == FocusOut; }

private:
    int32_t m_reason;
};
