// The playback and record-search messages of the record data model.
#include "model/RecDataManager.h"

#include "model/RecorderLink.h"
#include "protocol/ClipExportRequest.h"
#include "protocol/DaySearchRequest.h"
#include "protocol/MainType.h"
#include "protocol/MonthSearchRequest.h"
#include "protocol/MotionSearchRequest.h"
#include "protocol/PicPlayCommand.h"
#include "protocol/PlaybackCommand.h"
#include "protocol/PlaybackControl.h"
#include "protocol/PlaybackJump.h"
#include "protocol/PlaybackSeek.h"
#include "protocol/PlaybackStopRequest.h"
#include "protocol/PlaybackTag.h"
#include "protocol/SubType.h"
#include "protocol/TagSearchRequest.h"
#include "protocol/ThumbnailRequest.h"
#include "runtime/VyLog.h"

#include <algorithm>
#include <cstring>

namespace {

const char* text(const VyDateTime& t, const char* format) {
    static thread_local VyString buffer[2];
    static thread_local int next = 0;
    next ^= 1;
    buffer[next] = t.toString(format);
    return buffer[next].c_str();
}

bool validSpan(const VyDateTime& start, const VyDateTime& end) {
    if (!start.isValid() || !end.isValid() || end < start) {
        VY_GUI_LOG("invalid time range !!!\n");
        return false;
    }
    return true;
}

void copyText(char* out, size_t size, const std::string& in) {
    const size_t n = std::min(size - 1, in.size());
    std::memcpy(out, in.data(), n);
    out[n] = '\0';
}

} // namespace

PackedDateTime RecDataManager::pack(const VyDateTime& time) {
    PackedDateTime p;
    if (!time.isValid())
        return p;
    p.year = uint16_t(time.date().year());
    p.month = uint8_t(time.date().month());
    p.day = uint8_t(time.date().day());
    p.hour = uint8_t(time.time().hour());
    p.minute = uint8_t(time.time().minute());
    p.second = uint8_t(time.time().second());
    return p;
}

VyDateTime RecDataManager::unpack(const PackedDateTime& p) {
    const VyDate date(p.year, p.month, p.day);
    const VyTime time(p.hour, p.minute, p.second);
    if (!date.isValid() || !time.isValid())
        return VyDateTime();
    return VyDateTime(date, time);
}

RecDataManager::ChannelBits RecDataManager::channelBits(const std::vector<int>& channels) const {
    ChannelBits bits{};
    for (int c : channels) {
        const std::vector<uint8_t> one = channelToBitArray(c);
        for (size_t i = 0; i < one.size() && i < bits.size(); ++i)
            bits[i] |= one[i];
    }
    return bits;
}

bool RecDataManager::sendPlayback(uint16_t subType, const void* body, uint32_t len) const {
    RecorderLink* link = RecorderLink::instance();
    if (link == nullptr) {
        VY_GUI_LOG("no link to App, playback message %u not sent !!!\n", subType);
        return false;
    }
    link->send(MainType::Playback, subType, body, len);
    return true;
}

bool RecDataManager::splitScreen(const PlayRequest& request) {
    PlaybackSplitScreen split;
    split.layoutId = request.layoutId;
    split.screenWidth = request.screenWidth;
    split.screenHeight = request.screenHeight;
    const size_t cells = std::min(request.cells.size(), size_t(PlaybackSplitScreen::kMaxWindows));
    split.windowCount = uint32_t(cells);
    for (size_t i = 0; i < cells; ++i)
        split.windows[i] = request.cells[i];
    VY_GUI_LOG("CMD_PLAYBACK_SPLITSCREEN\n");
    return sendPlayback(PlaybackSubType::SplitScreen, &split, sizeof split);
}

bool RecDataManager::play(const PlayRequest& request) {
    if (!validSpan(request.start, request.end) || !splitScreen(request))
        return false;
    const size_t cells = std::min(request.cells.size(), size_t(PlaybackSplitScreen::kMaxWindows));
    std::vector<int> channels;
    for (size_t i = 0; i < cells; ++i) {
        if (request.cells[i].channel >= 0)
            channels.push_back(request.cells[i].channel);
    }
    PlaybackCommand cmd;
    cmd.command = PlaybackCommand::kPlay;
    cmd.windowCount = uint32_t(cells);
    cmd.start = pack(request.start);
    cmd.end = pack(request.end);
    cmd.recordTypes = request.recordTypes;
    cmd.speed = request.speed;
    const ChannelBits bits = channelBits(channels);
    std::memcpy(cmd.channelBits, bits.data(), bits.size());
    std::fill(std::begin(cmd.windowChannels), std::end(cmd.windowChannels), -1);
    for (size_t i = 0; i < cells; ++i)
        cmd.windowChannels[i] = request.cells[i].channel;
    VY_GUI_LOG("CMD_PLAYBACK_START_PLAY\n");
    return sendPlayback(PlaybackSubType::Play, &cmd, sizeof cmd);
}

bool RecDataManager::stop(StopKind kind, const std::string& path) {
    switch (kind) {
    case StopKind::Video: {
        PlaybackCommand cmd;
        cmd.command = PlaybackCommand::kStop;
        std::fill(std::begin(cmd.windowChannels), std::end(cmd.windowChannels), -1);
        // The start command's record and its log text serve the stop as well.
        VY_GUI_LOG("CMD_PLAYBACK_START_PLAY\n");
        return sendPlayback(PlaybackSubType::Play, &cmd, sizeof cmd);
    }
    case StopKind::Picture: {
        PicPlayCommand cmd;
        cmd.playCmd = PicPlayCommand::kStop;
        VY_GUI_LOG("playCmd=%d\n", int(cmd.playCmd));
        return sendPlayback(PlaybackSubType::PicPlay, &cmd, sizeof cmd);
    }
    case StopKind::Other: {
        PlaybackStopRequest req;
        copyText(req.path, sizeof req.path, path);
        return sendPlayback(PlaybackSubType::StopOther, &req, sizeof req);
    }
    }
    return false;
}

bool RecDataManager::monthSearch(const VyDate& date, const std::vector<int>& channels,
                                 uint32_t searchType, bool backupMask) {
    if (!date.isValid()) {
        VY_GUI_LOG("invalid date !!!\n");
        return false;
    }
    const VyDate first(date.year(), date.month(), 1);
    MonthSearchRequest req;
    req.year = uint16_t(first.year());
    req.month = uint8_t(first.month());
    req.day = 1;
    req.dayCount = uint8_t(first.daysInMonth());
    const ChannelBits bits = channelBits(channels);
    const ChannelBits& mask = backupMask ? m_backupMask : m_playbackMask;
    for (size_t i = 0; i < bits.size(); ++i)
        req.channelBits[i] = uint8_t(bits[i] & mask[i]);
    req.searchType = searchType;
    req.maskChoice =
        backupMask ? MonthSearchRequest::kBackupMask : MonthSearchRequest::kPlaybackMask;
    VY_GUI_LOG("date=%s searchType=%d\n", first.toString(kDateFormat).c_str(), int(searchType));
    return sendPlayback(PlaybackSubType::MonthSearch, &req, sizeof req);
}

bool RecDataManager::daySearch(const VyDateTime& start, const VyDateTime& end,
                               const std::vector<int>& channels) {
    if (!validSpan(start, end))
        return false;
    DaySearchRequest req;
    req.start = pack(start);
    req.end = pack(end);
    const ChannelBits bits = channelBits(channels);
    std::memcpy(req.channelBits, bits.data(), bits.size());
    VY_GUI_LOG("search[%s-%s]\n", text(start, kDateTimeFormat), text(end, kDateTimeFormat));
    return sendPlayback(PlaybackSubType::DaySearch, &req, sizeof req);
}

bool RecDataManager::control(uint32_t action, int32_t value, uint32_t window) {
    PlaybackControl req;
    req.action = action;
    req.value =
        action == PlaybackControl::kSpeed
            ? std::max(PlaybackControl::kSlowest, std::min(PlaybackControl::kFastest, value))
            : value;
    req.window = window;
    return sendPlayback(PlaybackSubType::Control, &req, sizeof req);
}

bool RecDataManager::jump(int32_t seconds) {
    PlaybackJump req;
    req.seconds = seconds;
    return sendPlayback(PlaybackSubType::Jump, &req, sizeof req);
}

bool RecDataManager::seek(const VyDateTime& time, const std::vector<int>& channels) {
    if (!time.isValid()) {
        VY_GUI_LOG("invalid date !!!\n");
        return false;
    }
    PlaybackSeek req;
    req.time = pack(time);
    const ChannelBits bits = channelBits(channels);
    std::memcpy(req.channelBits, bits.data(), bits.size());
    return sendPlayback(PlaybackSubType::Seek, &req, sizeof req);
}

bool RecDataManager::searchDayMotionInfo(int channel, const VyDateTime& start,
                                         const VyDateTime& end,
                                         const std::vector<uint8_t>& areaFlags,
                                         uint32_t sensitivity) {
    if (areaFlags.size() != MotionSearchRequest::kAreaBytes) {
        VY_GUI_LOG("area flag size invalid !!!\n");
        return false;
    }
    if (!validSpan(start, end) || channelToBitArray(channel).empty())
        return false;
    MotionSearchRequest req;
    req.start = pack(start);
    req.end = pack(end);
    req.channel = uint32_t(channel);
    req.sensitivity = sensitivity;
    std::memcpy(req.area, areaFlags.data(), areaFlags.size());
    VY_GUI_LOG("time[%s-%s]\n", text(start, kDateTimeFormat), text(end, kDateTimeFormat));
    return sendPlayback(PlaybackSubType::MotionSearch, &req, sizeof req);
}

bool RecDataManager::picPlay(uint32_t playCmd, const VyDateTime& start, const VyDateTime& end,
                             const std::vector<int>& channels, uint32_t intervalSeconds) {
    PicPlayCommand cmd;
    cmd.playCmd = playCmd;
    if (playCmd == PicPlayCommand::kPlay && !validSpan(start, end))
        return false;
    cmd.start = pack(start);
    cmd.end = pack(end);
    const ChannelBits bits = channelBits(channels);
    std::memcpy(cmd.channelBits, bits.data(), bits.size());
    cmd.intervalSeconds = intervalSeconds;
    VY_GUI_LOG("playCmd=%d\n", int(playCmd));
    return sendPlayback(PlaybackSubType::PicPlay, &cmd, sizeof cmd);
}

bool RecDataManager::searchTag(const VyDateTime& start, const VyDateTime& end,
                               const std::string& keyword, const std::vector<int>& channels) {
    if (!validSpan(start, end))
        return false;
    TagSearchRequest req;
    req.start = pack(start);
    req.end = pack(end);
    const ChannelBits bits = channelBits(channels);
    std::memcpy(req.channelBits, bits.data(), bits.size());
    copyText(req.keyword, sizeof req.keyword, keyword);
    VY_GUI_LOG("time=[%s-%s] keyword=%s\n", text(start, kDateTimeFormat),
               text(end, kDateTimeFormat), req.keyword);
    return sendPlayback(PlaybackSubType::TagSearch, &req, sizeof req);
}

bool RecDataManager::addTag(int channel, const VyDateTime& time, const std::string& name) {
    if (!time.isValid() || channelToBitArray(channel).empty())
        return false;
    PlaybackTag tag;
    tag.time = pack(time);
    tag.channel = uint32_t(channel);
    copyText(tag.name, sizeof tag.name, name);
    VY_GUI_LOG("tag \"%s\" on channel %d at %s\n", tag.name, channel + 1,
               text(time, kDateTimeFormat));
    return sendPlayback(PlaybackSubType::TagAdd, &tag, sizeof tag);
}

bool RecDataManager::requestThumbnails(int channel, const VyDateTime& start, const VyDateTime& end,
                                       uint32_t count) {
    if (!validSpan(start, end) || channelToBitArray(channel).empty())
        return false;
    if (count == 0 || count > ThumbnailRequest::kMaxCount) {
        VY_GUI_LOG("thumbnail count %u invalid !!!\n", count);
        return false;
    }
    ThumbnailRequest req;
    req.start = pack(start);
    req.end = pack(end);
    req.channel = uint32_t(channel);
    req.count = count;
    return sendPlayback(PlaybackSubType::Thumbnails, &req, sizeof req);
}

bool RecDataManager::recPic(const std::vector<RecPicWindow>& windows) {
    bool ok = !windows.empty();
    for (const RecPicWindow& w : windows) {
        VY_GUI_LOG("picCnt=%d videos=%d splitWnds=%d width=%d height=%d\n", int(w.picCnt),
                   int(w.videos), int(w.splitWnds), int(w.width), int(w.height));
        ok = sendPlayback(PlaybackSubType::RecPicWindow, &w, sizeof w) && ok;
    }
    return ok;
}

bool RecDataManager::exportClip(const VyDateTime& start, const VyDateTime& end,
                                const std::vector<int>& channels, uint32_t device,
                                const std::string& name) {
    if (!validSpan(start, end))
        return false;
    ClipExportRequest req;
    req.start = pack(start);
    req.end = pack(end);
    const ChannelBits bits = channelBits(channels);
    std::memcpy(req.channelBits, bits.data(), bits.size());
    req.device = device;
    copyText(req.name, sizeof req.name, name);
    return sendPlayback(PlaybackSubType::Export, &req, sizeof req);
}
