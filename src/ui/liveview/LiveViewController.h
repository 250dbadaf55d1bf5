#pragma once
// Wires the live view together: the main-view manager's state (channels, layout requests,
// the sequence, App's notices) into the screen, the task bar and the tool bar, and the
// screen's changes back to App as preview records. Owned by the main view's window.
#include "runtime/VyDateTime.h"
#include "runtime/VyPoint.h"
#include "toolkit/core/VyObject.h"

#include <memory>
#include <vector>

class MainViewManager;
class VyMenu;
class MainViewTaskBar;
class VyLabel;
class VyWidget;
class VyVideoScreen;
class VyPtzWidget;
class ColourPanel;
class DigitalZoomView;
class MainViewVideo;
struct LiveViewProfile;

class LiveViewController : public VyObject {
    VY_OBJECT(LiveViewController, VyObject)
public:
    static constexpr int kClockMs = 1000;
    static constexpr int kNoticeMs = 2000; // the snapshot notice stays this long
    using Clock = VyDateTime (*)();
    // Where the task bar's clock reads the time (tests fix it).
    static void setClock(Clock clock);

    LiveViewController(VyVideoScreen* screen, MainViewTaskBar* taskBar, VyLabel* notice,
                       VyObject* parent = nullptr);
    ~LiveViewController() override;

    // Channel count, saved order, start-up layout; registers for App's channel notices and
    // asks for the camera roster.
    void start(const LiveViewProfile& profile, int channelCount);
    // Sends the record for what the screen shows now.
    void sendPreview();
    void showNotice(uint32_t textId);
    // App recognised a person of the face library: their name and channel as the notice.
    void onFaceRecognised();
    // The main view's keys for the sequence, snapshot, manual recording and mute.
    bool keyAction(uint32_t deviceKey);
    // A tool-bar action on the selected cell (its tool bar need not be shown).
    void act(int action);
    // Escape: leaves the digital zoom or closes an open panel; false when none is open.
    bool escape();

    // Slots.
    void onPreviewChanged();
    void onOrderChanged();
    void onLayoutRequested();
    void onChannelState();
    void onDeviceState();
    void onSequenceStep();
    void onToolBarAction();
    void onTaskBarButton();
    void onStartMenuChosen();
    void onSnapshot();
    void onNetworkStatus();
    void onRightClick();
    void onSequenceTick();
    void onTalkState();
    void onPageTurn();
    void onZoomRegion();
    void onZoomFinished();
    void onPanelClosed();

    // The panels of the tool bar, once opened (children of the main view's window).
    VyPtzWidget* ptzPanel() const { return m_ptz; }
    ColourPanel* colourPanel() const { return m_colour; }
    DigitalZoomView* zoomView() const { return m_zoom; }
    // Seconds before now where instant playback starts.
    static constexpr int kInstantPlaybackSec = 300;

    // The menu open now (start, layouts, sequence), or null.
    VyMenu* openMenu() const { return m_menu.get(); }

protected:
    void timerEvent(VyTimerEvent* e) override;

private:
    // A protected action of the start menu: asks for a login when needed.
    static bool allowed(uint32_t function);
    static constexpr int kKeySequenceDwellSec = 10; // the sequence key's dwell
    MainViewManager* manager() const;
    void perform(int action);
    void openPtz(MainViewVideo* cell);
    void openColour(MainViewVideo* cell);
    void startZoom(MainViewVideo* cell);
    void endZoom();
    // Places a panel beside the cell, inside the window and clear of the task bar.
    void placePanel(VyWidget* panel, MainViewVideo* cell);
    // Opens a menu above a task-bar button (or at a screen point when none is given).
    void popupMenu(std::unique_ptr<VyMenu> menu, VyWidget* above, VyPoint at = VyPoint());

    VyVideoScreen* m_screen;
    MainViewTaskBar* m_taskBar;
    VyLabel* m_notice;
    std::unique_ptr<VyMenu> m_menu; // a popup window: no parent owns it
    int m_channelCount = 0;
    int m_clockTimer = 0;
    int m_noticeTimer = 0;
    VyPtzWidget* m_ptz = nullptr;      // child of the window, made on first use
    ColourPanel* m_colour = nullptr;   // likewise
    DigitalZoomView* m_zoom = nullptr; // likewise
    bool m_muted = false;
};
