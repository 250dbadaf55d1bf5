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

// Pixel size (10 bits suffice for 1..512), face slot + 1 (0 = the missing box) and glyph index.
uint64_t cacheKey(int face, uint32_t glyphIndex, int pixelSize) {
    return (static_cast<uint64_t>(static_cast<uint32_t>(pixelSize)) << 40) |
           (static_cast<uint64_t>(static_cast<uint32_t>(face + 1) & 0xFF) << 32) | glyphIndex;
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

bool VyFontEngine::render(int face, uint32_t glyphIndex, VyGlyph* out) {
    FT_FaceRec_* ft = m_faces[size_t(face)].ft.get();
    const FT_Error error = FT_Load_Glyph(ft, glyphIndex, FT_LOAD_DEFAULT | FT_LOAD_RENDER);
    if (error) {
        VY_DEBUG("font", "glyph %u of face %d at %d px does not load (error %d)", glyphIndex, face,
                 m_faces[size_t(face)].pixelSize, error);
        return false;
    }
    const FT_GlyphSlot slot = ft->glyph;
    out->width = static_cast<int>(slot->bitmap.width);
    out->height = static_cast<int>(slot->bitmap.rows);
    out->left = slot->bitmap_left;
    out->top = slot->bitmap_top;
    out->advance = static_cast<int>((slot->advance.x + 32) >> 6);
    if (!copyCoverage(slot->bitmap, out)) {
        // Colour or LCD strikes: keep the advance so that text still lays out, draw no ink.
        VY_DEBUG("font", "glyph %u: pixel mode %d is not drawn", glyphIndex,
                 slot->bitmap.pixel_mode);
        out->width = out->height = 0;
        out->coverage.clear();
    }
    ++m_renderCount;
    return true;
}

// An outlined box, as tall as a capital and a little narrower than a square: what a code
// point that no font has looks like, so that a missing text is seen rather than guessed.
void VyFontEngine::makeMissingBox(int pixelSize, VyGlyph* out) {
    const int ascent = std::max(1, lineMetrics(pixelSize).ascent);
    const int w = std::max(3, pixelSize * 5 / 10);
    const int h = std::max(3, ascent * 8 / 10);
    const int line = std::max(1, pixelSize / 14);
    out->width = w;
    out->height = h;
    out->left = std::max(1, pixelSize / 12);
    out->top = h;
    out->advance = w + 2 * out->left;
    out->coverage.assign(static_cast<size_t>(w) * h, 0);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x)
            if (x < line || y < line || x >= w - line || y >= h - line)
                out->coverage[static_cast<size_t>(y) * w + x] = 255;
}

const VyGlyph* VyFontEngine::cacheGlyph(uint64_t key, VyGlyph&& glyph) {
    const size_t cost = entryCost(glyph);
    evictFor(cost);
    m_lru.push_front(CacheEntry{key, std::move(glyph)});
    m_index.emplace(key, m_lru.begin());
    m_cacheBytes += cost;
    return &m_lru.front().glyph;
}

const VyGlyph* VyFontEngine::glyphByIndex(int face, uint32_t glyphIndex, int pixelSize) {
    if (!m_face)
        return nullptr;
    if (pixelSize <= 0 || pixelSize > kMaxPixelSize) {
        VY_DEBUG("font", "pixel size %d out of range", pixelSize);
        return nullptr;
    }
    if (face != kNoFace && (face < 0 || face >= faceCount()))
        return nullptr;
    const uint64_t key = cacheKey(face, glyphIndex, pixelSize);
    auto found = m_index.find(key);
    if (found != m_index.end()) {
        m_lru.splice(m_lru.begin(), m_lru, found->second);
        return &found->second->glyph;
    }
    VyGlyph rendered;
    if (face == kNoFace) {
        makeMissingBox(pixelSize, &rendered);
    } else {
        if (!selectPixelSize(face, pixelSize))
            return nullptr;
        if (!render(face, glyphIndex, &rendered))
            return nullptr;
    }
    return cacheGlyph(key, std::move(rendered));
}

const VyGlyph* VyFontEngine::glyph(char32_t codePoint, int pixelSize) {
    if (!m_face)
        return nullptr;
    // Index 0 is the font's own missing-glyph box.
    return glyphByIndex(0, FT_Get_Char_Index(m_face, codePoint), pixelSize);
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
