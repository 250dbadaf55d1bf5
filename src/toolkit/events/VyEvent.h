#pragma once
// The base of every event. Events are always deleted through this base.
#include "runtime/VyGlobal.h"

#include <cstdint>

class VyEvent {
public:
    // The event type numbers of the whole program. 1 to 31 are the toolkit's; 1000 and up
    // are recorder-level CEvent subclasses, which skip filters and go to customEvent.
    enum Type : int32_t {
        None = 0,
        RawMouse = 1,
        MouseButtonPress = 2,
        MouseButtonRelease = 3,
        MouseButtonDblClick = 4,
        MouseMove = 5,
        Wheel = 6,
        Paint = 7,
        UpdateRequest = 8,
        Timer = 9,
        KeyPress = 10,
        KeyRelease = 11, // has no producer; kept for the handler table
        FocusIn = 12,
        FocusOut = 13,
        Enter = 14,
        Leave = 15,
        Show = 16,
        Hide = 17,
        Resize = 18,
        HoverEnter = 19,
        HoverLeave = 20,
        Close = 22,
        DeferredDelete = 23,
        DragEnter = 24,
        DragMove = 25,
        DragLeave = 26,
        Drop = 27,
        LayoutRequest = 29,
        QueuedSignal = 30,
        ScreenChange = 31,
        User = 1000,
    };

    explicit VyEvent(int type)
        : m_type(type) {}
    virtual ~VyEvent() = default;
    VY_DISABLE_COPY_MOVE(VyEvent)

    int type() const { return m_type; }
    bool isAccepted() const { return m_accepted; }
    void setAccepted(bool accepted) { m_accepted = accepted; }
    void accept() { m_accepted = true; }
    void ignore() { m_accepted = false; }

private:
    int32_t m_type;
    bool m_accepted = false;
};
