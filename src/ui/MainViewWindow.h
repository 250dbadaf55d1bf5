#pragma once
// The main view's window: full screen, below every other window. It holds the live screen
// of video cells, the task bar along the bottom edge and a short notice line, wired together
// by the live-view controller. Only what the cells do not cover is painted with the main
// view's background: the cells are transparent over the video plane.
#include "toolkit/core/VyWidget.h"

class LiveViewController;
class MainViewTaskBar;
class VyLabel;
class VyVideoScreen;

class MainViewWindow : public VyWidget {
    VY_OBJECT(MainViewWindow, VyWidget)
public:
    MainViewWindow();
    // Covers the whole screen (again, after a resolution change).
    void fitScreen();

    VyVideoScreen* videoScreen() const { return m_screen; }
    MainViewTaskBar* taskBar() const { return m_taskBar; }
    LiveViewController* controller() const { return m_controller; }
    // Deals the channels in the start-up layout and tells App (the first preview record).
    void startLiveView(int channelCount);

protected:
    void paintEvent(VyPaintEvent* e) override;
    void resizeEvent(VyResizeEvent* e) override;

private:
    VyVideoScreen* m_screen;          // child
    MainViewTaskBar* m_taskBar;       // child
    VyLabel* m_notice;                // child
    LiveViewController* m_controller; // child
    bool m_started = false;
};
