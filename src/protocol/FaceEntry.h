#pragma once
// FaceSubType::FaceList: FaceListRequest asks for one page of a group's faces; the reply is
// FaceReplyHeader, then `count` FaceEntry records.
#include <cstddef>
#include <cstdint>

struct FaceListRequest {
    static constexpr size_t kSize = 16; // bytes on the wire
    static constexpr uint32_t kMaxPerPage = 64;

    uint32_t groupId = 0;
    uint32_t first = 0; // index of the first face of the page
    uint32_t max = 0;   // at most kMaxPerPage
    uint32_t reserved = 0;
};

struct FaceEntry {
    static constexpr size_t kSize = 104; // bytes on the wire
    static constexpr size_t kNameBytes = 32;
    static constexpr size_t kNoteBytes = 64;

    uint32_t faceId = 0; // never 0; the face's picture is FacePictureRequest::kFace, faceId
    uint32_t groupId = 0;
    char name[kNameBytes] = {}; // UTF-8, zero-padded, zero-terminated
    char note[kNoteBytes] = {}; // same rules
};

static_assert(sizeof(FaceListRequest) == FaceListRequest::kSize, "wire size");
static_assert(sizeof(FaceEntry) == FaceEntry::kSize, "wire size");
