#pragma once
// Turns a text into positioned glyphs: the bidirectional order of FriBidi (right-to-left
// runs, their digits and embedded Latin words left to right), HarfBuzz shaping per run
// (Arabic joining, Devanagari conjuncts and vowel signs, Thai marks), and the face of each
// run chosen from the device font and the fallbacks of the font engine. A code point no
// face has becomes a box.
//
// Shaped lines are kept in an LRU cache keyed by text, pixel size and default direction, so
// that repainting an unchanged label does no shaping. GUI thread only, like the engine.
#include "runtime/VyGlobal.h"
#include "runtime/VyShapedText.h"
#include "runtime/VyString.h"

#include <cstdint>
#include <list>
#include <string>
#include <unordered_map>

class VyFontEngine;

class VyTextShaper {
public:
    // Shaped lines the cache keeps before it drops the least recently used.
    static constexpr size_t kDefaultCacheEntries = 1024;

    explicit VyTextShaper(VyFontEngine& engine);
    ~VyTextShaper();
    VY_DISABLE_COPY_MOVE(VyTextShaper)

    // The shaped line, cached. The reference stays valid until the next shape() call,
    // clearCache() or a change of the engine's fonts.
    const VyShapedText& shape(const VyString& text, int pixelSize);

    // The paragraph direction of texts without a strong letter, and the side that labels
    // asking for no particular alignment take: set while a right-to-left language is shown.
    void setDefaultRightToLeft(bool rightToLeft) { m_defaultRtl = rightToLeft; }
    bool defaultRightToLeft() const { return m_defaultRtl; }

    void setCacheCapacity(size_t entries);
    size_t cachedCount() const { return m_lru.size(); }
    // Lines shaped since construction: a cache miss counts one.
    int64_t shapeCount() const { return m_shapeCount; }
    void clearCache();

private:
    struct Entry {
        std::string key;
        VyShapedText shaped;
    };
    void shapeInto(const std::u32string& text, int pixelSize, VyShapedText* out);

    VyFontEngine& m_engine;
    std::list<Entry> m_lru; // most recently used first
    std::unordered_map<std::string, std::list<Entry>::iterator> m_index;
    size_t m_capacity = kDefaultCacheEntries;
    int64_t m_shapeCount = 0;
    bool m_defaultRtl = false;
};
