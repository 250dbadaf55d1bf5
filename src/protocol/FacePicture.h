#pragma once
// FaceSubType::Picture: a library face's picture or a captured face, as FacePictureHeader
// followed by `dataBytes` bytes of picture.
#include <cstddef>
#include <cstdint>

struct FacePictureRequest {
    static constexpr size_t kSize = 8; // bytes on the wire

    // Values of `kind`.
    static constexpr uint32_t kFace = 0;    // id: FaceEntry::faceId
    static constexpr uint32_t kCapture = 1; // id: a hit's or a recognition's captureId

    uint32_t kind = 0;
    uint32_t id = 0;
};

struct FacePictureHeader {
    static constexpr size_t kSize = 16;       // bytes on the wire
    static constexpr uint32_t kMaxSide = 256; // pixels
    static constexpr uint32_t kMaxBytes = kMaxSide * kMaxSide * 4;

    // Values of `format`.
    static constexpr uint32_t kRgb565 = 0; // width * height little-endian 16-bit pixels
    static constexpr uint32_t kJpeg = 1;   // a JPEG file of width x height

    uint16_t width = 0;
    uint16_t height = 0;
    uint32_t format = 0;
    uint32_t dataBytes = 0;
    uint32_t reserved = 0;
};

static_assert(sizeof(FacePictureRequest) == FacePictureRequest::kSize, "wire size");
static_assert(sizeof(FacePictureHeader) == FacePictureHeader::kSize, "wire size");
