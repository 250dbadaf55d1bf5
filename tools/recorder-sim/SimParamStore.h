#pragma once
// The simulated recorder's parameter blocks, kept by number and written to a file after each
// change so that settings survive a restart. File: "VYPS", then per block its number and
// size (u32 little-endian each) and its bytes.
#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <vector>

class SimParamStore {
public:
    static constexpr uint32_t kMaxBlockSize = 1u << 20; // bytes; a larger size is refused

    // Empty path: nothing persists.
    explicit SimParamStore(std::string path = {})
        : m_path(std::move(path)) {}

    // Reads the file; a missing file is an empty store. A damaged file keeps the blocks read
    // before the damage and says so in `error`.
    bool load(std::string* error);
    // The block, or `size` zero bytes (kept from now on) when it was never stored.
    std::vector<uint8_t> get(uint32_t block, uint32_t size);
    bool contains(uint32_t block) const;
    // Stores and persists; false (nothing changed) when the size is above the limit.
    bool set(uint32_t block, const uint8_t* data, uint32_t size);
    // Forgets every block whose key `drop` answers true for (a get then answers factory
    // values again); persists. Answers how many went.
    int eraseIf(const std::function<bool(uint32_t key)>& drop);
    // Every block by key, and all of them replaced at once (a configuration file).
    std::map<uint32_t, std::vector<uint8_t>> all() const;
    void replaceAll(std::map<uint32_t, std::vector<uint8_t>> blocks);
    // One byte of a block (grown with zeros when needed); persists.
    bool setByte(uint32_t block, uint32_t offset, uint8_t value);

private:
    bool save();
    std::string m_path;
    mutable std::mutex m_mutex; // guards m_blocks; the console and the server thread share it
    std::map<uint32_t, std::vector<uint8_t>> m_blocks;
};
