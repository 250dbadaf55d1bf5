#pragma once
// The process-wide FreeType engine: one font file, rendered at any pixel size, with a
// byte-bounded LRU cache of the rendered glyphs.
//
// GUI thread only: FreeType faces are not thread-safe and the cache is unlocked. Other
// threads measure or draw text by posting to the GUI thread.
#include "runtime/VyGlobal.h"
#include "runtime/VyGlyph.h"
#include "runtime/VyString.h"

#include <cstddef>
#include <cstdint>
#include <list>
#include <memory>
#include <unordered_map>
#include <vector>

struct FT_LibraryRec_;
struct FT_FaceRec_;

class VyFontEngine {
public:
    // What the device reserves in memory for the font file, in bytes.
    static constexpr int64_t kDeviceFontReserveBytes = 5242880;
    // Rendered glyph bytes the cache keeps before it evicts the least recently used.
    static constexpr size_t kDefaultCacheBudgetBytes = size_t(2) * 1024 * 1024;
    // Larger requests are refused: a glyph bitmap grows with the square of the size.
    static constexpr int kMaxPixelSize = 512;

    VyFontEngine();
    ~VyFontEngine();
    VY_DISABLE_COPY_MOVE(VyFontEngine)

    static VyFontEngine& instance();

    // Loads the font file (TrueType, OpenType or a collection, whose first face is used)
    // into memory, reading at most reservedBytes. A missing file, a file larger than the
    // reserve or a file FreeType does not take logs one line and leaves the engine
    // invalid: metrics answer 0 and glyph() answers null. Drops every cached glyph.
    bool setFontFile(const VyString& path, int64_t reservedBytes);
    bool isValid() const { return m_face != nullptr; }
    const VyString& fontFile() const { return m_fontFile; }
    int64_t reservedBytes() const { return m_reservedBytes; }

    // The rendered glyph, from the cache or freshly rendered; null with no valid font or
    // a pixel size outside 1..kMaxPixelSize. A code point the font lacks renders the
    // font's missing-glyph box. The pointer stays valid until the next glyph() call
    // (which may evict it), clearCache() or setFontFile(): draw one glyph at a time.
    const VyGlyph* glyph(char32_t codePoint, int pixelSize);

    // Line metrics in whole pixels; descent is positive; height = ascent + descent.
    int ascent(int pixelSize);
    int descent(int pixelSize);
    int height(int pixelSize);

    // The cache budget counts coverage bytes plus a fixed overhead per entry. A single
    // glyph larger than the budget is still returned, alone in the cache.
    void setCacheBudget(size_t bytes);
    size_t cacheBudget() const { return m_cacheBudget; }
    size_t cacheBytes() const { return m_cacheBytes; }
    int cachedGlyphCount() const { return static_cast<int>(m_lru.size()); }
    // Glyphs rendered through FreeType since construction: a cache miss counts one.
    int64_t renderCount() const { return m_renderCount; }
    void clearCache();

private:
    struct LineMetrics {
        int ascent = 0;
        int descent = 0;
    };
    struct CacheEntry {
        uint64_t key;
        VyGlyph glyph;
    };
    struct LibraryDeleter {
        void operator()(FT_LibraryRec_* library) const;
    };
    struct FaceDeleter {
        void operator()(FT_FaceRec_* face) const;
    };

    bool selectPixelSize(int pixelSize);
    bool render(char32_t codePoint, VyGlyph* out);
    LineMetrics lineMetrics(int pixelSize);
    void evictFor(size_t incomingBytes);
    void unloadFont();

    std::unique_ptr<FT_LibraryRec_, LibraryDeleter> m_library;
    // The face reads from m_fontData for its whole life; the face goes first.
    std::vector<uint8_t> m_fontData;
    std::unique_ptr<FT_FaceRec_, FaceDeleter> m_face;
    VyString m_fontFile;
    int64_t m_reservedBytes = kDeviceFontReserveBytes;
    int m_facePixelSize = 0; // the size last set on the face, 0 = none

    // Most recently used at the front. List nodes keep the glyph addresses stable.
    std::list<CacheEntry> m_lru;
    std::unordered_map<uint64_t, std::list<CacheEntry>::iterator> m_index;
    std::unordered_map<int, LineMetrics> m_lineMetrics;
    size_t m_cacheBudget = kDefaultCacheBudgetBytes;
    size_t m_cacheBytes = 0;
    int64_t m_renderCount = 0;
};
