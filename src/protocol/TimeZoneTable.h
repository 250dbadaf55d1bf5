#pragma once
// The time zones a recorder offers, by index (DateTimeBlock::timeZone, TimeZoneNotice::value):
// the offset from UTC as shown and the POSIX TZ text App announces for it. POSIX counts
// west as positive, so UTC+08:00 is "<+08>-8".
#include <cstddef>

namespace TimeZoneTable {

struct Zone {
    const char* label; // "UTC+08:00"
    const char* tz;    // POSIX TZ text, fits TimeZoneNotice::tz
};

constexpr Zone kZones[] = {
    {"UTC-12:00", "<-12>12"},      {"UTC-11:00", "<-11>11"},      {"UTC-10:00", "<-10>10"},
    {"UTC-09:00", "<-09>9"},       {"UTC-08:00", "<-08>8"},       {"UTC-07:00", "<-07>7"},
    {"UTC-06:00", "<-06>6"},       {"UTC-05:00", "<-05>5"},       {"UTC-04:00", "<-04>4"},
    {"UTC-03:30", "<-0330>3:30"},  {"UTC-03:00", "<-03>3"},       {"UTC-02:00", "<-02>2"},
    {"UTC-01:00", "<-01>1"},       {"UTC+00:00", "UTC0"},         {"UTC+01:00", "<+01>-1"},
    {"UTC+02:00", "<+02>-2"},      {"UTC+03:00", "<+03>-3"},      {"UTC+03:30", "<+0330>-3:30"},
    {"UTC+04:00", "<+04>-4"},      {"UTC+04:30", "<+0430>-4:30"}, {"UTC+05:00", "<+05>-5"},
    {"UTC+05:30", "<+0530>-5:30"}, {"UTC+05:45", "<+0545>-5:45"}, {"UTC+06:00", "<+06>-6"},
    {"UTC+06:30", "<+0630>-6:30"}, {"UTC+07:00", "<+07>-7"},      {"UTC+08:00", "<+08>-8"},
    {"UTC+09:00", "<+09>-9"},      {"UTC+09:30", "<+0930>-9:30"}, {"UTC+10:00", "<+10>-10"},
    {"UTC+11:00", "<+11>-11"},     {"UTC+12:00", "<+12>-12"},     {"UTC+13:00", "<+13>-13"},
};
constexpr int kCount = int(sizeof kZones / sizeof kZones[0]);
constexpr int kUtc = 13; // the factory zone

} // namespace TimeZoneTable
