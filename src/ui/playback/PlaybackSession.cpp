#include "ui/playback/PlaybackSession.h"

#include "ipc/IpcMsgBlock.h"
#include "model/RecDataManager.h"
#include "model/RecordSearchReply.h"
#include "protocol/MainType.h"
#include "protocol/PicPlayCommand.h"
#include "protocol/PlaybackControl.h"
#include "protocol/SubType.h"
#include "runtime/VyLog.h"
#include "toolkit/events/CEvent.h"

#include <algorithm>

namespace {

RecDataManager* model() {
    RecDataManager* m = RecDataManager::instance();
    if (m == nullptr)
        VY_GUI_LOG("no record data model !!!\n");
    return m;
}

} // namespace

PlaybackSession::PlaybackSession(VyObject* parent)
    : PlaybackReceiver(parent) {}

PlaybackSession::~PlaybackSession() = default;

bool PlaybackSession::searchMonth(const VyDate& date, const std::vector<int>& channels,
                                  uint32_t types) {
    RecDataManager* m = model();
    if (m == nullptr || !m->monthSearch(date, channels, types))
        return false;
    m_markedMonth = VyDate(date.year(), date.month(), 1);
    m_markedDays = 0;
    return true;
}

bool PlaybackSession::isDayMarked(const VyDate& day) const {
    return day.isValid() && m_markedMonth.isValid() && day.year() == m_markedMonth.year() &&
           day.month() == m_markedMonth.month() && (m_markedDays >> (day.day() - 1) & 1u) != 0;
}

bool PlaybackSession::searchDay(const VyDate& day, const std::vector<int>& channels) {
    RecDataManager* m = model();
    if (m == nullptr || !day.isValid())
        return false;
    if (!m->daySearch(VyDateTime(day), VyDateTime(day.addDays(1)), channels))
        return false;
    m_day = day;
    m_asked = channels;
    m_results.clear();
    return true;
}

bool PlaybackSession::searchMotion(int channel, const VyDate& day,
                                   const std::vector<uint8_t>& area) {
    RecDataManager* m = model();
    if (m == nullptr || !day.isValid() ||
        !m->searchDayMotionInfo(channel, VyDateTime(day), VyDateTime(day.addDays(1)), area))
        return false;
    m_day = day;
    m_asked = {channel};
    m_results.clear();
    return true;
}

RecDataManager::PlayRequest PlaybackSession::splitRequest(const std::vector<Cell>& cells,
                                                          uint32_t layoutId) {
    RecDataManager::PlayRequest r;
    r.layoutId = layoutId;
    for (const Cell& c : cells) {
        PlaybackWindowRect w;
        w.channel = c.channel;
        w.x = uint16_t(std::max(0, c.rect.left));
        w.y = uint16_t(std::max(0, c.rect.top));
        w.width = uint16_t(std::max(0, c.rect.width()));
        w.height = uint16_t(std::max(0, c.rect.height()));
        r.cells.push_back(w);
        r.screenWidth = std::max<uint16_t>(r.screenWidth, uint16_t(w.x + w.width));
        r.screenHeight = std::max<uint16_t>(r.screenHeight, uint16_t(w.y + w.height));
    }
    return r;
}

bool PlaybackSession::moveCells(const std::vector<Cell>& cells, uint32_t layoutId) {
    auto same = [](const Cell& a, const Cell& b) {
        return a.channel == b.channel && a.rect == b.rect;
    };
    if (!m_playing || (cells.size() == m_cells.size() &&
                       std::equal(cells.begin(), cells.end(), m_cells.begin(), same)))
        return false;
    RecDataManager* m = model();
    if (m == nullptr || !m->splitScreen(splitRequest(cells, layoutId)))
        return false;
    m_cells = cells;
    return true;
}

bool PlaybackSession::play(const std::vector<Cell>& cells, const VyDateTime& from,
                           uint32_t layoutId, const VyDateTime& to) {
    RecDataManager* m = model();
    if (m == nullptr || !from.isValid())
        return false;
    RecDataManager::PlayRequest r = splitRequest(cells, layoutId);
    m_channels.clear();
    for (const Cell& c : cells) {
        if (c.channel >= 0)
            m_channels.push_back(c.channel);
    }
    r.start = from;
    r.end = to.isValid() && from < to ? to : VyDateTime(from.date().addDays(1));
    r.speed = 0;
    if (!m->play(r))
        return false;
    m_cells = cells;
    m_playing = true;
    m_paused = false;
    m_speed = 0;
    m_time = from;
    return true;
}

bool PlaybackSession::playPictures(const std::vector<Cell>& cells, const VyDate& day,
                                   int outputWidth, int outputHeight) {
    RecDataManager* m = model();
    if (m == nullptr || !day.isValid() || cells.empty())
        return false;
    std::vector<RecPicWindow> windows;
    std::vector<int> channels;
    for (size_t i = 0; i < cells.size(); ++i) {
        RecPicWindow w;
        w.splitWnds = uint32_t(cells.size());
        w.width = uint32_t(std::max(0, outputWidth));
        w.height = uint32_t(std::max(0, outputHeight));
        w.window = uint32_t(i);
        w.x = uint32_t(std::max(0, cells[i].rect.left));
        w.y = uint32_t(std::max(0, cells[i].rect.top));
        w.cellWidth = uint32_t(std::max(0, cells[i].rect.width()));
        w.cellHeight = uint32_t(std::max(0, cells[i].rect.height()));
        w.time = RecDataManager::pack(VyDateTime(day));
        w.channel = uint32_t(std::max(0, cells[i].channel));
        if (cells[i].channel >= 0) {
            windows.push_back(w);
            channels.push_back(cells[i].channel);
        }
    }
    if (windows.empty() || !m->recPic(windows) ||
        !m->picPlay(PicPlayCommand::kPlay, VyDateTime(day), VyDateTime(day.addDays(1)), channels))
        return false;
    m_pictures = true;
    return true;
}

bool PlaybackSession::stopPictures() {
    RecDataManager* m = model();
    if (m == nullptr || !m_pictures)
        return false;
    m_pictures = false;
    return m->stop(RecDataManager::StopKind::Picture);
}

bool PlaybackSession::stop() {
    RecDataManager* m = model();
    if (m == nullptr)
        return false;
    m_playing = false;
    m_paused = false;
    return m->stop(RecDataManager::StopKind::Video);
}

bool PlaybackSession::pause() {
    RecDataManager* m = model();
    if (m == nullptr || !m_playing || !m->control(PlaybackControl::kPause, 0))
        return false;
    m_paused = true;
    return true;
}

bool PlaybackSession::resume() {
    RecDataManager* m = model();
    if (m == nullptr || !m_playing || !m->control(PlaybackControl::kResume, 0))
        return false;
    m_paused = false;
    return true;
}

bool PlaybackSession::setSpeed(int step) {
    RecDataManager* m = model();
    const int s = std::max(kMinSpeed, std::min(kMaxSpeed, step));
    if (m == nullptr || !m_playing || !m->control(PlaybackControl::kSpeed, s))
        return false;
    m_speed = s;
    return true;
}

bool PlaybackSession::frameStep() {
    RecDataManager* m = model();
    if (m == nullptr || !m_playing || !m->control(PlaybackControl::kFrameStep, 1))
        return false;
    m_paused = true;
    return true;
}

bool PlaybackSession::jump(int seconds) {
    RecDataManager* m = model();
    return m != nullptr && m_playing && m->jump(seconds);
}

bool PlaybackSession::seek(const VyDateTime& time) {
    RecDataManager* m = model();
    if (m == nullptr || !m_playing || !m->seek(time, m_channels))
        return false;
    m_time = time;
    return true;
}

bool PlaybackSession::setAudio(int window, bool on) {
    RecDataManager* m = model();
    return m != nullptr && m->control(PlaybackControl::kAudio, on ? 1 : 0, uint32_t(window));
}

bool PlaybackSession::exportClip(const VyDateTime& from, const VyDateTime& to,
                                 const std::vector<int>& channels, const std::string& name) {
    RecDataManager* m = model();
    if (m == nullptr || m_exportState == ExportState::Running ||
        !m->exportClip(from, to, channels, 0, name))
        return false;
    m_exportName = name;
    m_exportState = ExportState::Running;
    m_exportPercent = 0;
    m_exportFailure = 0;
    emitSignal(this, &exportChanged);
    return true;
}

bool PlaybackSession::cancelExport() {
    RecDataManager* m = model();
    return m != nullptr && m_exportState == ExportState::Running &&
           m->stop(RecDataManager::StopKind::Other, m_exportName);
}

void PlaybackSession::customEvent(VyEvent* e) {
    auto* c = static_cast<CEvent*>(e);
    if (c->data() == nullptr)
        return;
    const IpcMsgHeader h = ipcBlockHeader(c->data());
    if (h.MainType != MainType::Playback)
        return;
    const uint8_t* body = ipcBlockBody(c->data());
    switch (h.SubType) {
    case PlaybackSubType::MonthResult:
        if (auto r = RecordSearchReply::parseMonth(body, h.dataLen)) {
            if (r->year == m_markedMonth.year() && r->month == m_markedMonth.month()) {
                m_markedDays = r->dayBits;
                emitSignal(this, &monthSearched);
            }
        }
        break;
    case PlaybackSubType::DayResult:
        onDayResult(body, h.dataLen);
        break;
    case PlaybackSubType::Status:
        onStatus(body, h.dataLen);
        break;
    case PlaybackSubType::TagSearch:
        onTags(body, h.dataLen);
        break;
    case PlaybackSubType::Thumbnails:
        onThumbnails(body, h.dataLen);
        break;
    default:
        VY_GUI_LOG("playback notice %u dropped\n", h.SubType);
        break;
    }
}

void PlaybackSession::onDayResult(const uint8_t* body, size_t len) {
    if (!m_day.isValid())
        return;
    auto channel = RecordSearchReply::parseDay(body, len, m_asked, VyDateTime(m_day),
                                               VyDateTime(m_day.addDays(1)));
    if (!channel)
        return;
    auto same = std::find_if(m_results.begin(), m_results.end(),
                             [&](const RecordChannel& r) { return r.channel == channel->channel; });
    if (same != m_results.end())
        *same = std::move(*channel);
    else
        m_results.push_back(std::move(*channel));
    // Rows follow the order the channels were asked in.
    std::sort(m_results.begin(), m_results.end(),
              [&](const RecordChannel& a, const RecordChannel& b) {
                  return std::find(m_asked.begin(), m_asked.end(), a.channel) <
                         std::find(m_asked.begin(), m_asked.end(), b.channel);
              });
    emitSignal(this, &daySearched);
}

void PlaybackSession::onStatus(const uint8_t* body, size_t len) {
    auto s = RecordSearchReply::parseStatus(body, len);
    if (!s)
        return;
    switch (s->kind) {
    case PlaybackStatus::kProgress:
    case PlaybackStatus::kEnded: {
        if (!m_playing)
            return;
        const VyDateTime t = RecDataManager::unpack(s->time);
        if (t.isValid())
            m_time = t;
        ++m_progressCount;
        if (s->kind == PlaybackStatus::kEnded) {
            m_playing = false;
            emitSignal(this, &ended);
        }
        emitSignal(this, &progressed);
        break;
    }
    case PlaybackStatus::kExporting:
        if (m_exportState != ExportState::Running)
            return;
        m_exportPercent = int(s->percent);
        emitSignal(this, &exportChanged);
        break;
    case PlaybackStatus::kExported:
        m_exportState = ExportState::Done;
        m_exportPercent = 100;
        emitSignal(this, &exportChanged);
        break;
    case PlaybackStatus::kExportFailed:
        m_exportState = ExportState::Failed;
        m_exportFailure = s->value;
        emitSignal(this, &exportChanged);
        break;
    default:
        VY_GUI_LOG("playback status kind %u dropped\n", s->kind);
        break;
    }
}
