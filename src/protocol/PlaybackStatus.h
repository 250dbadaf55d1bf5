#pragma once
// Body of App's PlaybackSubType::Status notification: progress of a playback cell or of a
// clip export.
#include "protocol/PackedDateTime.h"

#include <cstddef>
#include <cstdint>

struct PlaybackStatus {
    static constexpr size_t kSize = 32; // bytes on the wire
    // Kinds.
    static constexpr uint32_t kProgress = 0;     // `time` is the cell's playback time
    static constexpr uint32_t kEnded = 1;        // the cell reached the end of its recordings
    static constexpr uint32_t kExporting = 2;    // `percent` of the clip written
    static constexpr uint32_t kExported = 3;     // the clip is on the stick
    static constexpr uint32_t kExportFailed = 4; // `value`: ExportError
    // Export failures (`value` of kExportFailed).
    static constexpr uint32_t kNoDevice = 1;
    static constexpr uint32_t kNoSpace = 2;
    static constexpr uint32_t kCancelled = 3;

    uint32_t kind = kProgress;
    uint32_t window = 0;
    PackedDateTime time;
    int32_t speed = 0;    // PlaybackControl speed step
    uint32_t percent = 0; // 0..100
    uint32_t value = 0;   // kExporting/kExported: free MiB left on the stick
    uint32_t paused = 0;  // 1 while the cell is paused
};

static_assert(sizeof(PlaybackStatus) == PlaybackStatus::kSize, "wire size");
