#pragma once
// Keeps input away from one window (and everything in it) while a long operation runs on
// the GUI thread, for as long as the blocker lives:
//
//     WindowBlocker busy(settingsWindow);
//     saveAllPages();
//
// Mouse and toolkit key events to the window are swallowed by an application filter; the
// key manager asks isBlocked() for the recorder-level keys that filters never see. Paint,
// timer and other events still flow, so the window keeps drawing.
#include "toolkit/core/VyObject.h"
#include "toolkit/core/VyPointer.h"

class VyWidget;

class WindowBlocker : public VyObject {
    VY_OBJECT(WindowBlocker, VyObject)
public:
    enum Flag { BlockMouse = 1, BlockKeys = 2 };

    explicit WindowBlocker(VyWidget* window, int flags = BlockMouse | BlockKeys);
    ~WindowBlocker() override;

    // Whether a live blocker holds the widget's window.
    static bool isBlocked(const VyWidget* widget);
    int flags() const { return m_flags; }
    // Events swallowed so far.
    int swallowed() const { return m_swallowed; }

    bool eventFilter(VyObject* watched, VyEvent* e) override;

private:
    VyPointer<VyWidget> m_window;
    int m_flags;
    int m_swallowed = 0;
};
