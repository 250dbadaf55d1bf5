#pragma once
// Head of every paged list reply of the face applications (faces of a group, search hits,
// recognitions): how many records match in all, and how many follow in this reply.
#include <cstddef>
#include <cstdint>

struct FaceReplyHeader {
    static constexpr size_t kSize = 8; // bytes on the wire

    uint32_t total = 0;
    uint32_t count = 0;
};

static_assert(sizeof(FaceReplyHeader) == FaceReplyHeader::kSize, "wire size");
