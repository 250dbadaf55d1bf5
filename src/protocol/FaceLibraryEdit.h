#pragma once
// FaceSubType::LibraryEdit: one change of the face library, answered by FaceEditAnswer.
// FaceEditAnswer also answers FaceSubType::UsbWrite.
#include <cstddef>
#include <cstdint>
#include <cstring>

struct FaceLibraryEdit {
    static constexpr size_t kSize = 176; // bytes on the wire
    static constexpr size_t kNameBytes = 32;
    static constexpr size_t kNoteBytes = 64;
    static constexpr size_t kFileBytes = 64;

    // Values of `action`, and the fields each one reads.
    static constexpr uint32_t kAddGroup = 1;            // name
    static constexpr uint32_t kRenameGroup = 2;         // groupId, name
    static constexpr uint32_t kRemoveGroup = 3;         // groupId, with its faces
    static constexpr uint32_t kAddFaceFromSnapshot = 4; // groupId, channel (0-based), name, note
    static constexpr uint32_t kAddFaceFromFile = 5;     // groupId, file (a USB picture), name, note
    static constexpr uint32_t kUpdateFace = 6;          // faceId, groupId (move), name, note
    static constexpr uint32_t kRemoveFace = 7;          // faceId
    static constexpr uint32_t kExportGroup = 8;         // groupId, file (written on USB)
    static constexpr uint32_t kImportFile = 9;          // groupId (0: the file's own), file

    uint32_t action = 0;
    uint32_t groupId = 0;
    uint32_t faceId = 0;
    uint32_t channel = 0;
    char name[kNameBytes] = {}; // UTF-8, zero-padded, zero-terminated
    char note[kNoteBytes] = {};
    char file[kFileBytes] = {};

    // Copies text into a field; false (the field left empty) when it does not fit with its
    // closing zero byte, so nothing is ever cut.
    static bool setText(char* field, size_t fieldBytes, const char* text, size_t size) {
        std::memset(field, 0, fieldBytes);
        if (size >= fieldBytes)
            return false;
        std::memcpy(field, text, size);
        return true;
    }
};

struct FaceEditAnswer {
    static constexpr size_t kSize = 16; // bytes on the wire

    // Values of `result`.
    static constexpr uint32_t kOk = 0;
    static constexpr uint32_t kNoSuchGroup = 1;
    static constexpr uint32_t kNoSuchFace = 2;
    static constexpr uint32_t kFull = 3;        // no room for another group or face
    static constexpr uint32_t kNoFaceFound = 4; // the picture or snapshot shows no usable face
    static constexpr uint32_t kFileError = 5;   // USB missing, file missing, unreadable or bad
    static constexpr uint32_t kMalformed = 6;   // a field without its zero byte, an unknown action

    uint32_t result = 0;
    uint32_t id = 0;    // the new group or face
    uint32_t count = 0; // faces exported or imported
    uint32_t reserved = 0;
};

static_assert(sizeof(FaceLibraryEdit) == FaceLibraryEdit::kSize, "wire size");
static_assert(sizeof(FaceEditAnswer) == FaceEditAnswer::kSize, "wire size");
