#pragma once
// The playback window: the split of playing cells, the player controls, the record time bar
// under them and the search panel beside. It searches through its PlaybackSession and takes
// App's answers only while it is open; a press on the time bar plays (or seeks) from there.
//
//     auto* w = new PlaybackWindow(channelCount);
//     w->open();                      // full screen, month search of today
//     w->instantPlayback(channel, t); // the live view's "last five minutes"
#include "runtime/VyDateTime.h"
#include "toolkit/core/VyWidget.h"
#include "toolkit/input/VyKeyTarget.h"
#include "ui/playback/PlaybackSession.h"

#include <vector>

class BackupToolBar;
class MotionSearchPanel;
class PlaybackDetailsPanel;
class PlaybackScreen;
class PlaybackSearchPanel;
class RecordTimeBar;
class TagSearchPanel;
class ThumbnailBar;
class VyLabel;
class VyProgressBar;
class VyPushButton;

class PlaybackWindow : public VyWidget, public VyKeyTarget {
    VY_OBJECT(PlaybackWindow, VyWidget)
public:
    static constexpr const char* kStyleFile = "style/playback.ini";
    static constexpr int kInstantSeconds = 300; // instant playback: the last five minutes
    // The player's buttons, in the order of the control bar.
    enum Control {
        Play,
        Stop,
        Slower,
        Faster,
        FrameStep,
        Back30,
        Forward30,
        PreviousDay,
        NextDay,
        FullScreen,
        Audio,
        Snapshot,
        Clip,
        Backup,
        MotionSearch,
        PicturePlay,
        Thumbnails, // the thumbnail bar over the time bar
        Tags,       // the tag search in the search panel's place
        ControlCount
    };

    explicit PlaybackWindow(int deviceChannels, VyWidget* parent = nullptr);
    ~PlaybackWindow() override;

    // Shows the window over the whole screen, takes App's playback answers and marks the
    // month of the shown day.
    void open();
    // Shows the window and searches the day and month of the panel's date.
    void openSearch();
    // Shows the window with `channel` alone and plays it from `from` to the end of that day.
    void openAt(int channel, const VyDateTime& from);
    // Stops playing, hides the window and emits closed.
    void closeWindow();
    // Plays one channel from `now` minus kInstantSeconds, alone in the split.
    void instantPlayback(int channel, const VyDateTime& now);
    // Where snapshots are written (the USB stick's mount on a device).
    void setSnapshotDirectory(const VyString& directory) { m_snapshotDirectory = directory; }
    const VyString& lastSnapshot() const { return m_lastSnapshot; }

    PlaybackSession* session() const { return m_session; }
    RecordTimeBar* timeBar() const { return m_timeBar; }
    PlaybackScreen* screen() const { return m_screen; }
    PlaybackSearchPanel* searchPanel() const { return m_panel; }
    MotionSearchPanel* motionPanel() const { return m_motion; }
    PlaybackDetailsPanel* detailsPanel() const { return m_details; }
    TagSearchPanel* tagPanel() const { return m_tags; }
    ThumbnailBar* thumbnailBar() const { return m_thumbnailBar; }
    // Plays `channel` from `time`: in the split when it is there and the day is the one
    // searched, else alone on that day.
    void playChannelAt(int channel, const VyDateTime& time);
    VyPushButton* control(Control c) const { return m_controls[c]; }
    // The four zoom buttons, widest first (RecordTimeBar::kSpans); several may be checked.
    VyPushButton* zoomButton(int index) const { return m_zoom[index]; }
    // The shortest span among the checked zoom buttons; 0 when none is checked.
    uint32_t zoomSpan() const;
    BackupToolBar* backupBar() const { return m_backupBar; }
    VyProgressBar* exportProgress() const;
    VyPushButton* cancelButton() const;
    VyLabel* statusLabel() const;
    bool isFullScreenVideo() const { return m_fullScreen; }

    void search();
    void togglePlay();
    // The device keys routed to playback (front panel and remote): true when the key is one
    // of them. 39 play/pause, 40 stop, 41 slower, 42 faster, 43 back 30 s, 44 forward 30 s,
    // 79 frame step, 80 previous day, 81 next day, 82 snapshot.
    bool handleDeviceKey(int keyValue);
    // The key manager's playback role, held while the window is open.
    // The playback keys, behind the playback right: the user who opened the window may have
    // been logged out since.
    bool keyAction(uint32_t deviceKey) override;

    VySignal closed;

protected:
    void paintEvent(VyPaintEvent* e) override;
    void resizeEvent(VyResizeEvent* e) override;
    void keyPressEvent(VyKeyEvent* e) override;

private:
    // Full screen, ready for App's answers and holding the playback keys.
    void present();
    void layoutChildren();
    void onControlClicked(VyObject* sender);
    void onPositionChosen();
    void onDaySearched();
    void onMonthSearched();
    void onProgressed();
    void onExportChanged();
    void onMonthShown();
    void onCancelExport();
    void onCellSelected();
    void onClipChanged();
    void onMotionSearch();
    // Tags and thumbnails (PlaybackWindowTags.cpp).
    void onTagSearch();
    void onTagsFound();
    void onTagChosen();
    void onAddTag();
    void refreshThumbnails();
    void onThumbnailsArrived();
    void onThumbnailChosen();
    // The channel of the selected time bar row; -1 when there is none.
    int selectedChannel() const;
    void onZoomClicked();
    void onWheelZoomed();
    void onTypeFilterChanged();
    void retranslate();
    // The status line in the current language, kept so that a language change redraws it.
    void showStatus(uint32_t textId, int percent = -1);
    void onRowSelected();
    void onSegmentChosen();
    void changeDay(int days);
    void playFrom(const VyDateTime& time, const VyDateTime& to = VyDateTime());
    // The split's cells with their channels, in output pixels.
    std::vector<PlaybackSession::Cell> cellsOnScreen() const;
    void updateSpeedText();

    PlaybackSession* m_session = nullptr;
    PlaybackScreen* m_screen = nullptr;
    RecordTimeBar* m_timeBar = nullptr;
    PlaybackSearchPanel* m_panel = nullptr;
    MotionSearchPanel* m_motion = nullptr; // shown instead of the search panel
    PlaybackDetailsPanel* m_details = nullptr;
    TagSearchPanel* m_tags = nullptr;       // shown instead of the search panel
    ThumbnailBar* m_thumbnailBar = nullptr; // over the time bar while Thumbnails is on
    VyPushButton* m_controls[ControlCount] = {};
    VyPushButton* m_zoom[4] = {};
    VyLabel* m_speed = nullptr;
    BackupToolBar* m_backupBar = nullptr; // holds the backup button, progress and status
    uint32_t m_statusId = 0;              // 0: no status shown
    int m_statusPercent = -1;
    std::vector<bool> m_audio; // per cell
    bool m_fullScreen = false;
    VyString m_snapshotDirectory = "/tmp";
    VyString m_lastSnapshot;
    vyargb m_background = 0xFF000000;
    vyargb m_controlBar = 0xFF1C1E22;
    vyargb m_controlBorder = 0xFF3C3F45;
};
