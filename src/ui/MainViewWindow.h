#pragma once
// The main view's window: full screen, below every other window, painted with the main
// view's background. The live cells, task bar and menus are built into it by the live-view
// work; the window and its place in the start-up are settled here.
#include "toolkit/core/VyWidget.h"

class MainViewWindow : public VyWidget {
    VY_OBJECT(MainViewWindow, VyWidget)
public:
    MainViewWindow();
    // Covers the whole screen (again, after a resolution change).
    void fitScreen();

protected:
    void paintEvent(VyPaintEvent* e) override;
};
