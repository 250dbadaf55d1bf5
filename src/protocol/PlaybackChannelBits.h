#pragma once
// The channel bit set of the playback records: bit c (byte c / 8, bit c % 8, LSB first) is
// channel c, as the record data model's channelToBitArray makes it.
#include <cstddef>
#include <cstdint>

namespace PlaybackChannelBits {

constexpr size_t kBytes = 16;     // bytes of every channel bit set in the playback records
constexpr int kMaxChannels = 128; // channels such a set can name

} // namespace PlaybackChannelBits
