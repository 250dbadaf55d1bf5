#include "SimThumbnails.h"

#include "SimPlaybackPlane.h"
#include "SimRecordDb.h"
#include "SimServer.h"
#include "protocol/MainType.h"
#include "protocol/SubType.h"
#include "protocol/ThumbnailReply.h"
#include "protocol/ThumbnailRequest.h"

#include <cstring>

SimThumbnails::SimThumbnails(const SimRecordDb& db)
    : m_db(db) {}

void SimThumbnails::attach(SimServer& server) {
    server.addHandler(MainType::Playback, PlaybackSubType::Thumbnails,
                      [this](SimServer& s, const SimMessage& m) { return onRequest(s, m); });
}

bool SimThumbnails::onRequest(SimServer& s, const SimMessage& m) {
    ThumbnailRequest req;
    if (m.body.size() < sizeof req)
        return false;
    std::memcpy(&req, m.body.data(), sizeof req);
    const long long from = SimRecordDb::secondsOf(req.start), to = SimRecordDb::secondsOf(req.end);
    if (from < 0 || to < from || req.count == 0 || req.count > ThumbnailRequest::kMaxCount ||
        req.channel >= uint32_t(m_db.channels()))
        return false;
    ThumbnailReply head;
    head.channel = req.channel;
    head.count = req.count;
    head.width = kWidth;
    head.height = kHeight;
    const size_t entry = ThumbnailReply::entryBytes(kWidth, kHeight);
    std::vector<uint8_t> body(sizeof head + entry * req.count, 0);
    std::memcpy(body.data(), &head, sizeof head);
    for (uint32_t i = 0; i < req.count; ++i) {
        const long long at = req.count == 1 ? from : from + (to - from) * i / (req.count - 1);
        if (!SimPlaybackPlane::recordedAt(m_db, int(req.channel), at))
            continue; // all zero: no recording at this step
        uint8_t* out = body.data() + sizeof head + entry * i;
        const PackedDateTime t = SimRecordDb::packSeconds(at);
        std::memcpy(out, &t, sizeof t);
        const std::vector<uint16_t> picture =
            SimPlaybackPlane::thumbnail(int(req.channel), at, kWidth, kHeight);
        for (size_t p = 0; p < picture.size(); ++p) {
            out[8 + 2 * p] = uint8_t(picture[p]);
            out[9 + 2 * p] = uint8_t(picture[p] >> 8);
        }
    }
    return s.notify(MainType::Playback, PlaybackSubType::Thumbnails, 0, body.data(),
                    uint32_t(body.size()));
}
