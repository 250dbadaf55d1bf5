#include "SimParamStore.h"

#include "protocol/ByteOrder.h"

#include <cstdio>
#include <cstring>

namespace {

constexpr char kMagic[4] = {'V', 'Y', 'P', 'S'};

void appendLe32(std::vector<uint8_t>& out, uint32_t v) {
    uint8_t bytes[4];
    ByteOrder::storeLe32(bytes, v);
    out.insert(out.end(), bytes, bytes + sizeof bytes);
}

} // namespace

bool SimParamStore::load(std::string* error) {
    if (m_path.empty())
        return true;
    FILE* f = std::fopen(m_path.c_str(), "rb");
    if (f == nullptr)
        return true;
    std::vector<uint8_t> bytes;
    uint8_t chunk[4096];
    size_t n;
    while ((n = std::fread(chunk, 1, sizeof chunk, f)) > 0)
        bytes.insert(bytes.end(), chunk, chunk + n);
    std::fclose(f);

    std::lock_guard<std::mutex> lock(m_mutex);
    if (bytes.size() < 4 || std::memcmp(bytes.data(), kMagic, 4) != 0) {
        if (error)
            *error = m_path + ": not a parameter store, ignored";
        return false;
    }
    size_t pos = 4;
    while (pos < bytes.size()) {
        if (bytes.size() - pos < 8) {
            if (error)
                *error = m_path + ": truncated block header at byte " + std::to_string(pos);
            return false;
        }
        const uint32_t block = ByteOrder::loadLe32(&bytes[pos]);
        const uint32_t size = ByteOrder::loadLe32(&bytes[pos + 4]);
        pos += 8;
        if (size > kMaxBlockSize || bytes.size() - pos < size) {
            if (error)
                *error = m_path + ": block " + std::to_string(block) + " of " +
                         std::to_string(size) + " bytes does not fit the file";
            return false;
        }
        m_blocks[block].assign(bytes.begin() + long(pos), bytes.begin() + long(pos + size));
        pos += size;
    }
    return true;
}

bool SimParamStore::contains(uint32_t block) const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_blocks.count(block) != 0;
}

std::vector<uint8_t> SimParamStore::get(uint32_t block, uint32_t size) {
    std::lock_guard<std::mutex> lock(m_mutex);
    auto it = m_blocks.find(block);
    if (it == m_blocks.end()) {
        if (size > kMaxBlockSize)
            return {};
        it = m_blocks.emplace(block, std::vector<uint8_t>(size, 0)).first;
    }
    return it->second;
}

bool SimParamStore::set(uint32_t block, const uint8_t* data, uint32_t size) {
    if (size > kMaxBlockSize)
        return false;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_blocks[block].assign(data, data + size);
    }
    return save();
}

int SimParamStore::eraseIf(const std::function<bool(uint32_t key)>& drop) {
    int erased = 0;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        for (auto it = m_blocks.begin(); it != m_blocks.end();) {
            if (drop(it->first)) {
                it = m_blocks.erase(it);
                ++erased;
            } else {
                ++it;
            }
        }
    }
    save();
    return erased;
}

std::map<uint32_t, std::vector<uint8_t>> SimParamStore::all() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_blocks;
}

void SimParamStore::replaceAll(std::map<uint32_t, std::vector<uint8_t>> blocks) {
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_blocks = std::move(blocks);
    }
    save();
}

bool SimParamStore::setByte(uint32_t block, uint32_t offset, uint8_t value) {
    if (offset >= kMaxBlockSize)
        return false;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        std::vector<uint8_t>& b = m_blocks[block];
        if (b.size() <= offset)
            b.resize(offset + 1, 0);
        b[offset] = value;
    }
    return save();
}

bool SimParamStore::save() {
    if (m_path.empty())
        return true;
    std::vector<uint8_t> out(kMagic, kMagic + 4);
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        for (const auto& [block, bytes] : m_blocks) {
            appendLe32(out, block);
            appendLe32(out, uint32_t(bytes.size()));
            out.insert(out.end(), bytes.begin(), bytes.end());
        }
    }
    // Written aside and renamed, so a crash never leaves half a store.
    const std::string tmp = m_path + ".tmp";
    FILE* f = std::fopen(tmp.c_str(), "wb");
    if (f == nullptr)
        return false;
    const bool ok = std::fwrite(out.data(), 1, out.size(), f) == out.size();
    const bool closed = std::fclose(f) == 0;
    return ok && closed && std::rename(tmp.c_str(), m_path.c_str()) == 0;
}
