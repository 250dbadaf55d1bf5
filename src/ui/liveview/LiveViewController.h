#pragma once
// Wires the live view together: the main-view manager's state (channels, layout requests,
// the sequence, App's notices) into the screen, the task bar and the tool bar, and the
// screen's changes back to App as preview records. Owned by the main view's window.
#include "toolkit/core/VyObject.h"

#include <vector>

class MainViewManager;
class MainViewTaskBar;
class VyLabel;
class VyVideoScreen;
struct LiveViewProfile;

class LiveViewController : public VyObject {
    VY_OBJECT(LiveViewController, VyObject)
public:
    static constexpr int kClockMs = 1000;
    static constexpr int kNoticeMs = 2000; // the snapshot notice stays this long

    LiveViewController(VyVideoScreen* screen, MainViewTaskBar* taskBar, VyLabel* notice,
                       VyObject* parent = nullptr);

    // Channel count, saved order, start-up layout; registers for App's channel notices and
    // asks for the camera roster.
    void start(const LiveViewProfile& profile, int channelCount);
    // Sends the record for what the screen shows now.
    void sendPreview();
    void showNotice(uint32_t textId);

    // Slots.
    void onPreviewChanged();
    void onOrderChanged();
    void onLayoutRequested();
    void onChannelState();
    void onDeviceState();
    void onSequenceStep();
    void onToolBarAction();
    void onTaskBarButton();
    void onSnapshot();
    void onNetworkStatus();

protected:
    void timerEvent(VyTimerEvent* e) override;

private:
    MainViewManager* manager() const;

    VyVideoScreen* m_screen;
    MainViewTaskBar* m_taskBar;
    VyLabel* m_notice;
    int m_clockTimer = 0;
    int m_noticeTimer = 0;
    bool m_muted = false;
    bool m_talking = false;
};
