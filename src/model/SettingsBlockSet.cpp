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

bool SettingsBlockSet::fetch(int slot) {
    const Block& asked = m_blocks[size_t(slot)];
    // Into a buffer of the call's own: while App answers the event loop runs, and the set,
    // or the page that holds it, may be deleted there.
    std::vector<uint8_t> reply(asked.size, 0);
    const std::shared_ptr<bool> alive = m_alive;
    ParamAccess::getParam(asked.number, reply.data(), asked.size, asked.index);
    if (!*alive)
        return false;
    Block& b = m_blocks[size_t(slot)];
    b.saved = std::move(reply);
    b.fetched = true;
    ++m_fetches;
    return true;
}

bool SettingsBlockSet::fetchAll() {
    for (int i = 0; i < count(); ++i)
        if (!fetchOne(i))
            return false;
    return true;
}

bool SettingsBlockSet::fetchOne(int slot) {
    if (!fetch(slot))
        return false;
    Block& b = m_blocks[size_t(slot)];
    b.edit = b.saved;
    return true;
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
    for (int slot = 0; slot < count(); ++slot) {
        if (m_blocks[size_t(slot)].number != number)
            continue;
        found = true;
        const std::vector<uint8_t> before = m_blocks[size_t(slot)].saved;
        if (!fetch(slot))
            return false;
        Block& b = m_blocks[size_t(slot)];
        for (size_t i = 0; i < b.size; ++i)
            if (b.edit[i] == before[i])
                b.edit[i] = b.saved[i];
    }
    return found;
}
