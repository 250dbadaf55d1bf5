#pragma once
// The screen lock: a full-screen window over the main view that paints nothing but a small
// notice, so the live pictures keep running behind it, and catches every mouse press. While
// the screen is locked the key manager lets only the two escape keys through; either of
// them, or a click, asks for a login, which unlocks. The window follows the user access
// model's lock: it shows itself when the screen locks and hides when it unlocks.
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
    // The notice's frame, in window coordinates.
    VyRect noticeRect() const;
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
