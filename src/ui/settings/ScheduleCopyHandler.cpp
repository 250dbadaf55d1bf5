#include "ui/settings/ScheduleCopyHandler.h"

#include "runtime/VyLog.h"

#include <cstring>

namespace {

constexpr int kMaxChannels = 64; // one bit each in the channel masks

} // namespace

void ScheduleCopyHandler::setSchedules(std::vector<uint8_t*> schedules) {
    if (schedules.size() > size_t(kMaxChannels))
        schedules.resize(kMaxChannels);
    m_schedules = std::move(schedules);
    m_changed = 0;
}

bool ScheduleCopyHandler::copyDay(int channel, int fromDay, uint32_t toDays) {
    if (channel < 0 || channel >= channelCount() || m_schedules[size_t(channel)] == nullptr ||
        fromDay < 0 || fromDay >= ScheduleGrid::kDays) {
        VY_GUI_LOG("schedule copy refused: channel %d day %d\n", channel, fromDay);
        return false;
    }
    uint8_t* week = m_schedules[size_t(channel)];
    const uint8_t* from = week + fromDay * ScheduleGrid::kHalfHours;
    for (int day = 0; day < ScheduleGrid::kDays; ++day) {
        if (day == fromDay || (toDays & (1u << day)) == 0)
            continue;
        std::memcpy(week + day * ScheduleGrid::kHalfHours, from, ScheduleGrid::kHalfHours);
        m_changed |= uint64_t(1) << channel;
    }
    return true;
}

bool ScheduleCopyHandler::copyChannel(int fromChannel, uint64_t toChannels) {
    if (fromChannel < 0 || fromChannel >= channelCount() ||
        m_schedules[size_t(fromChannel)] == nullptr) {
        VY_GUI_LOG("schedule copy refused: channel %d\n", fromChannel);
        return false;
    }
    const uint8_t* from = m_schedules[size_t(fromChannel)];
    for (int ch = 0; ch < channelCount(); ++ch) {
        if (ch == fromChannel || (toChannels & (uint64_t(1) << ch)) == 0 ||
            m_schedules[size_t(ch)] == nullptr)
            continue;
        std::memcpy(m_schedules[size_t(ch)], from, ScheduleGrid::kBytes);
        m_changed |= uint64_t(1) << ch;
    }
    return true;
}
