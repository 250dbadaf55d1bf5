#pragma once
// The one catalogue of split layouts that the live view, playback and the preview panels
// share. Built once, on first use, and never changed: switching the split mode picks a
// layout, it never builds one. The layouts are its children; a layout's position in the
// child list is its index, and its identifier is its creation index.
#include "runtime/VyString.h"
#include "toolkit/core/VyObject.h"

#include <vector>

class VyVideoScreenLayout;

class VyVideoScreenLayoutManager : public VyObject {
    VY_OBJECT(VyVideoScreenLayoutManager, VyObject)
public:
    // Layouts in the catalogue, and entries of the channel-count list (identifiers 0..22;
    // the two non-square layouts appended last are not offered by count).
    static constexpr int kLayoutCount = 25;
    static constexpr int kCountListSize = 23;

    static VyVideoScreenLayoutManager* instance();

    int layoutCount() const { return int(m_layouts.size()); }
    // An index outside the catalogue answers the first layout.
    VyVideoScreenLayout* layoutAt(int index) const;
    // -1 for a layout that is not in the catalogue.
    int indexOf(const VyVideoScreenLayout* layout) const;
    // Null for an unknown identifier.
    VyVideoScreenLayout* layoutById(int id) const;
    int idAt(int index) const;
    // 0 for an unknown identifier.
    int cellCountOf(int id) const;
    // 1 outside the list.
    int countAt(int index) const;
    int countListSize() const { return int(m_counts.size()); }
    // The layout's name ("16", "13-1", ...); empty for an unknown identifier.
    VyString name(int id) const;
    // The translated "%1 Split" text with the layout's name; empty for an unknown identifier.
    VyString displayText(int id) const;
    // The first layout in catalogue order with at least `minimum` cells, merged ones only
    // when allowed; 0 when none has enough.
    int findLayoutForCount(int minimum, bool allowMerged) const;

private:
    VyVideoScreenLayoutManager();
    int positionOfId(int id) const;

    std::vector<VyVideoScreenLayout*> m_layouts; // children, in creation order
    std::vector<int> m_ids;
    std::vector<VyString> m_names;
    std::vector<int> m_counts;
};
