#pragma once
// App's face-application replies and notices, decoded. Every length and count is checked
// against the bytes that came before anything is allocated or read; a reply that does not
// add up gives nullopt (or a null picture) and one log line, never a partial list.
#include "protocol/AIObjectNotice.h"
#include "protocol/FaceEntry.h"
#include "protocol/FaceGroupEntry.h"
#include "protocol/FaceLibraryEdit.h"
#include "protocol/FaceRecognition.h"
#include "protocol/FaceSearchRequest.h"
#include "runtime/VyBitmap.h"
#include "runtime/VyString.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

class FaceReply {
public:
    struct Group {
        uint32_t id = 0;
        uint32_t faceCount = 0;
        VyString name;
    };
    struct Face {
        uint32_t id = 0;
        uint32_t groupId = 0;
        VyString name;
        VyString note;
    };
    struct UsbFile {
        VyString name;
        uint32_t bytes = 0;
    };
    struct UsbFiles {
        bool noUsb = false;
        std::vector<UsbFile> files;
    };
    template <typename T>
    struct Page {
        uint32_t total = 0; // matches in all, of which `items` is one page
        std::vector<T> items;
    };

    static std::optional<std::vector<Group>> parseGroups(const uint8_t* data, size_t size);
    // `asked`: the page size the request allowed; a reply with more is refused.
    static std::optional<Page<Face>> parseFaces(const uint8_t* data, size_t size, uint32_t asked);
    static std::optional<Page<FaceSearchHit>> parseHits(const uint8_t* data, size_t size,
                                                        uint32_t asked);
    static std::optional<Page<FaceRecognition>> parseRecognitions(const uint8_t* data, size_t size,
                                                                  uint32_t asked);
    static std::optional<UsbFiles> parseUsbFiles(const uint8_t* data, size_t size);
    static std::optional<FaceEditAnswer> parseEditAnswer(const uint8_t* data, size_t size);
    // Null when the header, the size or the picture's own bytes do not hold.
    static VyBitmap parsePicture(const uint8_t* data, size_t size);
    static std::optional<FaceRecognition> parseRecognition(const uint8_t* data, size_t size);
    static std::optional<AIObjectNotice> parseObject(const uint8_t* data, size_t size);

    // Text of a zero-padded field that must hold its closing zero byte; empty otherwise.
    static VyString fieldText(const char* field, size_t size);
};
