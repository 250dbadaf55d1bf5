#pragma once
// FaceSubType::UsbFiles: the files of one kind on App's USB stick, as UsbFileListHeader
// followed by `count` UsbFileEntry records; FaceSubType::UsbWrite: UsbWriteRequest followed
// by `size` bytes, written as one file on the stick.
#include <cstddef>
#include <cstdint>

struct UsbFileListRequest {
    static constexpr size_t kSize = 8; // bytes on the wire

    // Values of `kind`.
    static constexpr uint32_t kPictures = 0;  // pictures a face can be added from
    static constexpr uint32_t kLibraries = 1; // exported face libraries

    uint32_t kind = 0;
    uint32_t reserved = 0;
};

struct UsbFileListHeader {
    static constexpr size_t kSize = 8; // bytes on the wire
    static constexpr uint32_t kMaxFiles = 64;
    // Bits of `flags`.
    static constexpr uint32_t kNoUsb = 1u << 0; // no stick plugged in

    uint32_t count = 0;
    uint32_t flags = 0;
};

struct UsbFileEntry {
    static constexpr size_t kSize = 72; // bytes on the wire
    static constexpr size_t kNameBytes = 64;

    char name[kNameBytes] = {}; // UTF-8, zero-padded, zero-terminated, no directory part
    uint32_t bytes = 0;
    uint32_t reserved = 0;
};

struct UsbWriteRequest {
    static constexpr size_t kSize = 72; // bytes on the wire, before the file's bytes
    static constexpr size_t kNameBytes = 64;
    static constexpr uint32_t kMaxBytes = 1024 * 1024;

    char name[kNameBytes] = {};
    uint32_t size = 0; // bytes that follow, at most kMaxBytes
    uint32_t reserved = 0;
};

static_assert(sizeof(UsbFileListRequest) == UsbFileListRequest::kSize, "wire size");
static_assert(sizeof(UsbFileListHeader) == UsbFileListHeader::kSize, "wire size");
static_assert(sizeof(UsbFileEntry) == UsbFileEntry::kSize, "wire size");
static_assert(sizeof(UsbWriteRequest) == UsbWriteRequest::kSize, "wire size");
