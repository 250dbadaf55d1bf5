// Rendering and the glyph cache of VyFontEngine.
#include "runtime/VyFontEngine.h"

#include "runtime/VyLog.h"

#include <ft2build.h>
#include FT_FREETYPE_H

#include <algorithm>
#include <cstddef>

namespace {

// What one cache entry costs besides its coverage bytes: the list node, the index node
// and the glyph record, in bytes (an estimate of the allocator's share).
constexpr size_t kEntryOverheadBytes = 96;

uint64_t cacheKey(char32_t codePoint, int pixelSize) {
    return (static_cast<uint64_t>(static_cast<uint32_t>(pixelSize)) << 32) | codePoint;
}

size_t entryCost(const VyGlyph& glyph) {
    return glyph.coverage.size() + kEntryOverheadBytes;
}

// Copies an 8-bit grey or 1-bit mono FreeType bitmap into a tightly packed coverage buffer.
bool copyCoverage(const FT_Bitmap& bitmap, VyGlyph* out) {
    const int width = static_cast<int>(bitmap.width);
    const int height = static_cast<int>(bitmap.rows);
    out->coverage.assign(static_cast<size_t>(width) * static_cast<size_t>(height), 0);
    if (width == 0 || height == 0)
        return true;
    // A negative pitch stores the rows bottom-up from buffer: the glyph's top row is the last
    // one in memory, and adding the pitch still moves one row down the glyph.
    const int pitch = bitmap.pitch;
    const unsigned char* firstRow =
        pitch >= 0 ? bitmap.buffer : bitmap.buffer + static_cast<ptrdiff_t>(-pitch) * (height - 1);
    for (int y = 0; y < height; ++y) {
        const unsigned char* src = firstRow + static_cast<ptrdiff_t>(pitch) * y;
        uint8_t* dst = out->coverage.data() + static_cast<size_t>(y) * width;
        switch (bitmap.pixel_mode) {
        case FT_PIXEL_MODE_GRAY: {
            // Grey strikes may have fewer than 256 levels; spread them over 0..255.
            const int maxLevel = bitmap.num_grays > 1 ? bitmap.num_grays - 1 : 255;
            for (int x = 0; x < width; ++x)
                dst[x] = static_cast<uint8_t>(
                    maxLevel == 255 ? src[x] : std::min(255, src[x] * 255 / maxLevel));
            break;
        }
        case FT_PIXEL_MODE_MONO:
            for (int x = 0; x < width; ++x)
                dst[x] = (src[x >> 3] & (0x80 >> (x & 7))) ? 255 : 0;
            break;
        default:
            return false;
        }
    }
    return true;
}

} // namespace

bool VyFontEngine::render(char32_t codePoint, VyGlyph* out) {
    FT_FaceRec_* face = m_face.get();
    const FT_Error error = FT_Load_Char(face, codePoint, FT_LOAD_DEFAULT | FT_LOAD_RENDER);
    if (error) {
        VY_DEBUG("font", "U+%04X at %d px does not load (error %d)",
                 static_cast<unsigned>(codePoint), m_facePixelSize, error);
        return false;
    }
    const FT_GlyphSlot slot = face->glyph;
    out->width = static_cast<int>(slot->bitmap.width);
    out->height = static_cast<int>(slot->bitmap.rows);
    out->left = slot->bitmap_left;
    out->top = slot->bitmap_top;
    out->advance = static_cast<int>((slot->advance.x + 32) >> 6);
    if (!copyCoverage(slot->bitmap, out)) {
        // Colour or LCD strikes: keep the advance so that text still lays out, draw no ink.
        VY_DEBUG("font", "U+%04X: pixel mode %d is not drawn", static_cast<unsigned>(codePoint),
                 slot->bitmap.pixel_mode);
        out->width = out->height = 0;
        out->coverage.clear();
    }
    ++m_renderCount;
    return true;
}

const VyGlyph* VyFontEngine::glyph(char32_t codePoint, int pixelSize) {
    if (!m_face)
        return nullptr;
    if (pixelSize <= 0 || pixelSize > kMaxPixelSize) {
        VY_DEBUG("font", "pixel size %d out of range", pixelSize);
        return nullptr;
    }
    const uint64_t key = cacheKey(codePoint, pixelSize);
    auto found = m_index.find(key);
    if (found != m_index.end()) {
        m_lru.splice(m_lru.begin(), m_lru, found->second);
        return &found->second->glyph;
    }

    if (!selectPixelSize(pixelSize))
        return nullptr;
    VyGlyph rendered;
    if (!render(codePoint, &rendered))
        return nullptr;
    const size_t cost = entryCost(rendered);
    evictFor(cost);
    m_lru.push_front(CacheEntry{key, std::move(rendered)});
    m_index.emplace(key, m_lru.begin());
    m_cacheBytes += cost;
    return &m_lru.front().glyph;
}

void VyFontEngine::evictFor(size_t incomingBytes) {
    while (!m_lru.empty() && m_cacheBytes + incomingBytes > m_cacheBudget) {
        const CacheEntry& victim = m_lru.back();
        m_cacheBytes -= entryCost(victim.glyph);
        m_index.erase(victim.key);
        m_lru.pop_back();
    }
}

void VyFontEngine::setCacheBudget(size_t bytes) {
    m_cacheBudget = bytes;
    evictFor(0);
}

void VyFontEngine::clearCache() {
    m_index.clear();
    m_lru.clear();
    m_cacheBytes = 0;
}
