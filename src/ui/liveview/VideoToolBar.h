#pragma once
// The small bar over the selected cell: record, snapshot, instant playback, PTZ, digital
// zoom, colour, main/sub stream, volume, talk-back and close, plus the buttons that only
// some cameras offer (fisheye, binocular, pairing, light, speaker, custom tag, analytics
// statistics, alarm), hidden unless the channel has them. A click emits actionTriggered
// with lastAction(); the live view's controller carries it out.
#include "toolkit/core/VyPointer.h"
#include "toolkit/core/VyWidget.h"

#include <vector>

class ImageButton;
class MainViewVideo;

class VideoToolBar : public VyWidget {
    VY_OBJECT(VideoToolBar, VyWidget)
public:
    enum Action {
        Record,
        Snapshot,
        Playback,
        Ptz,
        Zoom,
        Colour,
        Stream,
        Fisheye,
        Binocular,
        Pairing,
        Light,
        Speaker,
        TalkBack,
        CustomTag,
        AiStatistics,
        Volume,
        Alarm,
        Close,
        ActionCount
    };

    explicit VideoToolBar(VyWidget* parent = nullptr);

    // Places the bar over the cell (along its lower part, inside the parent) and shows the
    // buttons the cell's channel offers.
    void attachTo(MainViewVideo* cell);
    MainViewVideo* cell() const { return m_cell.data(); }

    ImageButton* button(Action a) const { return m_buttons[size_t(a)]; }
    Action lastAction() const { return m_lastAction; }
    // The images that follow a state: record-on while manual recording runs, the sub-stream
    // image while the cell takes the sub stream, mute while muted.
    void setRecording(bool on);
    void setMainStream(bool on);
    void setMuted(bool muted);
    // The channel talk-back runs on, as App last reported it (-1: none); the talk-back image
    // is lit while the bar is over that channel's cell.
    void setTalkChannel(int channel);
    bool isTalking() const { return m_talking; }
    static constexpr bool kPlaybackAvailable = true;

    VySignal actionTriggered;

    static int buttonSize();
    // Pixels at the bottom of the parent the bar keeps clear of (a task bar over the cells).
    void setBottomReserve(int pixels) { m_bottomReserve = pixels; }

protected:
    void paintEvent(VyPaintEvent* e) override;

private:
    void onClicked(VyObject* sender);
    static void clickedSlot(VyObject* sender, VyObject* receiver);
    void arrange();
    void showTalking();

    std::vector<ImageButton*> m_buttons; // children, by Action
    VyPointer<MainViewVideo> m_cell;
    Action m_lastAction = Close;
    int m_talkChannel = -1;
    bool m_talking = false;
    int m_bottomReserve = 0;
};
