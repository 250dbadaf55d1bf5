#include "model/FaceSearchModel.h"

#include "model/FaceReply.h"
#include "model/RecorderLink.h"
#include "protocol/MainType.h"
#include "protocol/SubType.h"
#include "runtime/VyLog.h"

#include <algorithm>

namespace {

constexpr uint32_t kMaxChannels = 64; // bits of the channel mask
constexpr uint32_t kMaxPercent = 100;

} // namespace

FaceSearchModel::FaceSearchModel(VyObject* parent)
    : VyObject(parent) {}

FaceSearchModel::~FaceSearchModel() = default;

void FaceSearchModel::clear() {
    m_total = 0;
    m_pages.clear();
    emitSignal(this, &resultsChanged);
}

bool FaceSearchModel::search(const Criteria& criteria) {
    m_pages.clear();
    m_total = 0;
    m_criteria = criteria;
    bool ok = criteria.from < criteria.to && criteria.channelMask != 0 &&
              criteria.threshold <= kMaxPercent;
    if (!ok)
        VY_GUI_LOG("face search refused: range %lld-%lld, channels %llx, threshold %u\n",
                   static_cast<long long>(criteria.from), static_cast<long long>(criteria.to),
                   static_cast<unsigned long long>(criteria.channelMask), criteria.threshold);
    else
        ok = fetchPage(0);
    emitSignal(this, &resultsChanged);
    return ok;
}

bool FaceSearchModel::fetchPage(uint32_t page) {
    RecorderLink* link = RecorderLink::instance();
    if (link == nullptr)
        return false;
    FaceSearchRequest request;
    request.sourceKind = m_criteria.sourceKind;
    request.sourceId = m_criteria.sourceId;
    request.from = m_criteria.from;
    request.to = m_criteria.to;
    request.channelMask = m_criteria.channelMask;
    request.threshold = m_criteria.threshold;
    request.first = page * kPageSize;
    request.max = kPageSize;
    std::vector<uint8_t> reply;
    link->request(MainType::Analytics, FaceSubType::Search, &request, sizeof request, reply);
    auto answer = FaceReply::parseHits(reply.data(), reply.size(), request.max);
    if (!answer) {
        // Remembered empty, so a repaint does not ask again for every cell.
        m_pages[page];
        return false;
    }
    if (page == 0)
        m_total = std::min(answer->total, kMaxHits);
    std::vector<std::optional<FaceSearchHit>>& hits = m_pages[page];
    for (const FaceSearchHit& h : answer->items) {
        const bool fits = h.channel < kMaxChannels &&
                          (m_criteria.channelMask & (uint64_t(1) << h.channel)) != 0 &&
                          h.time >= m_criteria.from && h.time < m_criteria.to &&
                          h.similarity >= m_criteria.threshold && h.similarity <= kMaxPercent;
        if (!fits)
            VY_GUI_LOG("face search: hit on CH%u at %lld (%u%%) outside the search, not shown\n",
                       h.channel + 1, static_cast<long long>(h.time), h.similarity);
        hits.push_back(fits ? std::optional<FaceSearchHit>(h) : std::nullopt);
    }
    return true;
}

std::optional<FaceSearchHit> FaceSearchModel::hit(int index) {
    if (index < 0 || uint32_t(index) >= m_total)
        return std::nullopt;
    const uint32_t page = uint32_t(index) / kPageSize;
    auto it = m_pages.find(page);
    if (it == m_pages.end()) {
        fetchPage(page);
        it = m_pages.find(page);
        if (it == m_pages.end())
            return std::nullopt;
    }
    const uint32_t at = uint32_t(index) % kPageSize;
    return at < it->second.size() ? it->second[at] : std::nullopt;
}
