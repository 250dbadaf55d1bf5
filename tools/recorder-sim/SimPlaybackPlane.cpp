#include "SimPlaybackPlane.h"

#include "SimPlayback.h"
#include "SimVideoPlane.h"

#include <algorithm>
#include <cstdio>

namespace {

constexpr long long kDaySeconds = 86400;
constexpr long long kTickMs = 100; // the live pictures move ten times a second too

} // namespace

std::string SimPlaybackPlane::stamp(long long timeMs) {
    const long long secs = timeMs / 1000;
    int y, m, d;
    SimRecordDb::civilFromDays(long(secs / kDaySeconds), &y, &m, &d);
    const long long s = secs % kDaySeconds;
    char text[32];
    std::snprintf(text, sizeof text, "%04d/%02d/%02d %02lld:%02lld:%02lld", y, m, d, s / 3600,
                  s / 60 % 60, s % 60);
    return text;
}

bool SimPlaybackPlane::recordedAt(const SimRecordDb& db, int channel, long long secs) {
    const long day = long(secs / kDaySeconds);
    const long long at = secs - day * kDaySeconds;
    for (const RecordSegmentEntry& e : db.day(channel, day)) {
        if (e.start <= at && at < e.end)
            return true;
    }
    return false;
}

std::vector<uint16_t> SimPlaybackPlane::thumbnail(int channel, long long secs, int width,
                                                  int height) {
    PreviewRecord r;
    r.cellCount = 1;
    r.outputWidth = uint16_t(width);
    r.outputHeight = uint16_t(height);
    r.cells[0].channel = uint8_t(channel);
    r.cells[0].right = uint16_t(width - 1);
    r.cells[0].bottom = uint16_t(height - 1);
    char clock[8];
    std::snprintf(clock, sizeof clock, "%02lld:%02lld", secs % kDaySeconds / 3600, secs / 60 % 60);
    std::vector<SimVideoCell> cells(size_t(channel) + 1,
                                    SimVideoCell{true, std::string(), PreviewZoom{}});
    cells[size_t(channel)].name = "CH" + std::to_string(channel + 1);
    std::vector<uint16_t> plane(size_t(width) * height);
    SimVideoPlane::drawFrame(r, cells, uint32_t(secs * 1000 / kTickMs), clock, plane.data(), width,
                             height);
    // The plane is 5:5:5; thumbnails travel as 5:6:5.
    for (uint16_t& px : plane) {
        const unsigned r5 = px >> 10 & 0x1F, g5 = px >> 5 & 0x1F, b5 = px & 0x1F;
        px = uint16_t(r5 << 11 | (g5 << 1 | g5 >> 4) << 5 | b5);
    }
    return plane;
}

bool SimPlayback::planeFrame(int width, int height, SimPlaybackFrame* out) const {
    std::lock_guard<std::mutex> lock(m_mutex);
    if (m_state.windowChannels.empty() || m_split.empty() || width <= 0 || height <= 0)
        return false;
    out->record = PreviewRecord();
    out->record.outputWidth = uint16_t(width);
    out->record.outputHeight = uint16_t(height);
    int n = 0;
    for (const PlaybackWindowRect& w : m_split) {
        if (n >= PreviewRecord::kMaxCells || w.width == 0 || w.height == 0 || w.x >= width ||
            w.y >= height)
            continue;
        PreviewCell& c = out->record.cells[n++];
        c.channel = w.channel >= 0 && w.channel < m_db.channels() ? uint8_t(w.channel)
                                                                  : PreviewCell::kNoChannel;
        c.left = w.x;
        c.top = w.y;
        c.right = uint16_t(std::min(width, w.x + w.width) - 1);
        c.bottom = uint16_t(std::min(height, w.y + w.height) - 1);
    }
    out->record.cellCount = uint8_t(n);
    const long long secs = m_state.timeMs / 1000;
    out->recorded.assign(size_t(m_db.channels()), false);
    for (int i = 0; i < n; ++i) {
        const uint8_t ch = out->record.cells[i].channel;
        if (ch != PreviewCell::kNoChannel)
            out->recorded[ch] = SimPlaybackPlane::recordedAt(m_db, ch, secs);
    }
    out->tick = uint32_t(m_state.timeMs / kTickMs);
    out->clock = SimPlaybackPlane::stamp(m_state.timeMs);
    return true;
}
