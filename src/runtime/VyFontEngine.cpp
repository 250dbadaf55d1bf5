#include "runtime/VyFontEngine.h"

#include "runtime/VyLog.h"

#include <ft2build.h>
#include FT_FREETYPE_H

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <sys/stat.h>

namespace {

struct FileCloser {
    void operator()(std::FILE* f) const { std::fclose(f); }
};
using FilePtr = std::unique_ptr<std::FILE, FileCloser>;

// 26.6 fixed point (FreeType's unit for outlines and metrics) to whole pixels.
int ceil26_6(FT_Pos v) {
    return static_cast<int>((v + 63) >> 6);
}

// Reads a whole regular file of at most maxBytes into out; logs and fails otherwise.
bool readFontFile(const char* path, int64_t maxBytes, std::vector<uint8_t>* out) {
    FilePtr file(std::fopen(path, "rb"));
    if (!file) {
        vyFrameworkLog("Font file %s can not be opened: %s !!!\n", path, std::strerror(errno));
        return false;
    }
    struct stat st {};
    if (fstat(fileno(file.get()), &st) != 0 || !S_ISREG(st.st_mode)) {
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
    out->resize(static_cast<size_t>(size));
    if (std::fread(out->data(), 1, out->size(), file.get()) != out->size()) {
        vyFrameworkLog("Font file %s could not be read to its end !!!\n", path);
        out->clear();
        return false;
    }
    return true;
}

} // namespace

void VyFontEngine::LibraryDeleter::operator()(FT_LibraryRec_* library) const {
    FT_Done_FreeType(library);
}

void VyFontEngine::FaceDeleter::operator()(FT_FaceRec_* face) const {
    FT_Done_Face(face);
}

VyFontEngine::VyFontEngine() {
    FT_Library library = nullptr;
    const FT_Error error = FT_Init_FreeType(&library);
    if (error) {
        vyFrameworkLog("FreeType could not be initialised (error %d) !!!\n", error);
        return;
    }
    m_library.reset(library);
}

// Members go in reverse order: the cache, then the face, then the bytes it read from.
VyFontEngine::~VyFontEngine() = default;

VyFontEngine& VyFontEngine::instance() {
    static VyFontEngine engine;
    return engine;
}

void VyFontEngine::unloadFont() {
    clearCache();
    m_lineMetrics.clear();
    m_face.reset();
    m_fontData.clear();
    m_fontData.shrink_to_fit();
    m_facePixelSize = 0;
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
    if (!readFontFile(path.c_str(), reservedBytes, &m_fontData))
        return false;

    FT_Face face = nullptr;
    const FT_Error error = FT_New_Memory_Face(m_library.get(), m_fontData.data(),
                                              static_cast<FT_Long>(m_fontData.size()), 0, &face);
    if (error) {
        vyFrameworkLog("Font file %s is not a font FreeType can read (error %d) !!!\n",
                       path.c_str(), error);
        m_fontData.clear();
        return false;
    }
    m_face.reset(face);
    if (!FT_IS_SCALABLE(face))
        vyFrameworkLog("Font file %s has bitmap strikes only; sizes it lacks will not render\n",
                       path.c_str());
    VY_DEBUG("font", "loaded %s: %s %s, %ld glyphs", path.c_str(),
             face->family_name ? face->family_name : "?", face->style_name ? face->style_name : "?",
             static_cast<long>(face->num_glyphs));
    return true;
}

bool VyFontEngine::selectPixelSize(int pixelSize) {
    if (!m_face || pixelSize <= 0 || pixelSize > kMaxPixelSize)
        return false;
    if (pixelSize == m_facePixelSize)
        return true;
    const FT_Error error = FT_Set_Pixel_Sizes(m_face.get(), 0, static_cast<FT_UInt>(pixelSize));
    if (error) {
        VY_DEBUG("font", "pixel size %d refused by the face (error %d)", pixelSize, error);
        m_facePixelSize = 0;
        return false;
    }
    m_facePixelSize = pixelSize;
    return true;
}

VyFontEngine::LineMetrics VyFontEngine::lineMetrics(int pixelSize) {
    auto it = m_lineMetrics.find(pixelSize);
    if (it != m_lineMetrics.end())
        return it->second;
    if (!selectPixelSize(pixelSize))
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
