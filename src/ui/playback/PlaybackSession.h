#pragma once
// What the playback screens ask of App and what App answered: the marked days of the month
// searched, the segments of the day searched, the playing cells with their time, speed and
// pause state, and the clip export. It sends through the record data model and takes App's
// answers as the playback receiver, but only while the screen reports itself ready.
#include "model/RecDataManager.h"
#include "model/RecordChannel.h"
#include "model/RecordTag.h"
#include "model/RecordThumbnail.h"
#include "model/UiManager.h"
#include "runtime/VyDateTime.h"
#include "runtime/VyRect.h"

#include <cstdint>
#include <string>
#include <vector>

class PlaybackSession : public PlaybackReceiver {
    VY_OBJECT(PlaybackSession, PlaybackReceiver)
public:
    static constexpr int kJumpSeconds = 30;
    static constexpr int kMinSpeed = -4; // 1/16 x
    static constexpr int kMaxSpeed = 4;  // 16 x

    explicit PlaybackSession(VyObject* parent = nullptr);
    ~PlaybackSession() override;

    bool readyForRecorderMessages() const override { return m_ready; }
    void setReady(bool ready) { m_ready = ready; }

    // Search.
    bool searchMonth(const VyDate& date, const std::vector<int>& channels, uint32_t types = 0);
    const VyDate& markedMonth() const { return m_markedMonth; }
    uint32_t markedDays() const { return m_markedDays; }
    bool isDayMarked(const VyDate& day) const;
    // The segments of these channels on `day`; answers replace the results channel by channel.
    bool searchDay(const VyDate& day, const std::vector<int>& channels);
    // The motion events of one channel's day inside the area (MotionSearchPanel::areaFlags);
    // they replace the results like a day search of that channel alone.
    bool searchMotion(int channel, const VyDate& day, const std::vector<uint8_t>& area);
    const VyDate& searchedDay() const { return m_day; }
    const std::vector<RecordChannel>& results() const { return m_results; }

    // Playback of the cells (one channel each, -1 for an empty cell).
    struct Cell {
        int channel = -1;
        VyRect rect; // pixels of the output
    };
    // Plays to `to`, or to the end of the day it starts in when `to` is invalid.
    bool play(const std::vector<Cell>& cells, const VyDateTime& from, uint32_t layoutId = 0,
              const VyDateTime& to = VyDateTime());
    // While playing: tells App where the cells are now, when they moved (full screen, the
    // thumbnail bar). False when nothing was sent.
    bool moveCells(const std::vector<Cell>& cells, uint32_t layoutId);
    bool stop();
    bool pause();
    bool resume();
    bool setSpeed(int step);
    bool frameStep();
    bool jump(int seconds);
    bool seek(const VyDateTime& time);
    bool setAudio(int window, bool on);
    // Picture playback of the cells: the pictures App took on `day`, one cell window each.
    bool playPictures(const std::vector<Cell>& cells, const VyDate& day, int outputWidth,
                      int outputHeight);
    bool stopPictures();
    bool isPlayingPictures() const { return m_pictures; }
    bool isPlaying() const { return m_playing; }
    bool isPaused() const { return m_paused; }
    int speed() const { return m_speed; }
    const VyDateTime& playbackTime() const { return m_time; }
    int progressCount() const { return m_progressCount; }
    const std::vector<int>& playingChannels() const { return m_channels; }

    // Clip export to a USB stick.
    enum class ExportState { Idle, Running, Done, Failed };
    bool exportClip(const VyDateTime& from, const VyDateTime& to, const std::vector<int>& channels,
                    const std::string& name);
    bool cancelExport();
    ExportState exportState() const { return m_exportState; }
    int exportPercent() const { return m_exportPercent; }
    uint32_t exportFailure() const { return m_exportFailure; }

    // Tags (PlaybackSessionTags.cpp). An answer replaces tags() as a whole.
    bool searchTags(const VyDateTime& from, const VyDateTime& to, const std::string& keyword,
                    const std::vector<int>& channels);
    const std::vector<RecordTag>& tags() const { return m_tags; }
    bool addTag(int channel, const VyDateTime& time, const std::string& name);
    // Thumbnails of one channel at `count` even steps over [from, to]; only the answer for
    // the latest request's channel is kept. The same request again sends nothing: the
    // pictures asked for (or on their way) stay.
    bool requestThumbnails(int channel, const VyDateTime& from, const VyDateTime& to, int count);
    int thumbnailChannel() const { return m_thumbnailChannel; }
    const std::vector<RecordThumbnail>& thumbnails() const { return m_thumbnails; }

    VySignal monthSearched;
    VySignal daySearched;   // a channel's answer arrived (results())
    VySignal progressed;    // playbackTime() moved
    VySignal ended;         // the cells reached the end of the day
    VySignal exportChanged; // exportState() or exportPercent() changed
    VySignal tagsFound;
    VySignal thumbnailsArrived;

protected:
    void customEvent(VyEvent* e) override;

private:
    static RecDataManager::PlayRequest splitRequest(const std::vector<Cell>& cells,
                                                    uint32_t layoutId);
    void onDayResult(const uint8_t* body, size_t len);
    void onStatus(const uint8_t* body, size_t len);
    void onTags(const uint8_t* body, size_t len);
    void onThumbnails(const uint8_t* body, size_t len);

    bool m_ready = false;
    VyDate m_markedMonth;
    uint32_t m_markedDays = 0;
    VyDate m_day;
    std::vector<int> m_asked;
    std::vector<RecordChannel> m_results;

    std::vector<int> m_channels;
    std::vector<Cell> m_cells;
    bool m_playing = false;
    bool m_pictures = false;
    bool m_paused = false;
    int m_speed = 0;
    VyDateTime m_time;
    int m_progressCount = 0;

    ExportState m_exportState = ExportState::Idle;
    int m_exportPercent = 0;
    uint32_t m_exportFailure = 0;
    std::string m_exportName;

    bool m_tagSearchPending = false;
    std::vector<RecordTag> m_tags;
    int m_thumbnailChannel = -1;
    VyDateTime m_thumbnailFrom;
    VyDateTime m_thumbnailTo;
    int m_thumbnailCount = 0;
    std::vector<RecordThumbnail> m_thumbnails;
};
