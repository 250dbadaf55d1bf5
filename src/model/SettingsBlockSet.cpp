#include "model/SettingsBlockSet.h"

#include "model/ParamAccess.h"

int SettingsBlockSet::declare(uint32_t number, uint32_t size, uint8_t index) {
    Block b;
    b.number = number;
    b.size = size;
    b.index = index;
    // The page reads records in place as structs; new[] storage is aligned for any of them.
    b.saved.assign(size, 0);
    b.edit.assign(size, 0);
    m_blocks.push_back(std::move(b));
    return int(m_blocks.size()) - 1;
}

void SettingsBlockSet::setIndex(int slot, uint8_t index) {
    Block& b = m_blocks[size_t(slot)];
    b.index = index;
    b.fetched = false;
}

void SettingsBlockSet::fetch(Block& b) {
    ParamAccess::getParam(b.number, b.saved.data(), b.size, b.index);
    b.fetched = true;
    ++m_fetches;
}

void SettingsBlockSet::fetchAll() {
    for (int i = 0; i < count(); ++i)
        fetchOne(i);
}

void SettingsBlockSet::fetchOne(int slot) {
    Block& b = m_blocks[size_t(slot)];
    fetch(b);
    b.edit = b.saved;
}

int SettingsBlockSet::writeChanged() {
    int sent = 0;
    for (Block& b : m_blocks) {
        if (b.edit == b.saved)
            continue;
        ParamAccess::setParam(b.number, b.edit.data(), b.size);
        b.saved = b.edit;
        ++sent;
    }
    return sent;
}

bool SettingsBlockSet::isModified(int slot) const {
    const Block& b = m_blocks[size_t(slot)];
    return b.edit != b.saved;
}

bool SettingsBlockSet::isModified() const {
    for (int i = 0; i < count(); ++i)
        if (isModified(i))
            return true;
    return false;
}

void SettingsBlockSet::revert() {
    for (Block& b : m_blocks)
        b.edit = b.saved;
}

bool SettingsBlockSet::refresh(uint32_t number) {
    bool found = false;
    for (Block& b : m_blocks) {
        if (b.number != number)
            continue;
        found = true;
        const std::vector<uint8_t> before = b.saved;
        fetch(b);
        for (size_t i = 0; i < b.size; ++i)
            if (b.edit[i] == before[i])
                b.edit[i] = b.saved[i];
    }
    return found;
}
