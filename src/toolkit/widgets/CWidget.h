#pragma once
// The base of the application's composite widgets (panels, cells, boards). The key manager
// asks it, instead of testing its class, whether it takes the key focus and lets it handle
// the arrows and OK itself; each operation answers whether the key was used, and an unused
// arrow moves the key focus on to the next control.
#include "toolkit/core/VyWidget.h"

class CWidget : public VyWidget {
    VY_OBJECT(CWidget, VyWidget)
public:
    explicit CWidget(VyWidget* parent = nullptr, int windowType = Widget);

    // Whether the key navigation may stop on this widget.
    virtual bool acceptsKeyFocus() const { return false; }
    // Left (VyKeyEvent::KeyLeft) or Right (KeyRight) while the widget holds the key focus.
    virtual bool keyLeftRight(int key);
    // Up (KeyUp) or Down (KeyDown).
    virtual bool keyUpDown(int key);
    // OK.
    virtual bool keyActivate();

protected:
    // Toolkit key events reaching the widget go the same way as the key manager's calls, so
    // a composite behaves alike whichever path the key took.
    void keyPressEvent(VyKeyEvent* e) override;
};
