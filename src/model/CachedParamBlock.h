#pragma once
// One parameter block as last fetched from App, kept for the screens that read it.
#include <cstdint>
#include <vector>

class CachedParamBlock {
public:
    CachedParamBlock(uint32_t blockNumber, uint32_t size)
        : m_blockNumber(blockNumber)
        , m_size(size) {}

    // Fetches the block now (a request to App); replaces what was cached.
    void load(uint8_t index = 0);
    bool isLoaded() const { return m_loaded; }
    uint32_t blockNumber() const { return m_blockNumber; }
    uint32_t size() const { return m_size; }
    // Zero-filled until the first load.
    const std::vector<uint8_t>& bytes() const { return m_bytes; }
    uint8_t byteAt(uint32_t offset) const { return offset < m_bytes.size() ? m_bytes[offset] : 0; }
    int loadCount() const { return m_loadCount; }

private:
    uint32_t m_blockNumber;
    uint32_t m_size; // bytes
    std::vector<uint8_t> m_bytes = std::vector<uint8_t>(m_size, 0);
    int m_loadCount = 0;
    bool m_loaded = false;
};
