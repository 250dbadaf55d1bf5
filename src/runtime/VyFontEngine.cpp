#include "runtime/VyFontEngine.h"

#include "runtime/VyLog.h"
#include "runtime/VyTextShaper.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include <hb-ft.h>
#include <hb.h>

#include "runtime/VyMapping.h"
#include "runtime/VyUniqueFd.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <string>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {

// 26.6 fixed point (FreeType's unit for outlines and metrics) to whole pixels.
int ceil26_6(FT_Pos v) {
    return static_cast<int>((v + 63) >> 6);
}

// Maps the font file at path, a non-empty regular file of at most maxBytes, read-only;
// logs and fails otherwise. Only the pages FreeType touches (tables, the glyphs drawn)
// become resident, and they are the page cache's to drop again: a CJK font is megabytes.
// Random access, so that the kernel maps no neighbouring pages around each one touched.
bool mapFontFile(const char* path, int64_t maxBytes, VyMapping* out) {
    const VyUniqueFd fd(::open(path, O_RDONLY | O_CLOEXEC));
    if (!fd.isValid()) {
        vyFrameworkLog("Font file %s can not be opened: %s !!!\n", path, std::strerror(errno));
        return false;
    }
    struct stat st {};
    if (fstat(fd.get(), &st) != 0 || !S_ISREG(st.st_mode)) {
        vyFrameworkLog("Font file %s is not a regular file !!!\n", path);
        return false;
    }
    const int64_t size = st.st_size;
    if (size > maxBytes) {
        vyFrameworkLog("Font file %s is %lld bytes, more than the %lld bytes reserved for it !!!\n",
                       path, static_cast<long long>(size), static_cast<long long>(maxBytes));
        return false;
    }
    if (size == 0) {
        vyFrameworkLog("Font file %s is empty !!!\n", path);
        return false;
    }
    void* address = ::mmap(nullptr, size_t(size), PROT_READ, MAP_PRIVATE, fd.get(), 0);
    if (address == MAP_FAILED) {
        vyFrameworkLog("Font file %s can not be mapped: %s !!!\n", path, std::strerror(errno));
        return false;
    }
    ::madvise(address, size_t(size), MADV_RANDOM);
    *out = VyMapping(address, size_t(size));
    return true;
}

} // namespace

void VyFontEngine::LibraryDeleter::operator()(FT_LibraryRec_* library) const {
    FT_Done_FreeType(library);
}

void VyFontEngine::FaceDeleter::operator()(FT_FaceRec_* face) const {
    FT_Done_Face(face);
}

void VyFontEngine::HbFontDeleter::operator()(hb_font_t* font) const {
    hb_font_destroy(font);
}

VyFontEngine::VyFontEngine()
    : m_shaper(new VyTextShaper(*this)) {
    m_faces.resize(1); // the device font's slot, empty until setFontFile
    FT_Library library = nullptr;
    const FT_Error error = FT_Init_FreeType(&library);
    if (error) {
        vyFrameworkLog("FreeType could not be initialised (error %d) !!!\n", error);
        return;
    }
    m_library.reset(library);
}

// The shaper and the glyph cache go first, then the faces, then the library.
VyFontEngine::~VyFontEngine() {
    m_shaper.reset();
    clearCache();
    m_faces.clear();
}

VyFontEngine& VyFontEngine::instance() {
    static VyFontEngine engine;
    return engine;
}

void VyFontEngine::unloadFont() {
    clearCache();
    m_shaper->clearCache();
    m_lineMetrics.clear();
    m_faces[0] = Face();
    m_face = nullptr;
}

bool VyFontEngine::setFontFile(const VyString& path, int64_t reservedBytes) {
    unloadFont();
    m_fontFile = path;
    m_reservedBytes = reservedBytes;
    if (!m_library)
        return false;
    if (reservedBytes <= 0) {
        vyFrameworkLog("Font file %s given a reserved size of %lld bytes !!!\n", path.c_str(),
                       static_cast<long long>(reservedBytes));
        return false;
    }
    VyMapping mapping;
    if (!mapFontFile(path.c_str(), reservedBytes, &mapping))
        return false;
    FT_Face face = nullptr;
    const FT_Error error =
        FT_New_Memory_Face(m_library.get(), static_cast<const FT_Byte*>(mapping.address()),
                           static_cast<FT_Long>(mapping.length()), 0, &face);
    if (error) {
        vyFrameworkLog("Font file %s is not a font FreeType can read (error %d) !!!\n",
                       path.c_str(), error);
        return false;
    }
    m_faces[0].file = std::move(mapping);
    m_faces[0].ft.reset(face);
    m_faces[0].path = path;
    m_face = face;
    if (!FT_IS_SCALABLE(face))
        vyFrameworkLog("Font file %s has bitmap strikes only; sizes it lacks will not render\n",
                       path.c_str());
    VY_DEBUG("font", "loaded %s: %s %s, %ld glyphs", path.c_str(),
             face->family_name ? face->family_name : "?", face->style_name ? face->style_name : "?",
             static_cast<long>(face->num_glyphs));
    return true;
}

void VyFontEngine::dropFallbacks() {
    clearCache();
    m_shaper->clearCache();
    m_faces.resize(1);
}

int VyFontEngine::setFallbackFonts(const std::vector<VyString>& paths) {
    dropFallbacks();
    if (!m_library)
        return 0;
    for (const VyString& path : paths) {
        if (static_cast<int>(m_faces.size()) >= kMaxFaces) {
            vyFrameworkLog("Fallback font %s left out: %d fonts at most !!!\n", path.c_str(),
                           kMaxFaces);
            continue;
        }
        // Only looked at here; the face is opened when a text first needs a code point the
        // faces before it lack, so that a screen in one script maps no other script's font.
        struct stat st {};
        const bool found = ::stat(path.c_str(), &st) == 0;
        if (!found || !S_ISREG(st.st_mode) || st.st_size == 0) {
            vyFrameworkLog("Fallback font %s can not be used (%s); the next one is !!!\n",
                           path.c_str(), found ? "not a font file" : std::strerror(errno));
            continue;
        }
        Face slot;
        slot.path = path;
        m_faces.push_back(std::move(slot));
    }
    return static_cast<int>(m_faces.size()) - 1;
}

FT_FaceRec_* VyFontEngine::openedFace(int face) {
    if (face < 0 || face >= faceCount())
        return nullptr;
    Face& f = m_faces[size_t(face)];
    if (f.ft || f.broken || face == 0)
        return f.ft.get();
    VyMapping mapping;
    FT_Face opened = nullptr;
    FT_Error error = 0;
    if (mapFontFile(f.path.c_str(), kMaxFallbackBytes, &mapping))
        error = FT_New_Memory_Face(m_library.get(), static_cast<const FT_Byte*>(mapping.address()),
                                   static_cast<FT_Long>(mapping.length()), 0, &opened);
    if (!opened) {
        vyFrameworkLog("Fallback font %s can not be used (error %d); the next one is !!!\n",
                       f.path.c_str(), error);
        f.broken = true;
        return nullptr;
    }
    f.file = std::move(mapping);
    f.ft.reset(opened);
    VY_DEBUG("font", "fallback %s: %s", f.path.c_str(),
             opened->family_name ? opened->family_name : "?");
    return opened;
}

int VyFontEngine::loadFallbackList(const VyString& listFile, const VyString& baseDir) {
    std::ifstream in(listFile.c_str());
    if (!in) {
        vyFrameworkLog("Fallback font list %s can not be opened !!!\n", listFile.c_str());
        return setFallbackFonts({});
    }
    std::vector<VyString> paths;
    for (std::string line; std::getline(in, line);) {
        line = line.substr(0, line.find('#'));
        const size_t first = line.find_first_not_of(" \t\r");
        if (first == std::string::npos)
            continue;
        line = line.substr(first, line.find_last_not_of(" \t\r") - first + 1);
        if (line[0] == '/' || baseDir.isEmpty())
            paths.emplace_back(line.c_str());
        else
            paths.push_back(baseDir + "/" + VyString(line.c_str()));
    }
    return setFallbackFonts(paths);
}

uint32_t VyFontEngine::glyphIndex(int face, char32_t codePoint) {
    FT_FaceRec_* ft = openedFace(face);
    return ft ? FT_Get_Char_Index(ft, codePoint) : 0;
}

bool VyFontEngine::selectPixelSize(int face, int pixelSize) {
    if (pixelSize <= 0 || pixelSize > kMaxPixelSize || !openedFace(face))
        return false;
    Face& f = m_faces[size_t(face)];
    if (pixelSize == f.pixelSize)
        return true;
    const FT_Error error = FT_Set_Pixel_Sizes(f.ft.get(), 0, static_cast<FT_UInt>(pixelSize));
    if (error) {
        VY_DEBUG("font", "pixel size %d refused by face %d (error %d)", pixelSize, face, error);
        f.pixelSize = 0;
        return false;
    }
    f.pixelSize = pixelSize;
    f.hbSized = false;
    return true;
}

hb_font_t* VyFontEngine::shapingFont(int face, int pixelSize) {
    if (!selectPixelSize(face, pixelSize))
        return nullptr;
    Face& f = m_faces[size_t(face)];
    if (!f.hb) {
        f.hb.reset(hb_ft_font_create_referenced(f.ft.get()));
        // Hinted advances, as the glyphs are rendered hinted: pens land on whole pixels.
        hb_ft_font_set_load_flags(f.hb.get(), FT_LOAD_DEFAULT);
        f.hbSized = true;
    } else if (!f.hbSized) {
        hb_ft_font_changed(f.hb.get());
        f.hbSized = true;
    }
    return f.hb.get();
}

VyFontEngine::LineMetrics VyFontEngine::lineMetrics(int pixelSize) {
    auto it = m_lineMetrics.find(pixelSize);
    if (it != m_lineMetrics.end())
        return it->second;
    if (!selectPixelSize(0, pixelSize))
        return {};
    const FT_Size_Metrics& m = m_face->size->metrics;
    LineMetrics line;
    line.ascent = ceil26_6(m.ascender);
    line.descent = ceil26_6(-m.descender);
    m_lineMetrics.emplace(pixelSize, line);
    return line;
}

int VyFontEngine::ascent(int pixelSize) {
    return lineMetrics(pixelSize).ascent;
}

int VyFontEngine::descent(int pixelSize) {
    return lineMetrics(pixelSize).descent;
}

int VyFontEngine::height(int pixelSize) {
    const LineMetrics line = lineMetrics(pixelSize);
    return line.ascent + line.descent;
}
