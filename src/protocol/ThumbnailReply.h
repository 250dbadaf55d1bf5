#pragma once
// Body of App's answer to a ThumbnailRequest (PlaybackSubType::Thumbnails, App -> GUI): a
// 16-byte head, then `count` entries of an 8-byte PackedDateTime followed by width x height
// pixels of 16 bits (RGB 5:6:5, little-endian, rows packed). An entry whose time is all
// zero has no recording at that step.
#include <cstddef>
#include <cstdint>

struct ThumbnailReply {
    static constexpr size_t kSize = 16; // bytes of the head
    static constexpr uint16_t kMaxWidth = 160;
    static constexpr uint16_t kMaxHeight = 120;

    uint32_t channel = 0;
    uint32_t count = 0; // at most ThumbnailRequest::kMaxCount are kept
    uint16_t width = 0;
    uint16_t height = 0;
    uint32_t reserved = 0;

    static constexpr size_t entryBytes(uint16_t w, uint16_t h) { return 8 + size_t(w) * h * 2; }
};

static_assert(sizeof(ThumbnailReply) == ThumbnailReply::kSize, "wire size");
