#pragma once
// The main view's window: full screen, below every other window. It holds the live screen
// of video cells, the task bar along the bottom edge and a short notice line, wired together
// by the live-view controller. Only what the cells do not cover is painted with the main
// view's background: the cells are transparent over the video plane.
#include "toolkit/core/VyWidget.h"
#include "toolkit/input/VyKeyTarget.h"

class LiveViewController;
class MainViewTaskBar;
class VyLabel;
class VyVideoScreen;

class MainViewWindow : public VyWidget, public VyKeyTarget {
    VY_OBJECT(MainViewWindow, VyWidget)
public:
    // The main view's device keys.
    enum Key : uint32_t {
        KeyToolBar = 3, // show or hide the selected cell's tool bar
        KeySplit1 = 29, // layout keys: the splits of 1, 4, 9, 16, ... channels
        KeySplit4 = 30,
        KeySplit9 = 31,
        KeySplit16 = 32,
        KeySplit25 = 33,
        KeySplit4Alike = 34, // a second 4-way key on some panels
        KeySplit36 = 35,
        KeySplit64 = 36,
        KeySplit8 = 37,
        KeyNextSplit = 38, // the next layout of the count list
        KeyPreviousPage = 47,
        KeyNextPage = 48,
        KeySequence = 56, // start or stop the sequence
        KeyEnlarge = 57,  // the selected cell alone, and back
        KeySnapshot = 60,
        KeyRecord = 67, // manual recording of the selected channel
        KeyMute = 73,
    };

    MainViewWindow();
    // Covers the whole screen (again, after a resolution change).
    void fitScreen();

    VyVideoScreen* videoScreen() const { return m_screen; }
    MainViewTaskBar* taskBar() const { return m_taskBar; }
    LiveViewController* controller() const { return m_controller; }
    // Deals the channels in the start-up layout and tells App (the first preview record).
    void startLiveView(int channelCount);

    bool keyAction(uint32_t deviceKey) override;
    // Selects the channel's cell, turning to its page first.
    bool selectChannel(int channel) override;
    VyWidget* keyWindow() const override { return const_cast<MainViewWindow*>(this); }

protected:
    void paintEvent(VyPaintEvent* e) override;
    void resizeEvent(VyResizeEvent* e) override;
    // Escape that no control used: leaves the zoom or closes the tool bar's panel.
    void keyPressEvent(VyKeyEvent* e) override;

private:
    VyVideoScreen* m_screen;          // child
    MainViewTaskBar* m_taskBar;       // child
    VyLabel* m_notice;                // child
    LiveViewController* m_controller; // child
    bool m_started = false;
};
