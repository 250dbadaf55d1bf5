#pragma once
// The week schedule every schedule-bearing parameter block embeds: 7 days of 48 half hours,
// one byte per half hour, row-major (byte = day * 48 + halfHour). Row 0 is Sunday, as the
// recorder counts its week. Each byte is a set of type bits whose meaning belongs to the
// block (record: normal, motion, alarm, PIR; plain schedules: 0 off, 1 on).
#include <cstdint>

namespace ScheduleGrid {

constexpr int kDays = 7;
constexpr int kHalfHours = 48; // columns; half hour h covers h * 30 .. (h + 1) * 30 minutes
constexpr int kBytes = kDays * kHalfHours;

// Type bits of the record schedule.
constexpr uint8_t kRecordNormal = 1;
constexpr uint8_t kRecordMotion = 2;
constexpr uint8_t kRecordAlarm = 4;
constexpr uint8_t kRecordPir = 8;

// Type bits of the e-mail schedule, in the order the e-mail board reads its colours.
constexpr uint8_t kEmailMotion = 1;
constexpr uint8_t kEmailAlarm = 2;
constexpr uint8_t kEmailException = 4;
constexpr uint8_t kEmailIntelligent = 8;
constexpr uint8_t kEmailPir = 16;

// Type bits of the FTP upload schedule.
constexpr uint8_t kFtpNormal = 1;
constexpr uint8_t kFtpMotion = 2;
constexpr uint8_t kFtpAlarm = 4;
constexpr uint8_t kFtpPir = 8;
constexpr uint8_t kFtpIntelligent = 16;

} // namespace ScheduleGrid
