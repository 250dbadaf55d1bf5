#pragma once
// The screen lock: a small modal notice over the main view, so the live view keeps running
// around it while no other window takes the mouse. While the screen is locked the key
// manager lets only the two escape keys through; either of them, or a click on the notice,
// asks for a login, which unlocks. The window follows the user access model's lock: it
// shows itself when the screen locks and hides when it unlocks.
#include "runtime/VyString.h"
#include "toolkit/core/VyPointer.h"
#include "toolkit/widgets/CWidget.h"

class UserAccess;

class ScreenLockWindow : public CWidget {
    VY_OBJECT(ScreenLockWindow, CWidget)
public:
    explicit ScreenLockWindow(UserAccess* access);

    // The key focus rests here, so the escape keys reach the window.
    bool acceptsKeyFocus() const override { return true; }
    bool keyActivate() override;
    // Asks for the login that unlocks.
    void requestUnlock();
    int unlockRequests() const { return m_requests; }

protected:
    void paintEvent(VyPaintEvent* e) override;
    void keyPressEvent(VyKeyEvent* e) override;
    void mousePressEvent(VyMouseEvent* e) override;

private:
    void followLock();

    VyPointer<UserAccess> m_access;
    int m_requests = 0;
};
