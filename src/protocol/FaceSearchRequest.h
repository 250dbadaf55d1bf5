#pragma once
// FaceSubType::Search: one page of the recorded faces that resemble a face, answered by
// FaceReplyHeader and `count` FaceSearchHit records in time order, so pages stay stable
// while App keeps recording.
#include <cstddef>
#include <cstdint>

struct FaceSearchRequest {
    static constexpr size_t kSize = 48; // bytes on the wire
    static constexpr uint32_t kMaxPerPage = 50;

    // Values of `sourceKind`.
    static constexpr uint32_t kLibraryFace = 0; // sourceId: FaceEntry::faceId
    static constexpr uint32_t kSnapshot = 1;    // sourceId: the channel (0-based) to snap now

    uint32_t sourceKind = 0;
    uint32_t sourceId = 0;
    int64_t from = 0;         // seconds since the epoch, local time, inclusive
    int64_t to = 0;           // exclusive
    uint64_t channelMask = 0; // bit n: channel n
    uint32_t threshold = 0;   // least similarity, percent
    uint32_t first = 0;       // index of the first hit of the page
    uint32_t max = 0;         // at most kMaxPerPage
    uint32_t reserved = 0;
};

struct FaceSearchHit {
    static constexpr size_t kSize = 24; // bytes on the wire

    int64_t time = 0; // seconds since the epoch, local time
    uint32_t channel = 0;
    uint32_t similarity = 0; // percent
    uint32_t captureId = 0;  // the captured face: FacePictureRequest::kCapture
    uint32_t reserved = 0;
};

static_assert(sizeof(FaceSearchRequest) == FaceSearchRequest::kSize, "wire size");
static_assert(sizeof(FaceSearchHit) == FaceSearchHit::kSize, "wire size");
