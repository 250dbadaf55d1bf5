// The main-view manager's channel table, its requests to App and the sequence timer.
#include "model/MainViewManager.h"

#include "ipc/IpcMsgBlock.h"
#include "model/RecorderLink.h"
#include "protocol/ByteOrder.h"
#include "protocol/DeviceState.h"
#include "protocol/MainType.h"
#include "protocol/PreviewControl.h"
#include "protocol/PreviewRecord.h"
#include "protocol/PreviewZoom.h"
#include "protocol/SubType.h"
#include "runtime/VyLog.h"
#include "toolkit/events/VyTimerEvent.h"

#include <algorithm>

namespace {

constexpr int kSecondMs = 1000;          // the sequence counts down in whole seconds
constexpr uint32_t kRosterReplySize = 8; // u64: bit n = channel n has a camera

const ChannelState& noChannel() {
    static const ChannelState none;
    return none;
}

} // namespace

void MainViewManager::setChannelCount(int count) {
    count = std::clamp(count, 0, PreviewRecord::kMaxCells);
    m_channels.resize(size_t(count));
    if (m_channelOrder.size() != size_t(count)) {
        m_channelOrder.resize(size_t(count));
        for (int i = 0; i < count; ++i)
            m_channelOrder[size_t(i)] = i;
    }
}

const ChannelState& MainViewManager::channelState(int channel) const {
    if (channel < 0 || channel >= int(m_channels.size()))
        return noChannel();
    return m_channels[size_t(channel)];
}

bool MainViewManager::applyChannelState(const uint8_t* body, uint32_t len) {
    const auto notice = ChannelStateNotice::decode(body, len);
    if (!notice) {
        VY_GUI_LOG("channel state of %u bytes refused, %u needed\n", len,
                   ChannelStateNotice::kSize);
        return false;
    }
    if (notice->channel >= m_channels.size()) {
        VY_GUI_LOG("channel state for channel %d ignored: %d channels\n", notice->channel + 1,
                   int(m_channels.size()));
        return false;
    }
    ChannelState& c = m_channels[notice->channel];
    c.known = true;
    c.flags = notice->flags;
    c.camera = (notice->flags & ChannelStateNotice::kCamera) != 0;
    c.kind = notice->kind;
    c.subMode = notice->subMode;
    c.connection = notice->connection;
    c.name = VyString::fromUtf8(notice->name, int(notice->nameText().size()));
    m_changedChannel = notice->channel;
    emitSignal(this, &channelStateChanged);
    return true;
}

void MainViewManager::setCameraPresent(int channel, bool present) {
    if (channel < 0 || channel >= int(m_channels.size()))
        return;
    ChannelState& c = m_channels[size_t(channel)];
    if (c.camera == present)
        return;
    c.camera = present;
    c.flags =
        present ? c.flags | ChannelStateNotice::kCamera : c.flags & ~ChannelStateNotice::kCamera;
    m_changedChannel = channel;
    emitSignal(this, &channelStateChanged);
}

void MainViewManager::handleChannelEvent(const void* block) {
    if (block == nullptr)
        return;
    const IpcMsgHeader h = ipcBlockHeader(block);
    if (h.SubType == SystemSubType::DeviceState) {
        if (m_deviceState != h.msgValue) {
            m_deviceState = h.msgValue;
            emitSignal(this, &deviceStateChanged);
        }
        return;
    }
    if (h.SubType == SystemSubType::ChannelState)
        applyChannelState(ipcBlockBody(block), h.dataLen);
}

void MainViewManager::setChannelOrder(const std::vector<int>& order) {
    m_channelOrder = order;
    VY_GUI_LOG("channel order saved (%d cells)\n", int(order.size()));
}

void MainViewManager::sendPreview(const PreviewRecord& record) {
    uint8_t body[PreviewRecord::kSize];
    record.encode(body);
    const uint16_t sub = m_firstPreviewPending ? PreviewSubType::ShowFirst : PreviewSubType::Show;
    m_firstPreviewPending = false;
    if (RecorderLink* link = RecorderLink::instance())
        link->send(MainType::Preview, sub, body, sizeof body);
    ++m_previewSent;
}

void MainViewManager::sendControl(const PreviewControl& control) {
    uint8_t body[PreviewControl::kSize];
    control.encode(body);
    if (RecorderLink* link = RecorderLink::instance())
        link->send(MainType::Preview, PreviewSubType::Control, body, sizeof body);
}

void MainViewManager::sendZoom(const PreviewZoom& zoom) {
    uint8_t body[PreviewZoom::kSize];
    zoom.encode(body);
    if (RecorderLink* link = RecorderLink::instance())
        link->send(MainType::Preview, PreviewSubType::Zoom, body, sizeof body);
}

void MainViewManager::requestCameraRoster() {
    RecorderLink* link = RecorderLink::instance();
    if (link == nullptr)
        return;
    std::vector<uint8_t> reply;
    link->request(MainType::System, SystemSubType::CameraRoster, nullptr, 0, reply);
    if (reply.size() < kRosterReplySize) {
        VY_GUI_LOG("camera roster of %d bytes refused\n", int(reply.size()));
        return;
    }
    const uint64_t mask = ByteOrder::loadLe64(reply.data());
    for (int ch = 0; ch < int(m_channels.size()); ++ch)
        setCameraPresent(ch, (mask >> ch) & 1u);
}

void MainViewManager::announceLiveView() {
    if (RecorderLink* link = RecorderLink::instance())
        link->send(MainType::Playback, PlaybackSubType::LiveViewActive, nullptr, 0);
}

void MainViewManager::pickChannel(int channel) {
    m_pickedChannel = channel;
    emitSignal(this, &channelPicked);
}

void MainViewManager::setSequenceDwell(int seconds) {
    for (int* timer : {&m_sequenceTimer, &m_countdownTimer}) {
        if (*timer != 0)
            killTimer(*timer);
        *timer = 0;
    }
    m_sequenceDwell = seconds > 0 ? seconds : -1;
    m_secondsLeft = m_sequenceDwell > 0 ? m_sequenceDwell : 0;
    if (m_sequenceDwell > 0) {
        // The steps keep their own period; the countdown only shows it.
        m_sequenceTimer = startTimer(m_sequenceDwell * kSecondMs);
        m_countdownTimer = startTimer(kSecondMs);
        const auto at = std::find(m_sequenceLayouts.begin(), m_sequenceLayouts.end(), m_layout);
        m_sequenceCursor =
            at == m_sequenceLayouts.end() ? 0 : size_t(at - m_sequenceLayouts.begin());
    }
    emitSignal(this, &sequenceTick);
}

void MainViewManager::setSequenceLayouts(const std::vector<int>& layouts) {
    m_sequenceLayouts = layouts;
    m_sequenceCursor = 0;
}

int MainViewManager::nextSequenceLayout() {
    if (m_sequenceLayouts.empty())
        return m_layout;
    m_sequenceCursor = (m_sequenceCursor + 1) % m_sequenceLayouts.size();
    return m_sequenceLayouts[m_sequenceCursor];
}

void MainViewManager::timerEvent(VyTimerEvent* e) {
    if (e->timerId() == m_sequenceTimer && m_sequenceTimer != 0) {
        m_secondsLeft = m_sequenceDwell;
        emitSignal(this, &sequenceStep);
        emitSignal(this, &sequenceTick);
        return;
    }
    if (e->timerId() == m_countdownTimer && m_countdownTimer != 0) {
        if (m_secondsLeft > 1)
            --m_secondsLeft;
        emitSignal(this, &sequenceTick);
        return;
    }
    VyObject::timerEvent(e);
}
