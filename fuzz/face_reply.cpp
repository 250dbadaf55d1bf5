// libFuzzer target: arbitrary bytes as App's face-application replies and notices. Never
// crashes, never reads past its input, and nothing decoded claims more than its limits:
// pages no longer than asked, pictures inside their size bounds, object boxes inside the
// picture.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "model/FaceReply.h"
#include "protocol/FacePicture.h"
#include "protocol/UsbFileEntry.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    constexpr uint32_t kAsked = 50;
    if (auto g = FaceReply::parseGroups(data, size)) {
        if (g->size() > FaceGroupListHeader::kMaxGroups)
            std::abort();
    }
    if (auto f = FaceReply::parseFaces(data, size, kAsked)) {
        if (f->items.size() > kAsked || f->items.size() > f->total)
            std::abort();
    }
    if (auto h = FaceReply::parseHits(data, size, kAsked)) {
        if (h->items.size() > kAsked)
            std::abort();
    }
    if (auto r = FaceReply::parseRecognitions(data, size, kAsked)) {
        if (r->items.size() > kAsked)
            std::abort();
    }
    if (auto u = FaceReply::parseUsbFiles(data, size)) {
        if (u->files.size() > UsbFileListHeader::kMaxFiles)
            std::abort();
    }
    const VyBitmap picture = FaceReply::parsePicture(data, size);
    if (!picture.isNull() && (picture.width() > int(FacePictureHeader::kMaxSide) ||
                              picture.height() > int(FacePictureHeader::kMaxSide)))
        std::abort();
    if (auto o = FaceReply::parseObject(data, size)) {
        if (o->x + o->width > AIObjectNotice::kBoxScale ||
            o->y + o->height > AIObjectNotice::kBoxScale)
            std::abort();
    }
    FaceReply::parseRecognition(data, size);
    FaceReply::parseEditAnswer(data, size);
    return 0;
}
