#pragma once
// A face search and its results. App answers in pages; the results are fetched page by page
// as the grid reaches them, so a search over weeks with thousands of hits costs one page
// until the user scrolls.
#include "protocol/FaceSearchRequest.h"
#include "toolkit/core/VyObject.h"

#include <cstdint>
#include <map>
#include <optional>
#include <vector>

class FaceSearchModel : public VyObject {
    VY_OBJECT(FaceSearchModel, VyObject)
public:
    static constexpr uint32_t kPageSize = FaceSearchRequest::kMaxPerPage;
    // Most hits the grid offers, whatever total App claims.
    static constexpr uint32_t kMaxHits = 5000;

    struct Criteria {
        uint32_t sourceKind = FaceSearchRequest::kLibraryFace;
        uint32_t sourceId = 0;
        int64_t from = 0; // seconds since the epoch, local time
        int64_t to = 0;
        uint64_t channelMask = 0;
        uint32_t threshold = 70; // percent
    };

    explicit FaceSearchModel(VyObject* parent = nullptr);
    ~FaceSearchModel() override;

    // Starts a search and fetches its first page; false for criteria App cannot take
    // (empty range, no channel, threshold above 100) or a broken answer.
    bool search(const Criteria& criteria);
    const Criteria& criteria() const { return m_criteria; }
    int total() const { return int(m_total); }
    // The hit at `index`, fetching its page first; nullopt beyond the total, for a page App
    // did not answer, or for a hit that does not match the search (logged once).
    std::optional<FaceSearchHit> hit(int index);
    int pagesFetched() const { return int(m_pages.size()); }
    void clear();

    VySignal resultsChanged;

private:
    bool fetchPage(uint32_t page);

    Criteria m_criteria;
    uint32_t m_total = 0;
    std::map<uint32_t, std::vector<std::optional<FaceSearchHit>>> m_pages;
};
