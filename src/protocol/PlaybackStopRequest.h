#pragma once
// Body of PlaybackSubType::StopOther (GUI -> App): the stop of what is neither video nor
// picture playback; the playback window uses it to cancel a clip export.
#include <cstddef>
#include <cstdint>

struct PlaybackStopRequest {
    static constexpr size_t kSize = 260; // bytes on the wire
    static constexpr uint32_t kExport = 1;
    static constexpr size_t kPathBytes = 256;

    uint32_t what = kExport;
    char path[kPathBytes] = {}; // the export's file name, NUL-terminated
};

static_assert(sizeof(PlaybackStopRequest) == PlaybackStopRequest::kSize, "wire size");
