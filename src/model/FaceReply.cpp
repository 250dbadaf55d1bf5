#include "model/FaceReply.h"

#include "protocol/FacePicture.h"
#include "protocol/FaceReplyHeader.h"
#include "protocol/UsbFileEntry.h"
#include "runtime/VyLog.h"

#include <cstring>

namespace {

// Header, then exactly `count` records of `Record`, count within both limits.
template <typename Record>
bool listFits(const char* what, size_t size, size_t headerBytes, uint32_t count, uint32_t limit) {
    if (count > limit) {
        VY_GUI_LOG("%s: %u records, at most %u expected, refused\n", what, count, limit);
        return false;
    }
    if (size != headerBytes + size_t(count) * sizeof(Record)) {
        VY_GUI_LOG("%s: %u records in %zu bytes, refused\n", what, count, size);
        return false;
    }
    return true;
}

template <typename Record>
std::optional<FaceReply::Page<Record>> parsePage(const char* what, const uint8_t* data, size_t size,
                                                 uint32_t asked) {
    FaceReplyHeader head;
    if (data == nullptr || size < sizeof head) {
        VY_GUI_LOG("%s: answer of %zu bytes, too short\n", what, size);
        return std::nullopt;
    }
    std::memcpy(&head, data, sizeof head);
    if (!listFits<Record>(what, size, sizeof head, head.count, asked))
        return std::nullopt;
    if (head.count > head.total) {
        VY_GUI_LOG("%s: page of %u out of %u in all, refused\n", what, head.count, head.total);
        return std::nullopt;
    }
    FaceReply::Page<Record> page;
    page.total = head.total;
    page.items.resize(head.count);
    if (head.count != 0)
        std::memcpy(page.items.data(), data + sizeof head, head.count * sizeof(Record));
    return page;
}

template <typename Record>
std::optional<Record> parseRecord(const char* what, const uint8_t* data, size_t size) {
    if (data == nullptr || size != sizeof(Record)) {
        VY_GUI_LOG("%s: %zu bytes, %zu expected, refused\n", what, size, sizeof(Record));
        return std::nullopt;
    }
    Record r;
    std::memcpy(&r, data, sizeof r);
    return r;
}

} // namespace

VyString FaceReply::fieldText(const char* field, size_t size) {
    const void* end = std::memchr(field, 0, size);
    return end ? VyString::fromUtf8(field, int(static_cast<const char*>(end) - field)) : VyString();
}

std::optional<std::vector<FaceReply::Group>> FaceReply::parseGroups(const uint8_t* data,
                                                                    size_t size) {
    FaceGroupListHeader head;
    if (data == nullptr || size < sizeof head) {
        VY_GUI_LOG("face groups: answer of %zu bytes, too short\n", size);
        return std::nullopt;
    }
    std::memcpy(&head, data, sizeof head);
    if (!listFits<FaceGroupEntry>("face groups", size, sizeof head, head.count,
                                  FaceGroupListHeader::kMaxGroups))
        return std::nullopt;
    std::vector<Group> groups;
    for (uint32_t i = 0; i < head.count; ++i) {
        FaceGroupEntry e;
        std::memcpy(&e, data + sizeof head + i * sizeof e, sizeof e);
        Group g{e.groupId, e.faceCount, fieldText(e.name, sizeof e.name)};
        if (g.id == 0) {
            VY_GUI_LOG("face groups: entry %u has no id, skipped\n", i);
            continue;
        }
        groups.push_back(g);
    }
    return groups;
}

std::optional<FaceReply::Page<FaceReply::Face>> FaceReply::parseFaces(const uint8_t* data,
                                                                      size_t size, uint32_t asked) {
    auto raw = parsePage<FaceEntry>("faces", data, size, asked);
    if (!raw)
        return std::nullopt;
    Page<Face> page;
    page.total = raw->total;
    for (const FaceEntry& e : raw->items) {
        if (e.faceId == 0) {
            VY_GUI_LOG("faces: entry without id, skipped\n");
            continue;
        }
        page.items.push_back({e.faceId, e.groupId, fieldText(e.name, sizeof e.name),
                              fieldText(e.note, sizeof e.note)});
    }
    return page;
}

std::optional<FaceReply::Page<FaceSearchHit>> FaceReply::parseHits(const uint8_t* data, size_t size,
                                                                   uint32_t asked) {
    return parsePage<FaceSearchHit>("face search", data, size, asked);
}

std::optional<FaceReply::Page<FaceRecognition>>
FaceReply::parseRecognitions(const uint8_t* data, size_t size, uint32_t asked) {
    return parsePage<FaceRecognition>("recognitions", data, size, asked);
}

std::optional<FaceReply::UsbFiles> FaceReply::parseUsbFiles(const uint8_t* data, size_t size) {
    UsbFileListHeader head;
    if (data == nullptr || size < sizeof head) {
        VY_GUI_LOG("USB files: answer of %zu bytes, too short\n", size);
        return std::nullopt;
    }
    std::memcpy(&head, data, sizeof head);
    if (!listFits<UsbFileEntry>("USB files", size, sizeof head, head.count,
                                UsbFileListHeader::kMaxFiles))
        return std::nullopt;
    UsbFiles out;
    out.noUsb = (head.flags & UsbFileListHeader::kNoUsb) != 0;
    for (uint32_t i = 0; i < head.count; ++i) {
        UsbFileEntry e;
        std::memcpy(&e, data + sizeof head + i * sizeof e, sizeof e);
        UsbFile f{fieldText(e.name, sizeof e.name), e.bytes};
        if (f.name.isEmpty()) {
            VY_GUI_LOG("USB files: entry %u has no name, skipped\n", i);
            continue;
        }
        out.files.push_back(f);
    }
    return out;
}

std::optional<FaceEditAnswer> FaceReply::parseEditAnswer(const uint8_t* data, size_t size) {
    return parseRecord<FaceEditAnswer>("face library answer", data, size);
}

std::optional<FaceRecognition> FaceReply::parseRecognition(const uint8_t* data, size_t size) {
    return parseRecord<FaceRecognition>("face recognition", data, size);
}

std::optional<AIObjectNotice> FaceReply::parseObject(const uint8_t* data, size_t size) {
    auto o = parseRecord<AIObjectNotice>("analytics object", data, size);
    if (o && (uint32_t(o->x) + o->width > AIObjectNotice::kBoxScale ||
              uint32_t(o->y) + o->height > AIObjectNotice::kBoxScale)) {
        VY_GUI_LOG("analytics object on CH%u: box outside the picture, refused\n", o->channel + 1);
        return std::nullopt;
    }
    return o;
}

VyBitmap FaceReply::parsePicture(const uint8_t* data, size_t size) {
    FacePictureHeader head;
    if (data == nullptr || size < sizeof head) {
        VY_GUI_LOG("face picture: answer of %zu bytes, too short\n", size);
        return {};
    }
    std::memcpy(&head, data, sizeof head);
    if (head.width == 0 || head.height == 0 || head.width > FacePictureHeader::kMaxSide ||
        head.height > FacePictureHeader::kMaxSide ||
        head.dataBytes > FacePictureHeader::kMaxBytes || size != sizeof head + head.dataBytes) {
        VY_GUI_LOG("face picture: %ux%u, %u bytes in an answer of %zu, refused\n", head.width,
                   head.height, head.dataBytes, size);
        return {};
    }
    const uint8_t* bytes = data + sizeof head;
    if (head.format == FacePictureHeader::kJpeg) {
        VyBitmap jpeg = VyBitmap::loadJpegFromMemory(bytes, head.dataBytes);
        if (jpeg.isNull() || jpeg.width() != head.width || jpeg.height() != head.height) {
            VY_GUI_LOG("face picture: JPEG of %ux%u does not decode to its size, refused\n",
                       head.width, head.height);
            return {};
        }
        return jpeg;
    }
    if (head.format != FacePictureHeader::kRgb565 ||
        head.dataBytes != uint32_t(head.width) * head.height * 2) {
        VY_GUI_LOG("face picture: format %u with %u bytes for %ux%u, refused\n", head.format,
                   head.dataBytes, head.width, head.height);
        return {};
    }
    VyBitmap out(head.width, head.height);
    uint8_t* px = out.bits();
    for (uint32_t i = 0; i < uint32_t(head.width) * head.height; ++i) {
        const uint16_t v = uint16_t(bytes[2 * i] | (bytes[2 * i + 1] << 8));
        const uint8_t r = uint8_t((v >> 11) & 0x1F), g = uint8_t((v >> 5) & 0x3F),
                      b = uint8_t(v & 0x1F);
        px[4 * i] = uint8_t((r << 3) | (r >> 2));
        px[4 * i + 1] = uint8_t((g << 2) | (g >> 4));
        px[4 * i + 2] = uint8_t((b << 3) | (b >> 2));
        px[4 * i + 3] = 0xFF;
    }
    return out;
}
