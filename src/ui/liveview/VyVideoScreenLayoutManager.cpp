#include "ui/liveview/VyVideoScreenLayoutManager.h"

#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "ui/liveview/VyVideoScreenLayout.h"

#include <initializer_list>

namespace {

struct Merge {
    int row;
    int column;
    int size;
};

struct LayoutRow {
    const char* name;
    uint8_t rows;
    uint8_t columns;
    std::initializer_list<Merge> merges;
};

// In creation order: the identifier is the row's position. The two non-square layouts come
// last so that adding them moved no identifier a saved setting refers to.
const LayoutRow kCatalogue[] = {
    {"1", 1, 1, {}},
    {"4", 2, 2, {}},
    {"6", 3, 3, {{0, 0, 2}}},
    {"8", 4, 4, {{0, 0, 3}}},
    {"9", 3, 3, {}},
    {"10", 4, 4, {{0, 0, 2}, {0, 2, 2}}},
    {"10-1", 5, 5, {{0, 0, 4}}},
    {"12", 3, 4, {}},
    {"13", 4, 4, {{1, 1, 2}}},
    {"13-1", 5, 5, {{0, 0, 2}, {0, 2, 2}, {2, 0, 2}, {2, 2, 2}}},
    {"14", 5, 5, {{0, 0, 3}, {0, 3, 2}}},
    {"16", 4, 4, {}},
    {"17", 5, 5, {{0, 0, 3}}},
    {"19", 5, 5, {{0, 0, 2}, {0, 2, 2}}},
    {"20", 4, 5, {}},
    {"22", 5, 5, {{0, 0, 2}}},
    {"25", 5, 5, {}},
    {"32", 7, 7, {{0, 0, 2}, {0, 2, 2}, {2, 0, 2}, {2, 2, 3}}},
    {"36", 6, 6, {}},
    {"42", 6, 7, {}},
    {"49", 7, 7, {}},
    {"56", 7, 8, {}},
    {"64", 8, 8, {}},
    {"6", 3, 2, {}},
    {"2", 1, 2, {}},
};
static_assert(sizeof kCatalogue / sizeof kCatalogue[0] == VyVideoScreenLayoutManager::kLayoutCount);

// Channel counts offered to the user, one per identifier 0..22.
const int kCounts[] = {1,  4,  6,  8,  9,  10, 10, 12, 13, 13, 14, 16,
                       17, 19, 20, 22, 25, 32, 36, 42, 49, 56, 64};
static_assert(sizeof kCounts / sizeof kCounts[0] == VyVideoScreenLayoutManager::kCountListSize);

} // namespace

VyVideoScreenLayoutManager* VyVideoScreenLayoutManager::instance() {
    // Immutable once built and shared for the whole process.
    static VyVideoScreenLayoutManager* catalogue = new VyVideoScreenLayoutManager;
    return catalogue;
}

VyVideoScreenLayoutManager::VyVideoScreenLayoutManager() {
    int id = 0;
    for (const LayoutRow& row : kCatalogue) {
        auto* layout = new VyVideoScreenLayout(row.rows, row.columns, this);
        for (const Merge& m : row.merges)
            layout->mergeCells(m.row, m.column, m.size);
        m_layouts.push_back(layout);
        m_ids.push_back(id++);
        m_names.emplace_back(row.name);
    }
    m_counts.assign(std::begin(kCounts), std::end(kCounts));
}

VyVideoScreenLayout* VyVideoScreenLayoutManager::layoutAt(int index) const {
    if (index < 0 || index >= int(m_layouts.size()))
        return m_layouts.front();
    return m_layouts[size_t(index)];
}

int VyVideoScreenLayoutManager::indexOf(const VyVideoScreenLayout* layout) const {
    for (size_t i = 0; i < m_layouts.size(); ++i) {
        if (m_layouts[i] == layout)
            return int(i);
    }
    return -1;
}

int VyVideoScreenLayoutManager::positionOfId(int id) const {
    for (size_t i = 0; i < m_ids.size(); ++i) {
        if (m_ids[i] == id)
            return int(i);
    }
    return -1;
}

VyVideoScreenLayout* VyVideoScreenLayoutManager::layoutById(int id) const {
    const int i = positionOfId(id);
    return i < 0 ? nullptr : m_layouts[size_t(i)];
}

int VyVideoScreenLayoutManager::idAt(int index) const {
    if (index < 0 || index >= int(m_ids.size()))
        return m_ids.front();
    return m_ids[size_t(index)];
}

int VyVideoScreenLayoutManager::cellCountOf(int id) const {
    const VyVideoScreenLayout* layout = layoutById(id);
    return layout ? layout->cellCount() : 0;
}

int VyVideoScreenLayoutManager::countAt(int index) const {
    if (index < 0 || index >= int(m_counts.size()))
        return 1;
    return m_counts[size_t(index)];
}

VyString VyVideoScreenLayoutManager::name(int id) const {
    const int i = positionOfId(id);
    return i < 0 ? VyString() : m_names[size_t(i)];
}

VyString VyVideoScreenLayoutManager::displayText(int id) const {
    const int i = positionOfId(id);
    if (i < 0)
        return VyString();
    return VyTranslation::tr(TextId::LiveView::SplitLayout).arg(m_names[size_t(i)]);
}

int VyVideoScreenLayoutManager::findLayoutForCount(int minimum, bool allowMerged) const {
    for (size_t i = 0; i < m_layouts.size(); ++i) {
        const VyVideoScreenLayout* layout = m_layouts[i];
        if (layout->cellCount() >= minimum && (allowMerged || !layout->isMerged()))
            return m_ids[i];
    }
    return 0;
}
