#pragma once
// Moves the "tr" entries of a parsed language file into a text table. Every "tr" element
// anywhere in the tree is taken; other elements are walked through.
#include "runtime/VyHash.h"
#include "runtime/VyString.h"

#include <cstdint>
#include <tinyxml.h>

class VyXmlVisitor : public TiXmlVisitor {
public:
    using TextTable = VyHash<uint32_t, VyString>;

    // Text IDs above this are refused: the catalogue's ranges stay far below it.
    static constexpr int64_t kMaxTextId = 9999999;

    explicit VyXmlVisitor(TextTable* table)
        : m_table(table) {}

    // Always continues the walk, whatever the element.
    bool VisitEnter(const TiXmlElement& element, const TiXmlAttribute* firstAttribute) override;

    int takenCount() const { return m_taken; }
    int skippedCount() const { return m_skipped; }

private:
    TextTable* m_table;
    int m_taken = 0;
    int m_skipped = 0;
};
