#pragma once
// A page that edits one block per channel (or per alarm input): a selector row on top, the
// block of the item chosen in the controls below it, every item's block held so that Apply
// sends exactly the items changed. The item's number is the block's first byte on a set.
#include "ui/settings/SettingsPage.h"

#include <vector>

class VySpinBox;

class ChannelPage : public SettingsPage {
    VY_OBJECT(ChannelPage, SettingsPage)
public:
    VySpinBox* selector() const { return m_selector; }
    int shownItem() const { return m_shown; }
    int itemCount() const { return int(m_slots.size()); }

protected:
    // Declares the block once per item and adds the selector row.
    ChannelPage(uint32_t titleId, uint32_t selectorTextId, uint32_t blockNumber, uint32_t blockSize,
                int items, VyWidget* parent);

    // The edit copy of an item's block.
    template <typename Record>
    Record& item(int index) {
        return blocks().editAs<Record>(m_slots[size_t(index)]);
    }
    template <typename Record>
    const Record& savedItem(int index) {
        return blocks().savedAs<Record>(m_slots[size_t(index)]);
    }
    // The shown item's block into the controls, and back.
    virtual void showItem(int index) = 0;
    virtual void collectItem(int index) = 0;

    void showValues() final;
    void collectValues() final;
    void beforeWrite() override;

private:
    void itemChosen();

    std::vector<int> m_slots;
    int m_shown = 0;
    VySpinBox* m_selector;
};
