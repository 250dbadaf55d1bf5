#pragma once
// The parameter blocks one settings page shows, each held twice: as App last sent it
// ("saved") and as the page's controls have it ("edit"). The page fetches only the blocks
// it declared, writes back only those whose edit differs, and takes App's changes without
// losing what the user has typed: a refresh replaces only the bytes the user left alone.
#include <cstdint>
#include <cstring>
#include <memory>
#include <vector>

class SettingsBlockSet {
public:
    SettingsBlockSet() = default;
    ~SettingsBlockSet() { *m_alive = false; }
    SettingsBlockSet(const SettingsBlockSet&) = delete;
    SettingsBlockSet& operator=(const SettingsBlockSet&) = delete;

    struct Block {
        uint32_t number = 0;
        uint32_t size = 0; // bytes
        uint8_t index = 0; // channel or sub-index of the get
        std::vector<uint8_t> saved;
        std::vector<uint8_t> edit;
        bool fetched = false;
    };

    // Answers the slot the page addresses the block by.
    int declare(uint32_t number, uint32_t size, uint8_t index = 0);
    template <typename Record>
    int declare(uint8_t index = 0) {
        return declare(Record::kBlockNumber, uint32_t(sizeof(Record)), index);
    }
    int count() const { return int(m_blocks.size()); }
    const Block& block(int slot) const { return m_blocks[size_t(slot)]; }
    // Changes which channel a declared block is fetched for; it is fetched again on the next
    // fetchAll.
    void setIndex(int slot, uint8_t index);

    // Gets every declared block from App (ParamAccess; a short reply is zero-filled) and
    // drops every edit. A get runs the event loop, where the set's owner may be deleted:
    // false when the set went meanwhile (the caller must then touch nothing of its own).
    bool fetchAll();
    // The same for one block.
    bool fetchOne(int slot);
    // Sets every block whose edit differs from what App has; answers how many were sent.
    int writeChanged();
    bool isModified() const;
    bool isModified(int slot) const;
    void revert();
    // App says `number` changed: fetched again, keeping the user's edits. False when the
    // set holds no such block.
    bool refresh(uint32_t number);

    uint8_t* edit(int slot) { return m_blocks[size_t(slot)].edit.data(); }
    template <typename Record>
    Record& editAs(int slot) {
        return *reinterpret_cast<Record*>(edit(slot));
    }
    template <typename Record>
    const Record& savedAs(int slot) const {
        return *reinterpret_cast<const Record*>(m_blocks[size_t(slot)].saved.data());
    }
    // Gets and sets since the set was made (the first-page benchmark counts them).
    int fetchCount() const { return m_fetches; }

private:
    bool fetch(int slot);
    std::vector<Block> m_blocks;
    int m_fetches = 0;
    // Cleared when the set goes; a get that waited for App checks it before storing.
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
};
