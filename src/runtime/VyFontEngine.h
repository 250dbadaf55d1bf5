#pragma once
// The process-wide FreeType engine: the device font, then a list of fallback fonts, all
// mapped from their files (the fallbacks opened on first need) (a script the device font lacks is
// drawn from the first fallback that has it), rendered at any pixel size, with a byte-bounded LRU
// cache of the rendered glyphs. Text is shaped into positioned glyphs by the shaper it owns.
//
// GUI thread only: FreeType faces are not thread-safe and the cache is unlocked. Other
// threads measure or draw text by posting to the GUI thread.
#include "runtime/VyGlobal.h"
#include "runtime/VyGlyph.h"
#include "runtime/VyMapping.h"
#include "runtime/VyString.h"

#include <cstddef>
#include <cstdint>
#include <list>
#include <memory>
#include <unordered_map>
#include <vector>

struct FT_LibraryRec_;
struct FT_FaceRec_;
struct hb_font_t;
class VyTextShaper;

class VyFontEngine {
public:
    // What the device reserves in memory for the font file, in bytes: a larger file is
    // refused.
    static constexpr int64_t kDeviceFontReserveBytes = 5242880;
    // Rendered glyph bytes the cache keeps before it evicts the least recently used.
    static constexpr size_t kDefaultCacheBudgetBytes = size_t(2) * 1024 * 1024;
    // Larger requests are refused: a glyph bitmap grows with the square of the size.
    static constexpr int kMaxPixelSize = 512;
    // Larger fallback files are refused (the largest CJK collections are a few tens of MB).
    static constexpr int64_t kMaxFallbackBytes = int64_t(64) * 1024 * 1024;
    // The device font and at most this many fallbacks.
    static constexpr int kMaxFaces = 32;
    // The face index of a code point no font has: drawn as a box.
    static constexpr int kNoFace = -1;

    VyFontEngine();
    ~VyFontEngine();
    VY_DISABLE_COPY_MOVE(VyFontEngine)

    static VyFontEngine& instance();

    // Opens the font file (TrueType, OpenType or a collection, whose first face is used),
    // mapped, not read, and at most reservedBytes long. A missing file, a file larger than the
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

    // ---- Fallback fonts ----
    // Replaces the fallback list by the fonts of `paths`, in order. One that is missing is
    // logged and left out at once; the others are opened from their files (FreeType maps
    // them; nothing is copied into memory) when a text first needs a code point the faces
    // before them lack, and one that proves broken then is logged and skipped from then on.
    // Returns how many were taken.
    int setFallbackFonts(const std::vector<VyString>& paths);
    // Reads the fallback list: one font path a line, relative paths resolved against
    // `baseDir`, '#' starts a comment. A missing list leaves no fallbacks (logged).
    int loadFallbackList(const VyString& listFile, const VyString& baseDir);
    // Faces usable for text: the device font (0), then the fallbacks.
    int faceCount() const { return static_cast<int>(m_faces.size()); }
    // The glyph index of `codePoint` in face `face` (opened if it was not yet); 0 when the
    // face lacks it or can not be opened.
    uint32_t glyphIndex(int face, char32_t codePoint);
    // The rendered glyph `glyphIndex` of face `face`, cached like glyph(); face kNoFace
    // answers the missing-glyph box for that pixel size.
    const VyGlyph* glyphByIndex(int face, uint32_t glyphIndex, int pixelSize);
    // The HarfBuzz font of a face with its size set to pixelSize; null when unusable.
    hb_font_t* shapingFont(int face, int pixelSize);
    VyTextShaper& shaper() { return *m_shaper; }

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
    struct HbFontDeleter {
        void operator()(hb_font_t* font) const;
    };

    struct Face {
        VyMapping file; // what ft reads from: declared first, so that it goes last
        std::unique_ptr<FT_FaceRec_, FaceDeleter> ft;
        // Created on first shaping; declared after ft so that it goes first.
        std::unique_ptr<hb_font_t, HbFontDeleter> hb;
        int pixelSize = 0;    // the size last set on the face, 0 = none
        bool hbSized = false; // hb has seen the face's current size
        bool broken = false;  // a fallback whose file FreeType refused when first opened
        VyString path;
    };

    // The face, a fallback opened on first call; null when it can not be used.
    FT_FaceRec_* openedFace(int face);
    bool selectPixelSize(int face, int pixelSize);
    bool render(int face, uint32_t glyphIndex, VyGlyph* out);
    void makeMissingBox(int pixelSize, VyGlyph* out);
    const VyGlyph* cacheGlyph(uint64_t key, VyGlyph&& glyph);
    void dropFallbacks();
    LineMetrics lineMetrics(int pixelSize);
    void evictFor(size_t incomingBytes);
    void unloadFont();

    std::unique_ptr<FT_LibraryRec_, LibraryDeleter> m_library;
    // [0] the device font (null when none is loaded), then the fallbacks.
    std::vector<Face> m_faces;
    FT_FaceRec_* m_face = nullptr; // m_faces[0].ft, the device font
    VyString m_fontFile;
    int64_t m_reservedBytes = kDeviceFontReserveBytes;
    std::unique_ptr<VyTextShaper> m_shaper;

    // Most recently used at the front. List nodes keep the glyph addresses stable.
    std::list<CacheEntry> m_lru;
    std::unordered_map<uint64_t, std::list<CacheEntry>::iterator> m_index;
    std::unordered_map<int, LineMetrics> m_lineMetrics;
    size_t m_cacheBudget = kDefaultCacheBudgetBytes;
    size_t m_cacheBytes = 0;
    int64_t m_renderCount = 0;
};
