#pragma once
// A face App recognised on a channel: the body of FaceSubType::RecognitionNote, and the
// records of a FaceSubType::Recognitions reply (FaceReplyHeader first), which answers a
// RecognitionListRequest.
#include <cstddef>
#include <cstdint>

struct FaceRecognition {
    static constexpr size_t kSize = 24;      // bytes on the wire
    static constexpr uint32_t kStranger = 0; // faceId of a face that matched nobody

    int64_t time = 0; // seconds since the epoch, local time
    uint32_t channel = 0;
    uint32_t faceId = 0;
    uint32_t similarity = 0; // percent, to the library face
    uint32_t captureId = 0;
};

struct RecognitionListRequest {
    static constexpr size_t kSize = 32; // bytes on the wire
    static constexpr uint32_t kMaxPerPage = 200;

    int64_t from = 0; // seconds since the epoch, local time, inclusive
    int64_t to = 0;   // exclusive
    uint64_t channelMask = 0;
    uint32_t first = 0;
    uint32_t max = 0; // at most kMaxPerPage
};

static_assert(sizeof(FaceRecognition) == FaceRecognition::kSize, "wire size");
static_assert(sizeof(RecognitionListRequest) == RecognitionListRequest::kSize, "wire size");
