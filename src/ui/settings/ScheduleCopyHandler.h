#pragma once
// Copies schedules on a settings page: one day of a channel onto other days, and a whole
// channel's week onto other channels. It works on the page's arrays (one 7 x 48 array per
// channel, not owned) and remembers which channels it changed, so that the page writes
// back only those.
#include "protocol/ScheduleGrid.h"

#include <cstdint>
#include <vector>

class ScheduleCopyHandler {
public:
    // One array per channel, index = channel; null for a channel the page does not hold.
    void setSchedules(std::vector<uint8_t*> schedules);
    int channelCount() const { return int(m_schedules.size()); }

    // Copies day `fromDay` of `channel` onto every day whose bit is set in `toDays`
    // (bit d = day d). False, with a log line, for a channel or day out of range.
    bool copyDay(int channel, int fromDay, uint32_t toDays);
    // Copies the whole week of `fromChannel` onto every channel whose bit is set in
    // `toChannels`. False, with a log line, for a channel out of range.
    bool copyChannel(int fromChannel, uint64_t toChannels);

    // Channels written since the last clear, bit c = channel c.
    uint64_t changedChannels() const { return m_changed; }
    void clearChanged() { m_changed = 0; }

private:
    std::vector<uint8_t*> m_schedules; // the page's arrays, never owned
    uint64_t m_changed = 0;
};
