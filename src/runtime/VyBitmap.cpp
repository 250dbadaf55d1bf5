#include "runtime/VyBitmap.h"

#include <cstdio>
#include <cstring>

#include "runtime/VyLog.h"

namespace {

constexpr uint8_t kPngSignature[8] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
constexpr uint8_t kJpegSignature[3] = {0xFF, 0xD8, 0xFF}; // SOI followed by a marker

bool hasSignature(const std::vector<uint8_t>& bytes, const uint8_t* sig, size_t n) {
    return bytes.size() >= n && std::memcmp(bytes.data(), sig, n) == 0;
}

bool endsWithNoCase(const std::string& text, const char* suffix) {
    const size_t n = std::strlen(suffix);
    if (text.size() < n)
        return false;
    for (size_t i = 0; i < n; ++i) {
        char c = text[text.size() - n + i];
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
        if (c != suffix[i])
            return false;
    }
    return true;
}

// Closes the file on every way out of readFile.
struct FileCloser {
    void operator()(FILE* f) const { std::fclose(f); }
};

} // namespace

VyBitmap::VyBitmap(int width, int height) {
    VyBitmap b = allocateUninitialised(width, height, "bitmap");
    if (b.isNull())
        return;
    std::memset(b.m_data->pixels.get(), 0, static_cast<size_t>(width) * height * 4);
    m_data = std::move(b.m_data);
}

VyBitmap VyBitmap::allocateUninitialised(int width, int height, const char* what) {
    VyBitmap b;
    if (width <= 0 || height <= 0)
        return b;
    if (width > kMaxSide || height > kMaxSide ||
        static_cast<int64_t>(width) * height > kMaxPixels) {
        vyFrameworkLog("%s: image size %dx%d is over the limit !!!\n", what, width, height);
        return b;
    }
    auto data = std::make_shared<Data>();
    data->width = width;
    data->height = height;
    // Not value-initialised: the decoders write every byte, and a huge image whose data turns
    // out truncated then costs no page it never touched.
    data->pixels.reset(new uint8_t[static_cast<size_t>(width) * height * 4]);
    b.m_data = std::move(data);
    return b;
}

uint8_t* VyBitmap::bits() {
    if (!m_data)
        return nullptr;
    if (m_data.use_count() > 1) {
        const size_t bytes = static_cast<size_t>(m_data->width) * m_data->height * 4;
        auto own = std::make_shared<Data>();
        own->width = m_data->width;
        own->height = m_data->height;
        own->pixels.reset(new uint8_t[bytes]);
        std::memcpy(own->pixels.get(), m_data->pixels.get(), bytes);
        m_data = std::move(own);
    }
    return m_data->pixels.get();
}

vyargb VyBitmap::pixel(int x, int y) const {
    if (!m_data || x < 0 || y < 0 || x >= m_data->width || y >= m_data->height)
        return 0;
    const uint8_t* p = m_data->pixels.get() + (static_cast<size_t>(y) * m_data->width + x) * 4;
    return static_cast<vyargb>(p[3]) << 24 | static_cast<vyargb>(p[0]) << 16 |
           static_cast<vyargb>(p[1]) << 8 | p[2];
}

void VyBitmap::fill(vyargb color) {
    uint8_t* p = bits();
    if (!p)
        return;
    const uint8_t rgba[4] = {static_cast<uint8_t>(color >> 16), static_cast<uint8_t>(color >> 8),
                             static_cast<uint8_t>(color), static_cast<uint8_t>(color >> 24)};
    const size_t count = static_cast<size_t>(width()) * height();
    for (size_t i = 0; i < count; ++i)
        std::memcpy(p + i * 4, rgba, 4);
}

bool VyBitmap::readFile(const VyString& path, std::vector<uint8_t>& out, const char* what) {
    std::unique_ptr<FILE, FileCloser> file(std::fopen(path.c_str(), "rb"));
    if (!file) {
        vyFrameworkLog("%s: cannot open image file \"%s\" !!!\n", what, path.c_str());
        return false;
    }
    long size = -1;
    if (std::fseek(file.get(), 0, SEEK_END) == 0)
        size = std::ftell(file.get());
    if (size < 0 || std::fseek(file.get(), 0, SEEK_SET) != 0) {
        vyFrameworkLog("%s: cannot read image file \"%s\" !!!\n", what, path.c_str());
        return false;
    }
    if (static_cast<unsigned long>(size) > kMaxFileBytes) {
        vyFrameworkLog("%s: image file \"%s\" is too large (%ld bytes) !!!\n", what, path.c_str(),
                       size);
        return false;
    }
    out.resize(static_cast<size_t>(size));
    if (size > 0 && std::fread(out.data(), 1, out.size(), file.get()) != out.size()) {
        vyFrameworkLog("%s: cannot read image file \"%s\" !!!\n", what, path.c_str());
        return false;
    }
    return true;
}

VyBitmap VyBitmap::loadPng(const VyString& path) {
    std::vector<uint8_t> bytes;
    if (!readFile(path, bytes, "loadPng"))
        return VyBitmap();
    return decodePng(bytes.data(), bytes.size(), path.c_str());
}

VyBitmap VyBitmap::loadPngFromMemory(const uint8_t* data, size_t size) {
    return decodePng(data, size, "<memory>");
}

VyBitmap VyBitmap::loadJpeg(const VyString& path) {
    std::vector<uint8_t> bytes;
    if (!readFile(path, bytes, "loadJpeg"))
        return VyBitmap();
    return decodeJpeg(bytes.data(), bytes.size(), path.c_str());
}

VyBitmap VyBitmap::loadJpegFromMemory(const uint8_t* data, size_t size) {
    return decodeJpeg(data, size, "<memory>");
}

VyBitmap VyBitmap::load(const VyString& path) {
    std::vector<uint8_t> bytes;
    if (!readFile(path, bytes, "load"))
        return VyBitmap();
    const std::string& name = path.toStdString();
    if (hasSignature(bytes, kPngSignature, sizeof kPngSignature))
        return decodePng(bytes.data(), bytes.size(), path.c_str());
    if (hasSignature(bytes, kJpegSignature, sizeof kJpegSignature))
        return decodeJpeg(bytes.data(), bytes.size(), path.c_str());
    // No known signature: let the decoder the name points at say what is wrong.
    if (endsWithNoCase(name, ".png"))
        return decodePng(bytes.data(), bytes.size(), path.c_str());
    if (endsWithNoCase(name, ".jpg") || endsWithNoCase(name, ".jpeg"))
        return decodeJpeg(bytes.data(), bytes.size(), path.c_str());
    vyFrameworkLog("load: \"%s\" is neither a PNG nor a JPEG image !!!\n", path.c_str());
    return VyBitmap();
}

VyBitmap VyBitmap::scaled(int width, int height) const {
    if (isNull() || width <= 0 || height <= 0)
        return VyBitmap();
    if (width == this->width() && height == this->height())
        return *this;
    VyBitmap out = allocateUninitialised(width, height, "scaled");
    if (out.isNull())
        return out;
    const int sw = this->width();
    const int sh = this->height();
    // Source column of each target column, sampled at the target pixel's centre.
    std::vector<int> columns(static_cast<size_t>(width));
    for (int x = 0; x < width; ++x)
        columns[x] = static_cast<int>((static_cast<int64_t>(2 * x + 1) * sw) / (2LL * width));
    const uint8_t* src = constBits();
    uint8_t* dst = out.m_data->pixels.get();
    for (int y = 0; y < height; ++y) {
        const int sy = static_cast<int>((static_cast<int64_t>(2 * y + 1) * sh) / (2LL * height));
        const uint8_t* srow = src + static_cast<size_t>(sy) * sw * 4;
        uint8_t* drow = dst + static_cast<size_t>(y) * width * 4;
        for (int x = 0; x < width; ++x)
            std::memcpy(drow + x * 4, srow + columns[x] * 4, 4);
    }
    return out;
}
