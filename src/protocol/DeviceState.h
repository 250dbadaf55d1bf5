#pragma once
// The device-wide state the task bar shows, in the msgValue of SystemSubType::DeviceState.
#include <cstdint>

namespace DeviceState {

constexpr uint32_t kUsbStick = 0x01; // a USB stick is plugged in
constexpr uint32_t kDiskMask = 0x0E; // bits 1-3: the disk state below
constexpr uint32_t kDiskShift = 1;
constexpr uint32_t kDiskNone = 0; // no disk installed
constexpr uint32_t kDiskOk = 1;
constexpr uint32_t kDiskFull = 2;       // full, not overwriting
constexpr uint32_t kDiskError = 3;      // unformatted or failed
constexpr uint32_t kAlarmOutput = 0x10; // an alarm output is active

} // namespace DeviceState
