#pragma once
// App's thumbnails, simulated: for each step a thumbnail request asks for, a small picture
// of the channel at that time (SimPlaybackPlane::thumbnail), or an empty entry where the
// channel has no recording.
//
//     SimThumbnails thumbnails(playback.db());
//     thumbnails.attach(server);   // Thumbnails of MainType 300
#include <cstdint>

class SimRecordDb;
class SimServer;
struct SimMessage;

class SimThumbnails {
public:
    static constexpr uint16_t kWidth = 64; // pixels of every thumbnail
    static constexpr uint16_t kHeight = 36;

    explicit SimThumbnails(const SimRecordDb& db);
    void attach(SimServer& server);

private:
    bool onRequest(SimServer& s, const SimMessage& m);

    const SimRecordDb& m_db;
};
