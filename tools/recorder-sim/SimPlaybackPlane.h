#pragma once
// The playback cells on the simulated video plane, drawn as the live cells are
// (SimVideoPlane) but from the recording: a cell's picture moves with its playback time and
// stands while paused, and its clock line is that time. A cell whose channel has no
// recording at that time shows "NO VIDEO". Thumbnails are small pictures of the same kind.
#include "SimRecordDb.h"
#include "protocol/PreviewRecord.h"

#include <cstdint>
#include <string>
#include <vector>

struct SimPlaybackFrame {
    PreviewRecord record;       // the playback cells as preview cells of the plane
    std::vector<bool> recorded; // per channel: a recording at the playback time
    uint32_t tick = 0;          // picture phase: tenths of a second of playback time
    std::string clock;          // "YYYY/MM/DD HH:MM:SS" of the playback time
};

class SimPlaybackPlane {
public:
    // Local milliseconds since 1970-01-01 to "YYYY/MM/DD HH:MM:SS".
    static std::string stamp(long long timeMs);
    // Whether the channel has a segment at that local second.
    static bool recordedAt(const SimRecordDb& db, int channel, long long secs);
    // A width x height picture of `channel` at local second `secs`, 16-bit RGB 5:6:5.
    static std::vector<uint16_t> thumbnail(int channel, long long secs, int width, int height);
};
