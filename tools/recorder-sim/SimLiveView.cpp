#include "SimLiveView.h"

#include "SimPlaybackPlane.h"
#include "SimRecorder.h"
#include "SimServer.h"
#include "protocol/ByteOrder.h"
#include "protocol/ChannelStateNotice.h"
#include "protocol/DeviceState.h"
#include "protocol/DualTalkNotice.h"
#include "protocol/MainType.h"
#include "protocol/PreviewControl.h"
#include "protocol/SubType.h"
#include "protocol/TurnPageNotice.h"

#include <chrono>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr uint32_t kRosterReplySize = 8;

struct AlarmKind {
    const char* word;
    uint32_t bit;
};

const AlarmKind kAlarmKinds[] = {
    {"motion", ChannelStateNotice::kMotion},   {"io", ChannelStateNotice::kSensor},
    {"pir", ChannelStateNotice::kPir},         {"ai", ChannelStateNotice::kAnalytics},
    {"ai2", ChannelStateNotice::kAnalyticsRe},
};

bool onOff(const std::string& w, bool* on) {
    if (w == "on" || w == "1")
        *on = true;
    else if (w == "off" || w == "0")
        *on = false;
    else
        return false;
    return true;
}

bool channelNumber(const std::string& w, int count, int* channel) {
    char* end = nullptr;
    const long v = std::strtol(w.c_str(), &end, 10);
    if (w.empty() || *end != '\0' || v < 1 || v > count)
        return false;
    *channel = int(v) - 1;
    return true;
}

std::string clockText() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    char text[16];
    std::strftime(text, sizeof text, "%H:%M:%S", &local);
    return text;
}

} // namespace

SimLiveView::SimLiveView(SimRecorder& recorder, const SimRecorderConfig& config)
    : m_recorder(recorder) {
    const int count = std::min<int>(config.channels, PreviewRecord::kMaxCells);
    uint64_t mask = config.cameraMask;
    if (!config.cameraMaskSet) {
        // Every channel but the last two: a roster with empty channels to show.
        mask = count >= 64 ? ~0ull : (1ull << count) - 1;
        if (count > 2)
            mask &= ~(3ull << (count - 2));
    }
    m_channels.resize(size_t(count));
    for (int ch = 0; ch < count; ++ch) {
        Channel& c = m_channels[size_t(ch)];
        c.flags = (mask >> ch) & 1u ? ChannelStateNotice::kCamera : 0;
        const auto name = config.channelNames.find(ch);
        c.name =
            name != config.channelNames.end() ? name->second : "CAMERA " + std::to_string(ch + 1);
    }
}

SimLiveView::~SimLiveView() {
    m_stop = true;
    if (m_drawer.joinable())
        m_drawer.join();
}

void SimLiveView::attach(SimServer& server) {
    auto add = [&](uint16_t main, uint16_t sub,
                   bool (SimLiveView::*handler)(SimServer&, const SimMessage&)) {
        server.addHandler(main, sub, [this, handler](SimServer& s, const SimMessage& m) {
            const bool ok = (this->*handler)(s, m);
            m_recorder.seen(m);
            return ok;
        });
    };
    add(MainType::Preview, PreviewSubType::Show, &SimLiveView::onPreview);
    add(MainType::Preview, PreviewSubType::ShowFirst, &SimLiveView::onPreview);
    add(MainType::Preview, PreviewSubType::Control, &SimLiveView::onControl);
    add(MainType::Preview, PreviewSubType::Zoom, &SimLiveView::onZoom);
    add(MainType::System, SystemSubType::CameraRoster, &SimLiveView::onRoster);
    add(MainType::Playback, PlaybackSubType::LiveViewActive, &SimLiveView::onLiveViewActive);
}

uint32_t SimLiveView::flags(int channel) const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return channel >= 0 && channel < int(m_channels.size()) ? m_channels[size_t(channel)].flags : 0;
}

PreviewRecord SimLiveView::lastPreview() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_preview;
}

uint64_t SimLiveView::cameraMask() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    uint64_t mask = 0;
    for (size_t ch = 0; ch < m_channels.size(); ++ch)
        if (m_channels[ch].flags & ChannelStateNotice::kCamera)
            mask |= 1ull << ch;
    return mask;
}

bool SimLiveView::onPreview(SimServer&, const SimMessage& m) {
    const auto record = PreviewRecord::decode(m.body.data(), uint32_t(m.body.size()));
    if (!record)
        return false;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_preview = *record;
    }
    ++m_previewCount;
    simRecorderLog("sim: preview layout %d, %d cells from %d, %dx%d", record->layoutId,
                   record->cellCount, record->pageStart, record->outputWidth, record->outputHeight);
    return true;
}

bool SimLiveView::onControl(SimServer& s, const SimMessage& m) {
    const auto c = PreviewControl::decode(m.body.data(), uint32_t(m.body.size()));
    if (!c)
        return false;
    switch (c->command) {
    case PreviewControl::kManualRecord:
        setFlag(c->channel, ChannelStateNotice::kManualRecord | ChannelStateNotice::kRecording,
                c->action == PreviewControl::kOn);
        break;
    case PreviewControl::kSnapshot:
        s.notify(MainType::Preview, PreviewSubType::SnapshotDone, c->channel);
        break;
    case PreviewControl::kTalkBack:
        answerTalkBack(c->channel, c->action == PreviewControl::kOn);
        break;
    case PreviewControl::kPtz:
        simRecorderLog("sim: PTZ channel %d %s move %d speed %d", c->channel + 1,
                       c->action == PreviewControl::kStart ? "start" : "stop", c->value, c->value2);
        return true;
    case PreviewControl::kPtzPreset:
        simRecorderLog("sim: PTZ channel %d %s preset %d", c->channel + 1,
                       c->action == PreviewControl::kOn ? "go to" : "store", c->value);
        return true;
    default:
        break;
    }
    simRecorderLog("sim: control %d channel %d action %d value %d", c->command, c->channel + 1,
                   c->action, c->value);
    return true;
}

void SimLiveView::answerTalkBack(int channel, bool start) {
    DualTalkNotice n;
    n.channel = uint8_t(channel);
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        n.state = start ? (m_talkAnswer != DualTalkNotice::kIdle ? m_talkAnswer
                                                                 : DualTalkNotice::kTalking)
                        : DualTalkNotice::kIdle;
    }
    m_recorder.notify(MainType::System, SystemSubType::TalkState, n.encode());
}

bool SimLiveView::onZoom(SimServer&, const SimMessage& m) {
    const auto z = PreviewZoom::decode(m.body.data(), uint32_t(m.body.size()));
    if (!z) {
        simRecorderLog("sim: zoom of %d bytes refused", int(m.body.size()));
        return false;
    }
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (z->channel >= m_channels.size())
            return false;
        m_channels[z->channel].zoom = *z;
    }
    simRecorderLog("sim: zoom channel %d to %d,%d-%d,%d", z->channel + 1, z->left, z->top, z->right,
                   z->bottom);
    return true;
}

PreviewZoom SimLiveView::zoom(int channel) const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return channel >= 0 && channel < int(m_channels.size()) ? m_channels[size_t(channel)].zoom
                                                            : PreviewZoom();
}

bool SimLiveView::onRoster(SimServer& s, const SimMessage& m) {
    uint8_t reply[kRosterReplySize];
    ByteOrder::storeLe64(reply, cameraMask());
    s.reply(m, reply, sizeof reply);
    // Then every channel's state, as App does once the GUI asked who is there.
    for (int ch = 0; ch < int(m_channels.size()); ++ch)
        sendState(ch);
    uint32_t device = 0;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        device = m_deviceState;
    }
    m_recorder.notify(MainType::System, SystemSubType::DeviceState, device);
    return true;
}

bool SimLiveView::onLiveViewActive(SimServer&, const SimMessage&) {
    simRecorderLog("sim: live view in front");
    return true;
}

void SimLiveView::sendState(int channel) {
    ChannelStateNotice n;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (channel < 0 || channel >= int(m_channels.size()))
            return;
        const Channel& c = m_channels[size_t(channel)];
        n.channel = uint8_t(channel);
        n.flags = c.flags;
        n.kind = (c.flags & ChannelStateNotice::kCamera) ? ChannelStateNotice::kKindCamera
                                                         : ChannelStateNotice::kKindNone;
        n.connection = (c.flags & ChannelStateNotice::kCamera)
                           ? ChannelStateNotice::kConnectionOk
                           : ChannelStateNotice::kConnectionNone;
        n.setName(c.name);
    }
    std::vector<uint8_t> body(ChannelStateNotice::kSize);
    n.encode(body.data());
    m_recorder.notify(MainType::System, SystemSubType::ChannelState, uint32_t(channel), body);
}

bool SimLiveView::setFlag(int channel, uint32_t bit, bool on) {
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (channel < 0 || channel >= int(m_channels.size()))
            return false;
        uint32_t& f = m_channels[size_t(channel)].flags;
        f = on ? f | bit : f & ~bit;
    }
    sendState(channel);
    return true;
}

bool SimLiveView::runCommand(const std::vector<std::string>& w) {
    if (w.empty())
        return false;
    const int count = int(m_channels.size());
    int ch = 0;
    bool on = false;
    const std::string& cmd = w[0];
    if (cmd == "alarm" && w.size() == 4 && channelNumber(w[1], count, &ch) && onOff(w[3], &on)) {
        for (const AlarmKind& k : kAlarmKinds)
            if (w[2] == k.word)
                return setFlag(ch, k.bit, on);
        return false;
    }
    if ((cmd == "record" || cmd == "manual" || cmd == "camera" || cmd == "videoloss") &&
        w.size() == 3 && channelNumber(w[1], count, &ch) && onOff(w[2], &on)) {
        const uint32_t bit =
            cmd == "record"   ? ChannelStateNotice::kRecording
            : cmd == "manual" ? ChannelStateNotice::kManualRecord | ChannelStateNotice::kRecording
            : cmd == "camera" ? ChannelStateNotice::kCamera
                              : ChannelStateNotice::kVideoLoss;
        return setFlag(ch, bit, on);
    }
    if (cmd == "name" && w.size() >= 3 && channelNumber(w[1], count, &ch)) {
        std::string name = w[2];
        for (size_t i = 3; i < w.size(); ++i)
            name += " " + w[i];
        {
            std::lock_guard<std::mutex> lock(m_mutex);
            m_channels[size_t(ch)].name = name;
        }
        sendState(ch);
        return true;
    }
    if (cmd == "talk" && w.size() == 2) {
        if (w[1] == "off") {
            {
                std::lock_guard<std::mutex> lock(m_mutex);
                m_talkAnswer = DualTalkNotice::kIdle;
            }
            answerTalkBack(0, false);
            return true;
        }
        const uint8_t answer = w[1] == "busy"   ? DualTalkNotice::kBusy
                               : w[1] == "fail" ? DualTalkNotice::kFailed
                                                : DualTalkNotice::kIdle;
        if (answer == DualTalkNotice::kIdle)
            return false;
        std::lock_guard<std::mutex> lock(m_mutex);
        m_talkAnswer = answer;
        return true;
    }
    if (cmd == "page" && w.size() == 2) {
        TurnPageNotice turn;
        if (w[1] == "next") {
            turn.operation = TurnPageNotice::kNext;
        } else if (w[1] == "prev") {
            turn.operation = TurnPageNotice::kPrevious;
        } else {
            char* end = nullptr;
            const long v = std::strtol(w[1].c_str(), &end, 10);
            if (w[1].empty() || *end != '\0' || v < 1 || v > long(TurnPageNotice::kPageMask))
                return false;
            turn.operation = TurnPageNotice::kGoto;
            turn.page = uint16_t(v - 1);
        }
        m_recorder.notify(MainType::System, SystemSubType::TurnPage, turn.encode());
        return true;
    }
    if ((cmd == "usb" || cmd == "disk") && w.size() == 2) {
        char* end = nullptr;
        const long v = std::strtol(w[1].c_str(), &end, 10);
        if (*end != '\0' || v < 0 || v > 3)
            return false;
        uint32_t state = 0;
        {
            std::lock_guard<std::mutex> lock(m_mutex);
            if (cmd == "usb")
                m_deviceState = v ? m_deviceState | DeviceState::kUsbStick
                                  : m_deviceState & ~DeviceState::kUsbStick;
            else
                m_deviceState = (m_deviceState & ~DeviceState::kDiskMask) |
                                (uint32_t(v) << DeviceState::kDiskShift);
            state = m_deviceState;
        }
        m_recorder.notify(MainType::System, SystemSubType::DeviceState, state);
        return true;
    }
    return false;
}

void SimLiveView::startVideoPlane(const std::string& path) {
    if (path.empty() || m_drawer.joinable())
        return;
    m_drawer = std::thread(&SimLiveView::drawLoop, this, path);
}

void SimLiveView::drawLoop(const std::string& path) {
    const int fd = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
    if (fd < 0) {
        simRecorderLog("sim: cannot open video plane %s", path.c_str());
        return;
    }
    uint16_t* pixels = nullptr;
    size_t mapped = 0;
    int width = 0, height = 0;
    uint32_t tick = 0;
    while (!m_stop) {
        PreviewRecord record;
        std::vector<SimVideoCell> cells;
        {
            std::lock_guard<std::mutex> lock(m_mutex);
            record = m_preview;
            for (const Channel& c : m_channels)
                cells.push_back({(c.flags & ChannelStateNotice::kCamera) &&
                                     !(c.flags & ChannelStateNotice::kVideoLoss),
                                 c.name, c.zoom});
        }
        if (record.outputWidth != width || record.outputHeight != height) {
            if (pixels)
                munmap(pixels, mapped);
            pixels = nullptr;
            width = record.outputWidth;
            height = record.outputHeight;
            const size_t bytes = size_t(width) * size_t(height) * 2;
            struct stat st {};
            // Only ever grown: a reader may still map the old size.
            if (bytes > 0 && fstat(fd, &st) == 0 &&
                (size_t(st.st_size) >= bytes || ftruncate(fd, off_t(bytes)) == 0)) {
                void* map = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_SHARED, fd, 0);
                if (map != MAP_FAILED) {
                    pixels = static_cast<uint16_t*>(map);
                    mapped = bytes;
                }
            }
        }
        SimPlaybackFrame playback;
        if (pixels && m_playbackSource && m_playbackSource(width, height, &playback)) {
            for (size_t ch = 0; ch < cells.size(); ++ch)
                cells[ch].picture = ch < playback.recorded.size() && playback.recorded[ch];
            SimVideoPlane::drawFrame(playback.record, cells, playback.tick, playback.clock, pixels,
                                     width, height);
        } else if (pixels) {
            SimVideoPlane::drawFrame(record, cells, tick++, clockText(), pixels, width, height);
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(kFrameMs));
    }
    if (pixels)
        munmap(pixels, mapped);
    ::close(fd);
}
