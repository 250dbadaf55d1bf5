#include "platform/display/VyFrameDump.h"

#include <cstdio>
#include <vector>

#include "platform/display/VyDisplayDeviceName.h"
#include "platform/display/VyFbdevBackend.h"
#include "platform/display/VyVideoPlane.h"

#include "runtime/VyLog.h"
#include <cstring>

namespace {

inline uint8_t widen(unsigned v5) {
    return static_cast<uint8_t>((v5 << 3) | (v5 >> 2));
}

} // namespace

VyBitmap VyFrameDump::toBitmap(const uint8_t* pixels, int width, int height, int bytesPerLine) {
    VyBitmap out(width, height);
    if (out.isNull() || !pixels)
        return VyBitmap();
    uint8_t* dst = out.bits();
    for (int y = 0; y < height; ++y) {
        const uint8_t* line = pixels + static_cast<size_t>(y) * bytesPerLine;
        for (int x = 0; x < width; ++x, dst += 4) {
            const unsigned p = line[2 * x] | (line[2 * x + 1] << 8);
            dst[0] = widen((p >> 10) & 31);
            dst[1] = widen((p >> 5) & 31);
            dst[2] = widen(p & 31);
            dst[3] = 255;
        }
    }
    return out;
}

VyBitmap VyFrameDump::composed(const uint8_t* pixels, int width, int height, int bytesPerLine,
                               const uint16_t* video) {
    if (!pixels || width < 1 || height < 1)
        return VyBitmap();
    std::vector<uint16_t> out(static_cast<size_t>(width) * height);
    for (int y = 0; y < height; ++y) {
        std::vector<uint16_t> row(static_cast<size_t>(width));
        std::memcpy(row.data(), pixels + static_cast<size_t>(y) * bytesPerLine, row.size() * 2);
        VyVideoPlane::composeRow(row.data(),
                                 video ? video + static_cast<size_t>(y) * width : nullptr,
                                 out.data() + static_cast<size_t>(y) * width, width);
    }
    return toBitmap(reinterpret_cast<const uint8_t*>(out.data()), width, height, width * 2);
}

VyBitmap VyFrameDump::fromRawFile(const VyString& path, int width, int height) {
    if (width < 1 || height < 1 || width > VyDisplayDeviceName::kMaxDimension ||
        height > VyDisplayDeviceName::kMaxDimension) {
        vyFrameworkLog("raw frame of %dx%d refused !!!\n", width, height);
        return VyBitmap();
    }
    FILE* f = std::fopen(path.c_str(), "rb");
    if (!f) {
        vyFrameworkLog("open raw frame (%s) failed !!!\n", path.c_str());
        return VyBitmap();
    }
    std::vector<uint8_t> data(static_cast<size_t>(width) * height * 2);
    const size_t got = std::fread(data.data(), 1, data.size(), f);
    std::fclose(f);
    if (got != data.size()) {
        vyFrameworkLog("raw frame (%s) holds %zu bytes, %zu needed !!!\n", path.c_str(), got,
                       data.size());
        return VyBitmap();
    }
    return toBitmap(data.data(), width, height, width * 2);
}

VyBitmap VyFrameDump::fromFramebuffer(const VyString& device) {
    VyFbdevBackend fb(device, true);
    if (!fb.open()) {
        vyFrameworkLog("open framebuffer (%s) failed !!!\n", device.c_str());
        return VyBitmap();
    }
    if (fb.bitsPerPixel() != 16) {
        vyFrameworkLog("framebuffer (%s) has %d bits per pixel, 16 needed !!!\n", device.c_str(),
                       fb.bitsPerPixel());
        return VyBitmap();
    }
    return toBitmap(fb.pixels(), fb.width(), fb.height(), fb.lineLength());
}
