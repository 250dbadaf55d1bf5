#include "runtime/VyTextShaper.h"

#include "runtime/VyFontEngine.h"
#include "runtime/VyGlyph.h"
#include "runtime/VyLog.h"

#include <fribidi.h>
#include <hb.h>

#include <algorithm>
#include <vector>

namespace {

struct Run {
    size_t start;
    size_t end; // one past the last code point
    int level;  // bidi embedding level: odd runs go right to left
    hb_script_t script;
    int face;
};

bool isRealScript(hb_script_t s) {
    return s != HB_SCRIPT_COMMON && s != HB_SCRIPT_INHERITED && s != HB_SCRIPT_UNKNOWN;
}

// Joiners, direction marks and controls shape to nothing: a face need not have them.
bool needsNoGlyph(hb_unicode_funcs_t* uf, char32_t cp) {
    const hb_unicode_general_category_t c = hb_unicode_general_category(uf, cp);
    return c == HB_UNICODE_GENERAL_CATEGORY_FORMAT || c == HB_UNICODE_GENERAL_CATEGORY_CONTROL;
}

bool isMark(hb_unicode_funcs_t* uf, char32_t cp) {
    const hb_unicode_general_category_t c = hb_unicode_general_category(uf, cp);
    return c == HB_UNICODE_GENERAL_CATEGORY_NON_SPACING_MARK ||
           c == HB_UNICODE_GENERAL_CATEGORY_SPACING_MARK ||
           c == HB_UNICODE_GENERAL_CATEGORY_ENCLOSING_MARK;
}

// Bidi embedding levels of the paragraph; all at the base level when FriBidi fails.
std::vector<FriBidiLevel> bidiLevels(const std::u32string& text, bool defaultRtl, bool* rtl) {
    const FriBidiStrIndex n = static_cast<FriBidiStrIndex>(text.size());
    const auto* chars = reinterpret_cast<const FriBidiChar*>(text.data());
    std::vector<FriBidiCharType> types(text.size());
    std::vector<FriBidiBracketType> brackets(text.size());
    std::vector<FriBidiLevel> levels(text.size(), 0);
    fribidi_get_bidi_types(chars, n, types.data());
    fribidi_get_bracket_types(chars, n, types.data(), brackets.data());
    FriBidiParType base = defaultRtl ? FRIBIDI_PAR_WRTL : FRIBIDI_PAR_WLTR;
    if (fribidi_get_par_embedding_levels_ex(types.data(), brackets.data(), n, &base,
                                            levels.data()) == 0) {
        std::fill(levels.begin(), levels.end(), defaultRtl ? 1 : 0);
        base = defaultRtl ? FRIBIDI_PAR_RTL : FRIBIDI_PAR_LTR;
    }
    *rtl = FRIBIDI_IS_RTL(base);
    return levels;
}

// Scripts per code point, with common and inherited ones (spaces, digits, punctuation,
// marks) taking the script of the text around them so that they shape with it.
std::vector<hb_script_t> scripts(hb_unicode_funcs_t* uf, const std::u32string& text) {
    std::vector<hb_script_t> s(text.size());
    hb_script_t last = HB_SCRIPT_COMMON;
    for (size_t i = 0; i < text.size(); ++i) {
        const hb_script_t own = hb_unicode_script(uf, text[i]);
        if (isRealScript(own))
            last = own;
        s[i] = isRealScript(own) ? own : last;
    }
    // Leading common code points take the first real script after them.
    hb_script_t next = HB_SCRIPT_COMMON;
    for (size_t i = text.size(); i-- > 0;) {
        if (isRealScript(s[i]))
            next = s[i];
        else
            s[i] = next;
    }
    return s;
}

// The first face with every code point of [start, end), or kNoFace.
int faceCovering(VyFontEngine& engine, hb_unicode_funcs_t* uf, const std::u32string& text,
                 size_t start, size_t end) {
    for (int f = 0; f < engine.faceCount(); ++f) {
        bool all = true;
        for (size_t i = start; i < end && all; ++i)
            all = needsNoGlyph(uf, text[i]) || engine.glyphIndex(f, text[i]) != 0;
        if (all)
            return f;
    }
    return VyFontEngine::kNoFace;
}

// Splits a run no single face covers into runs of one face each; a mark or joiner stays
// with the face of the letter before it when that face has it.
void splitByCodePoint(VyFontEngine& engine, hb_unicode_funcs_t* uf, const std::u32string& text,
                      const Run& run, std::vector<Run>* out) {
    Run current = run;
    current.end = run.start;
    for (size_t i = run.start; i < run.end; ++i) {
        const char32_t cp = text[i];
        int face = VyFontEngine::kNoFace;
        if (current.end > current.start &&
            (needsNoGlyph(uf, cp) || (isMark(uf, cp) && engine.glyphIndex(current.face, cp) != 0)))
            face = current.face;
        else
            face = faceCovering(engine, uf, text, i, i + 1);
        if (current.end > current.start && face != current.face) {
            out->push_back(current);
            current.start = i;
        }
        current.face = face;
        current.end = i + 1;
    }
    if (current.end > current.start)
        out->push_back(current);
}

} // namespace

VyTextShaper::VyTextShaper(VyFontEngine& engine)
    : m_engine(engine) {}

VyTextShaper::~VyTextShaper() = default;

void VyTextShaper::setCacheCapacity(size_t entries) {
    m_capacity = std::max<size_t>(entries, 1);
    while (m_lru.size() > m_capacity) {
        m_index.erase(m_lru.back().key);
        m_lru.pop_back();
    }
}

void VyTextShaper::clearCache() {
    m_index.clear();
    m_lru.clear();
}

const VyShapedText& VyTextShaper::shape(const VyString& text, int pixelSize) {
    std::string key(text.c_str(), static_cast<size_t>(text.size()));
    key.push_back('\0');
    key.append(reinterpret_cast<const char*>(&pixelSize), sizeof pixelSize);
    key.push_back(m_defaultRtl ? 'R' : 'L');
    auto found = m_index.find(key);
    if (found != m_index.end()) {
        m_lru.splice(m_lru.begin(), m_lru, found->second);
        return found->second->shaped;
    }
    ++m_shapeCount;
    Entry entry{std::move(key), VyShapedText()};
    shapeInto(text.toUcs4(), pixelSize, &entry.shaped);
    if (m_lru.size() >= m_capacity) {
        m_index.erase(m_lru.back().key);
        m_lru.pop_back();
    }
    m_lru.push_front(std::move(entry));
    m_index.emplace(m_lru.front().key, m_lru.begin());
    return m_lru.front().shaped;
}

void VyTextShaper::shapeInto(const std::u32string& text, int pixelSize, VyShapedText* out) {
    out->rightToLeft = m_defaultRtl;
    if (text.empty() || !m_engine.isValid() || pixelSize <= 0 ||
        pixelSize > VyFontEngine::kMaxPixelSize)
        return;
    hb_unicode_funcs_t* uf = hb_unicode_funcs_get_default();
    const std::vector<FriBidiLevel> levels = bidiLevels(text, m_defaultRtl, &out->rightToLeft);
    const std::vector<hb_script_t> script = scripts(uf, text);

    // Runs of one level and one script, in logical order, each with the face that covers it.
    std::vector<Run> runs;
    for (size_t i = 0; i < text.size();) {
        size_t j = i + 1;
        while (j < text.size() && levels[j] == levels[i] && script[j] == script[i])
            ++j;
        const Run run{i, j, levels[i], script[i], faceCovering(m_engine, uf, text, i, j)};
        if (run.face != VyFontEngine::kNoFace)
            runs.push_back(run);
        else
            splitByCodePoint(m_engine, uf, text, run, &runs);
        i = j;
    }

    // Visual order: from the highest level down to the lowest odd one, reverse every
    // stretch of runs at that level or above.
    std::vector<size_t> order(runs.size());
    int maxLevel = 0;
    int minOdd = 255;
    for (size_t r = 0; r < runs.size(); ++r) {
        order[r] = r;
        maxLevel = std::max(maxLevel, runs[r].level);
        if (runs[r].level % 2 == 1)
            minOdd = std::min(minOdd, runs[r].level);
    }
    for (int level = maxLevel; level >= minOdd && level > 0; --level) {
        for (size_t a = 0; a < order.size();) {
            if (runs[order[a]].level < level) {
                ++a;
                continue;
            }
            size_t b = a;
            while (b < order.size() && runs[order[b]].level >= level)
                ++b;
            std::reverse(order.begin() + static_cast<long>(a),
                         order.begin() + static_cast<long>(b));
            a = b;
        }
    }

    // Shape and place the runs left to right. The whole text is the context of every run,
    // so that letters join across a run boundary.
    int64_t pen = 0; // 26.6
    hb_buffer_t* buffer = hb_buffer_create();
    for (size_t r : order) {
        const Run& run = runs[r];
        hb_font_t* font =
            run.face == VyFontEngine::kNoFace ? nullptr : m_engine.shapingFont(run.face, pixelSize);
        if (font == nullptr) {
            const VyGlyph* box = m_engine.glyphByIndex(VyFontEngine::kNoFace, 0, pixelSize);
            const int64_t advance = box != nullptr ? int64_t(box->advance) << 6 : 0;
            for (size_t k = 0; k < run.end - run.start; ++k) {
                const size_t i = run.level % 2 ? run.end - 1 - k : run.start + k;
                if (needsNoGlyph(uf, text[i]))
                    continue;
                out->glyphs.push_back({VyFontEngine::kNoFace, static_cast<uint32_t>(text[i]),
                                       int((pen + 32) >> 6), 0});
                pen += advance;
            }
            continue;
        }
        hb_buffer_clear_contents(buffer);
        hb_buffer_add_utf32(buffer, reinterpret_cast<const uint32_t*>(text.data()),
                            static_cast<int>(text.size()), static_cast<unsigned>(run.start),
                            static_cast<int>(run.end - run.start));
        hb_buffer_set_direction(buffer, run.level % 2 ? HB_DIRECTION_RTL : HB_DIRECTION_LTR);
        hb_buffer_set_script(buffer, run.script);
        hb_buffer_guess_segment_properties(buffer);
        hb_shape(font, buffer, nullptr, 0);
        unsigned count = 0;
        const hb_glyph_info_t* info = hb_buffer_get_glyph_infos(buffer, &count);
        const hb_glyph_position_t* pos = hb_buffer_get_glyph_positions(buffer, &count);
        for (unsigned g = 0; g < count; ++g) {
            out->glyphs.push_back({run.face, info[g].codepoint,
                                   int((pen + pos[g].x_offset + 32) >> 6),
                                   int((pos[g].y_offset + 32) >> 6)});
            pen += pos[g].x_advance;
        }
    }
    hb_buffer_destroy(buffer);
    out->width = int((pen + 32) >> 6);
}
