#include "SimPlayback.h"

#include "SimRecorder.h"
#include "SimServer.h"
#include "protocol/ClipExportRequest.h"
#include "protocol/DaySearchRequest.h"
#include "protocol/MainType.h"
#include "protocol/MonthSearchRequest.h"
#include "protocol/MonthSearchResult.h"
#include "protocol/MotionSearchRequest.h"
#include "protocol/PicPlayCommand.h"
#include "protocol/PlaybackCommand.h"
#include "protocol/PlaybackControl.h"
#include "protocol/PlaybackJump.h"
#include "protocol/PlaybackSeek.h"
#include "protocol/PlaybackSplitScreen.h"
#include "protocol/PlaybackStatus.h"
#include "protocol/RecPicWindow.h"
#include "protocol/RecordTypeBit.h"
#include "protocol/SubType.h"

#include <algorithm>
#include <chrono>
#include <cstring>

namespace {

constexpr long long kDaySeconds = 86400;
constexpr long long kFrameMs = 40; // one frame at 25 frames per second

template <typename Record>
bool decode(const SimMessage& m, Record* out) {
    if (m.body.size() < sizeof(Record))
        return false;
    std::memcpy(out, m.body.data(), sizeof(Record));
    return true;
}

long long seconds(const PackedDateTime& t) {
    return SimRecordDb::secondsOf(t);
}

PackedDateTime packed(long long secs) {
    return SimRecordDb::packSeconds(secs);
}

} // namespace

SimPlayback::SimPlayback(const SimRecorderConfig& config, long today)
    : m_db(config.recordSeed, config.channels, today) {
    m_state.usbFreeMiB = config.usbFreeMiB;
    m_state.usbPresent = config.usbFreeMiB > 0;
}

SimPlayback::~SimPlayback() {
    {
        std::lock_guard<std::mutex> lock(m_tickMutex);
        m_stopping = true;
    }
    m_tickCond.notify_all();
    if (m_tickThread.joinable())
        m_tickThread.join();
}

void SimPlayback::attach(SimServer& server) {
    m_server = &server;
    auto on = [&](uint16_t sub, bool (SimPlayback::*handler)(SimServer&, const SimMessage&)) {
        server.addHandler(
            MainType::Playback, sub,
            [this, handler](SimServer& s, const SimMessage& m) { return (this->*handler)(s, m); });
    };
    on(PlaybackSubType::MonthSearch, &SimPlayback::onMonthSearch);
    on(PlaybackSubType::DaySearch, &SimPlayback::onDaySearch);
    on(PlaybackSubType::MotionSearch, &SimPlayback::onMotionSearch);
    on(PlaybackSubType::SplitScreen, &SimPlayback::onSplit);
    on(PlaybackSubType::Play, &SimPlayback::onPlay);
    on(PlaybackSubType::Control, &SimPlayback::onControl);
    on(PlaybackSubType::Jump, &SimPlayback::onJump);
    on(PlaybackSubType::Seek, &SimPlayback::onSeek);
    on(PlaybackSubType::Export, &SimPlayback::onExport);
    on(PlaybackSubType::StopOther, &SimPlayback::onStopOther);
    // Picture playback: taken, checked for size, not answered (the simulator keeps no
    // pictures). Tags and thumbnails are SimTags' and SimThumbnails'.
    on(PlaybackSubType::PicPlay, &SimPlayback::onSized<PicPlayCommand>);
    on(PlaybackSubType::RecPicWindow, &SimPlayback::onSized<RecPicWindow>);
}

void SimPlayback::startTicking(int periodMs) {
    if (m_tickThread.joinable() || periodMs <= 0)
        return;
    m_tickThread = std::thread(&SimPlayback::tickLoop, this, periodMs);
}

void SimPlayback::tickLoop(int periodMs) {
    std::unique_lock<std::mutex> lock(m_tickMutex);
    while (!m_stopping) {
        m_tickCond.wait_for(lock, std::chrono::milliseconds(periodMs));
        if (m_stopping)
            break;
        lock.unlock();
        advance(periodMs);
        lock.lock();
    }
}

SimPlayback::State SimPlayback::state() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_state;
}

void SimPlayback::sendStatus(uint32_t kind, uint32_t window, uint32_t percent, uint32_t value) {
    PlaybackStatus st;
    st.kind = kind;
    st.window = window;
    st.time = packed(m_state.timeMs / 1000);
    st.speed = m_state.speed;
    st.percent = percent;
    st.value = value;
    st.paused = m_state.paused ? 1 : 0;
    if (m_server != nullptr)
        m_server->notify(MainType::Playback, PlaybackSubType::Status, 0, &st, sizeof st);
}

void SimPlayback::advance(int ms) {
    std::lock_guard<std::mutex> lock(m_mutex);
    if (m_state.playing && !m_state.paused) {
        const int s = m_state.speed;
        m_state.timeMs += s >= 0 ? (long long)ms << s : (long long)ms >> -s;
        const bool ended = m_state.timeMs >= m_endMs;
        if (ended)
            m_state.timeMs = m_endMs;
        for (size_t w = 0; w < m_state.windowChannels.size(); ++w) {
            if (m_state.windowChannels[w] >= 0)
                sendStatus(ended ? PlaybackStatus::kEnded : PlaybackStatus::kProgress, uint32_t(w),
                           0, 0);
        }
        if (ended)
            m_state.playing = false;
    }
    if (m_state.exporting) {
        m_state.exportPercent =
            std::min<uint32_t>(100, m_state.exportPercent + kExportPercentPerSecond * ms / 1000);
        if (m_state.exportPercent >= 100) {
            m_state.exporting = false;
            m_state.usbFreeMiB -= uint32_t(m_exportBytes >> 20);
            ++m_state.exportsDone;
            sendStatus(PlaybackStatus::kExported, 0, 100, m_state.usbFreeMiB);
        } else {
            sendStatus(PlaybackStatus::kExporting, 0, m_state.exportPercent, m_state.usbFreeMiB);
        }
    }
}

void SimPlayback::setUsbPresent(bool present) {
    std::lock_guard<std::mutex> lock(m_mutex);
    m_state.usbPresent = present;
    if (!present && m_state.exporting) {
        m_state.exporting = false;
        sendStatus(PlaybackStatus::kExportFailed, 0, m_state.exportPercent,
                   PlaybackStatus::kNoDevice);
    }
}

template <typename Record>
bool SimPlayback::onSized(SimServer&, const SimMessage& m) {
    return m.body.size() >= sizeof(Record);
}

bool SimPlayback::onMonthSearch(SimServer& s, const SimMessage& m) {
    MonthSearchRequest req;
    if (!decode(m, &req))
        return false;
    MonthSearchResult r;
    r.year = req.year;
    r.month = req.month;
    r.dayCount = req.dayCount;
    r.dayBits = m_db.monthDays(req.year, req.month, req.channelBits, sizeof req.channelBits,
                               req.searchType);
    simRecorderLog("sim: month %u/%u -> days %08x", req.year, req.month, r.dayBits);
    return s.notify(MainType::Playback, PlaybackSubType::MonthResult, 0, &r, sizeof r);
}

void SimPlayback::sendSegments(SimServer& s, int channel, long long from, long long to,
                               uint32_t typeMask) {
    const long firstDay = long(from / kDaySeconds);
    std::vector<uint8_t> body(DaySearchResult::kSize);
    uint32_t count = 0;
    for (long d = firstDay; d * kDaySeconds < to; ++d) {
        for (const RecordSegmentEntry& e : m_db.day(channel, d)) {
            const long long start = d * kDaySeconds + e.start, end = d * kDaySeconds + e.end;
            if (end <= from || start >= to || (typeMask != 0 && (e.typeBits & typeMask) == 0))
                continue;
            RecordSegmentEntry out = e;
            out.start = int32_t(std::max(start, from) - firstDay * kDaySeconds);
            out.end = int32_t(std::min(end, to) - firstDay * kDaySeconds);
            const size_t at = body.size();
            body.resize(at + sizeof out);
            std::memcpy(body.data() + at, &out, sizeof out);
            ++count;
        }
    }
    DaySearchResult head;
    head.channel = uint32_t(channel);
    head.segmentCount = count;
    head.day = packed(firstDay * kDaySeconds);
    std::memcpy(body.data(), &head, sizeof head);
    s.notify(MainType::Playback, PlaybackSubType::DayResult, 0, body.data(), uint32_t(body.size()));
}

bool SimPlayback::onDaySearch(SimServer& s, const SimMessage& m) {
    DaySearchRequest req;
    if (!decode(m, &req))
        return false;
    const long long from = seconds(req.start), to = seconds(req.end);
    // A search longer than the recorded days is refused rather than answered at length.
    if (from < 0 || to <= from || to - from > SimRecordDb::kDays * kDaySeconds)
        return false;
    for (int c = 0; c < m_db.channels() && c < PlaybackChannelBits::kMaxChannels; ++c) {
        if (req.channelBits[c / 8] & (1u << (c % 8)))
            sendSegments(s, c, from, to, 0);
    }
    return true;
}

bool SimPlayback::onMotionSearch(SimServer& s, const SimMessage& m) {
    MotionSearchRequest req;
    if (!decode(m, &req))
        return false;
    const long long from = seconds(req.start), to = seconds(req.end);
    if (from < 0 || to <= from || to - from > SimRecordDb::kDays * kDaySeconds ||
        req.channel >= uint32_t(m_db.channels()))
        return false;
    // Motion anywhere in the day stands for motion in the area: the simulator has no pictures.
    sendSegments(s, int(req.channel), from, to, RecordTypeBit::Motion);
    return true;
}

bool SimPlayback::onSplit(SimServer&, const SimMessage& m) {
    PlaybackSplitScreen split;
    if (!decode(m, &split) || split.windowCount > PlaybackSplitScreen::kMaxWindows)
        return false;
    std::lock_guard<std::mutex> lock(m_mutex);
    m_split.assign(split.windows, split.windows + split.windowCount);
    return true;
}

bool SimPlayback::onPlay(SimServer&, const SimMessage& m) {
    PlaybackCommand cmd;
    if (!decode(m, &cmd))
        return false;
    std::lock_guard<std::mutex> lock(m_mutex);
    if (cmd.command == PlaybackCommand::kStop) {
        m_state.playing = false;
        m_state.windowChannels.clear();
        return true;
    }
    const long long from = seconds(cmd.start), to = seconds(cmd.end);
    if (from < 0 || to <= from || cmd.windowCount > PlaybackCommand::kMaxWindows)
        return false;
    m_state.playing = true;
    m_state.paused = false;
    m_state.speed =
        std::max(PlaybackControl::kSlowest, std::min(PlaybackControl::kFastest, cmd.speed));
    m_state.timeMs = from * 1000;
    m_endMs = to * 1000;
    m_state.windowChannels.assign(cmd.windowChannels, cmd.windowChannels + cmd.windowCount);
    return true;
}

bool SimPlayback::onControl(SimServer&, const SimMessage& m) {
    PlaybackControl c;
    if (!decode(m, &c))
        return false;
    std::lock_guard<std::mutex> lock(m_mutex);
    switch (c.action) {
    case PlaybackControl::kPause:
        m_state.paused = true;
        return true;
    case PlaybackControl::kResume:
        m_state.paused = false;
        return true;
    case PlaybackControl::kSpeed:
        m_state.speed =
            std::max(PlaybackControl::kSlowest, std::min(PlaybackControl::kFastest, c.value));
        return true;
    case PlaybackControl::kFrameStep:
        m_state.paused = true;
        m_state.timeMs = std::min(m_endMs, m_state.timeMs + kFrameMs);
        return true;
    case PlaybackControl::kAudio:
        return true;
    default:
        return false;
    }
}

bool SimPlayback::onJump(SimServer&, const SimMessage& m) {
    PlaybackJump j;
    if (!decode(m, &j))
        return false;
    std::lock_guard<std::mutex> lock(m_mutex);
    m_state.timeMs = std::min(m_endMs, m_state.timeMs + (long long)j.seconds * 1000);
    return true;
}

bool SimPlayback::onSeek(SimServer&, const SimMessage& m) {
    PlaybackSeek sk;
    if (!decode(m, &sk))
        return false;
    const long long t = seconds(sk.time);
    if (t < 0)
        return false;
    std::lock_guard<std::mutex> lock(m_mutex);
    m_state.timeMs = std::min(m_endMs, t * 1000);
    return true;
}

bool SimPlayback::onExport(SimServer&, const SimMessage& m) {
    ClipExportRequest req;
    if (!decode(m, &req))
        return false;
    const long long from = seconds(req.start), to = seconds(req.end);
    if (from < 0 || to <= from)
        return false;
    int channels = 0;
    for (uint8_t b : req.channelBits)
        channels += __builtin_popcount(b);
    std::lock_guard<std::mutex> lock(m_mutex);
    const uint64_t bytes = uint64_t(to - from) * uint64_t(channels) * kBytesPerChannelSecond;
    if (!m_state.usbPresent) {
        sendStatus(PlaybackStatus::kExportFailed, 0, 0, PlaybackStatus::kNoDevice);
    } else if ((bytes >> 20) > m_state.usbFreeMiB) {
        sendStatus(PlaybackStatus::kExportFailed, 0, 0, PlaybackStatus::kNoSpace);
    } else {
        m_state.exporting = true;
        m_state.exportPercent = 0;
        m_exportBytes = bytes;
        sendStatus(PlaybackStatus::kExporting, 0, 0, m_state.usbFreeMiB);
    }
    return true;
}

bool SimPlayback::onStopOther(SimServer&, const SimMessage& m) {
    if (m.body.size() < 4)
        return false;
    std::lock_guard<std::mutex> lock(m_mutex);
    if (m_state.exporting) {
        m_state.exporting = false;
        sendStatus(PlaybackStatus::kExportFailed, 0, m_state.exportPercent,
                   PlaybackStatus::kCancelled);
    }
    return true;
}
