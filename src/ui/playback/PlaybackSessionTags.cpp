#include "ui/playback/PlaybackSession.h"

#include "model/RecDataManager.h"
#include "model/RecordSearchReply.h"
#include "protocol/ThumbnailRequest.h"
#include "runtime/VyLog.h"

bool PlaybackSession::searchTags(const VyDateTime& from, const VyDateTime& to,
                                 const std::string& keyword, const std::vector<int>& channels) {
    RecDataManager* m = RecDataManager::instance();
    if (m == nullptr || !m->searchTag(from, to, keyword, channels))
        return false;
    m_tagSearchPending = true;
    m_tags.clear();
    return true;
}

bool PlaybackSession::addTag(int channel, const VyDateTime& time, const std::string& name) {
    RecDataManager* m = RecDataManager::instance();
    return m != nullptr && m->addTag(channel, time, name);
}

bool PlaybackSession::requestThumbnails(int channel, const VyDateTime& from, const VyDateTime& to,
                                        int count) {
    if (channel == m_thumbnailChannel && from == m_thumbnailFrom && to == m_thumbnailTo &&
        count == m_thumbnailCount)
        return true;
    RecDataManager* m = RecDataManager::instance();
    if (m == nullptr || count <= 0 || !m->requestThumbnails(channel, from, to, uint32_t(count)))
        return false;
    m_thumbnailChannel = channel;
    m_thumbnailFrom = from;
    m_thumbnailTo = to;
    m_thumbnailCount = count;
    m_thumbnails.clear();
    return true;
}

void PlaybackSession::onTags(const uint8_t* body, size_t len) {
    // An answer nobody waits for (a search of a window closed since) is not shown.
    if (!m_tagSearchPending)
        return;
    auto tags = RecordSearchReply::parseTags(body, len);
    if (!tags)
        return;
    m_tagSearchPending = false;
    m_tags = std::move(*tags);
    emitSignal(this, &tagsFound);
}

void PlaybackSession::onThumbnails(const uint8_t* body, size_t len) {
    if (m_thumbnailChannel < 0)
        return;
    auto pictures = RecordSearchReply::parseThumbnails(body, len, m_thumbnailChannel);
    if (!pictures)
        return;
    m_thumbnails = std::move(*pictures);
    emitSignal(this, &thumbnailsArrived);
}
