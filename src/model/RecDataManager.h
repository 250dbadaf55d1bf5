#pragma once
// The record data model: the record settings the playback and search screens depend on
// (parameter block 16), the channel masks that record-search messages carry, and the
// playback and record-search messages (MainType::Playback) it sends for those screens.
// Every send is one-way; App answers with notifications that reach the playback receiver.
#include "model/CachedParamBlock.h"
#include "protocol/PackedDateTime.h"
#include "protocol/ParamBlock.h"
#include "protocol/PlaybackChannelBits.h"
#include "protocol/PlaybackSplitScreen.h"
#include "protocol/RecPicWindow.h"
#include "runtime/VyDateTime.h"
#include "toolkit/core/VyObject.h"

#include <array>
#include <string>
#include <vector>

struct SystemInfoRecord;

class RecDataManager : public VyObject {
    VY_OBJECT(RecDataManager, VyObject)
public:
    explicit RecDataManager(const SystemInfoRecord& info);
    ~RecDataManager() override;

    // The live one, owned by the UiModels set; null when there is none.
    static RecDataManager* instance();

    // Rereads block 16 (App reported a change).
    void refresh();
    const CachedParamBlock& recordSettings() const { return m_recordSettings; }
    // One bit per channel, LSB first, channelCount bits rounded up to whole bytes; empty
    // (and a log line) for a channel outside the device.
    std::vector<uint8_t> channelToBitArray(int channel) const;
    VySignal recordSettingsChanged;

    using ChannelBits = std::array<uint8_t, PlaybackChannelBits::kBytes>;
    static constexpr const char* kDateFormat = "yyyy/MM/dd";
    static constexpr const char* kDateTimeFormat = "yyyy/MM/dd hh:mm:ss";

    // The set of these channels; invalid ones are left out with channelToBitArray's line.
    ChannelBits channelBits(const std::vector<int>& channels) const;
    // The two masks a month search can be cut to (all channels until set).
    void setPlaybackMask(const ChannelBits& mask) { m_playbackMask = mask; }
    void setBackupMask(const ChannelBits& mask) { m_backupMask = mask; }
    int channelCount() const { return m_channelCount; }

    static PackedDateTime pack(const VyDateTime& time);
    // Invalid for impossible fields.
    static VyDateTime unpack(const PackedDateTime& time);

    // Playback of the cells: the split, then the start command.
    struct PlayRequest {
        uint32_t layoutId = 0;
        uint16_t screenWidth = 0;
        uint16_t screenHeight = 0;
        std::vector<PlaybackWindowRect> cells; // channel and rectangle of each cell
        VyDateTime start;
        VyDateTime end;
        uint32_t recordTypes = 0;
        int32_t speed = 0;
    };
    bool play(const PlayRequest& request);
    // The split alone (layoutId, screen size and cells of the request): the cells moved
    // while playing.
    bool splitScreen(const PlayRequest& request);
    enum class StopKind { Video, Picture, Other };
    // `path` names the export a StopKind::Other cancels.
    bool stop(StopKind kind, const std::string& path = std::string());
    // Days of the month of `date` with recordings; backupMask picks the second mask.
    bool monthSearch(const VyDate& date, const std::vector<int>& channels, uint32_t searchType,
                     bool backupMask = false);
    bool daySearch(const VyDateTime& start, const VyDateTime& end,
                   const std::vector<int>& channels);
    bool control(uint32_t action, int32_t value, uint32_t window = 0xFFFFFFFFu);
    bool jump(int32_t seconds);
    bool seek(const VyDateTime& time, const std::vector<int>& channels);
    // `areaFlags` must be MotionSearchRequest::kAreaBytes long.
    bool searchDayMotionInfo(int channel, const VyDateTime& start, const VyDateTime& end,
                             const std::vector<uint8_t>& areaFlags, uint32_t sensitivity = 3);
    bool picPlay(uint32_t playCmd, const VyDateTime& start, const VyDateTime& end,
                 const std::vector<int>& channels, uint32_t intervalSeconds = 3);
    bool searchTag(const VyDateTime& start, const VyDateTime& end, const std::string& keyword,
                   const std::vector<int>& channels);
    // A custom tag named `name` on `channel`'s recording at `time`.
    bool addTag(int channel, const VyDateTime& time, const std::string& name);
    // `count` pictures of `channel` at even steps over [start, end].
    bool requestThumbnails(int channel, const VyDateTime& start, const VyDateTime& end,
                           uint32_t count);
    // One message and one log line per window of the picture playback split.
    bool recPic(const std::vector<RecPicWindow>& windows);
    bool exportClip(const VyDateTime& start, const VyDateTime& end,
                    const std::vector<int>& channels, uint32_t device, const std::string& name);

private:
    bool sendPlayback(uint16_t subType, const void* body, uint32_t len) const;

    int m_channelCount;
    ChannelBits m_playbackMask;
    ChannelBits m_backupMask;
    CachedParamBlock m_recordSettings{ParamBlock::RecordSchedule.number,
                                      ParamBlock::RecordSchedule.size};
};
