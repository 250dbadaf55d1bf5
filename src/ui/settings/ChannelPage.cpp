#include "ui/settings/ChannelPage.h"

#include "toolkit/widgets/VySpinBox.h"

ChannelPage::ChannelPage(uint32_t titleId, uint32_t selectorTextId, uint32_t blockNumber,
                         uint32_t blockSize, int items, VyWidget* parent)
    : SettingsPage(titleId, parent) {
    if (items < 1)
        items = 1;
    for (int i = 0; i < items; ++i)
        m_slots.push_back(blocks().declare(blockNumber, blockSize, uint8_t(i)));
    m_selector = new VySpinBox(this);
    m_selector->setRange(1, items);
    addRow(selectorTextId, m_selector);
    VyObject::connect(m_selector, &m_selector->valueChanged, this,
                      VY_SLOT(ChannelPage, itemChosen));
}

void ChannelPage::showValues() {
    m_shown = clampForDisplay(m_selector->value() - 1, 0, itemCount() - 1, "item");
    showItem(m_shown);
}

void ChannelPage::collectValues() {
    if (isOpened())
        collectItem(m_shown);
}

void ChannelPage::beforeWrite() {
    for (size_t i = 0; i < m_slots.size(); ++i)
        if (blocks().isModified(m_slots[i]))
            blocks().edit(m_slots[i])[0] = uint8_t(i);
}

void ChannelPage::itemChosen() {
    if (!isOpened())
        return;
    collectItem(m_shown);
    showValues();
}
