#include "ui/playback/PlaybackSnapshot.h"

#include "runtime/VyLog.h"
#include "toolkit/core/VyScreen.h"

#include <cstdio>

VyString PlaybackSnapshot::fileName(int channel, const VyDateTime& time) {
    return VyString(kFileName)
        .arg(channel + 1)
        .arg(time.toString("yyyyMMdd"))
        .arg(time.toString("hhmmss"));
}

VyBitmap PlaybackSnapshot::grab(const VyScreen* screen, const VyRect& area) {
    if (screen == nullptr || screen->mapping() == nullptr || area.isEmpty() || area.left < 0 ||
        area.top < 0 || area.right >= screen->width() || area.bottom >= screen->height())
        return VyBitmap();
    VyBitmap out(area.width(), area.height());
    if (out.isNull())
        return out;
    uint8_t* dst = out.bits();
    for (int y = area.top; y <= area.bottom; ++y) {
        const auto* row =
            reinterpret_cast<const uint16_t*>(screen->mapping() + size_t(y) * screen->lineLength());
        for (int x = area.left; x <= area.right; ++x, dst += 4) {
            // ARGB1555: five bits a colour, widened by repeating the top bits.
            const uint16_t v = row[x];
            const uint8_t r = uint8_t((v >> 10 & 31) << 3 | (v >> 12 & 7));
            const uint8_t g = uint8_t((v >> 5 & 31) << 3 | (v >> 7 & 7));
            const uint8_t b = uint8_t((v & 31) << 3 | (v >> 2 & 7));
            dst[0] = r;
            dst[1] = g;
            dst[2] = b;
            dst[3] = 255;
        }
    }
    return out;
}

VyString PlaybackSnapshot::save(const VyBitmap& picture, int channel, const VyDateTime& time,
                                const VyString& directory, int quality) {
    if (picture.isNull() || !time.isValid()) {
        VY_GUI_LOG("snapshot: no picture !!!\n");
        return VyString();
    }
    const std::vector<uint8_t> jpeg = picture.encodeJpeg(quality);
    if (jpeg.empty())
        return VyString();
    VyString path = directory + "/" + fileName(channel, time);
    FILE* f = std::fopen(path.c_str(), "wb");
    if (f == nullptr) {
        VY_GUI_LOG("snapshot: cannot write %s !!!\n", path.c_str());
        return VyString();
    }
    const bool ok = std::fwrite(jpeg.data(), 1, jpeg.size(), f) == jpeg.size();
    if (std::fclose(f) != 0 || !ok) {
        VY_GUI_LOG("snapshot: cannot write %s !!!\n", path.c_str());
        return VyString();
    }
    return path;
}
