#pragma once
// Body of PlaybackSubType::Export (GUI -> App): write the clip of these channels between two
// times to a USB stick. App reports progress with PlaybackStatus notifications.
#include "protocol/PackedDateTime.h"
#include "protocol/PlaybackChannelBits.h"

#include <cstddef>
#include <cstdint>

struct ClipExportRequest {
    static constexpr size_t kSize = 88;          // bytes on the wire
    static constexpr size_t kNameBytes = 48;     // NUL-terminated file name on the stick
    static constexpr uint32_t kFormatNative = 0; // the recorder's own file format
    static constexpr uint32_t kFormatMp4 = 1;

    PackedDateTime start;
    PackedDateTime end;
    uint8_t channelBits[PlaybackChannelBits::kBytes] = {};
    uint32_t device = 0; // USB stick index
    uint32_t format = kFormatNative;
    char name[kNameBytes] = {};
};

static_assert(sizeof(ClipExportRequest) == ClipExportRequest::kSize, "wire size");
