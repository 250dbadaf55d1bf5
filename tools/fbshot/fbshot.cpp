// fbshot: saves what a 16-bit framebuffer shows as a PNG.
//   fbshot [-o out.png] /dev/fb0
//   fbshot -s WIDTHxHEIGHT [-o out.png] [-v video.raw] raw.file
//                                 (raw little-endian ARGB1555; with -v the video plane file
//                                 shows where the overlay bit is clear, as on the device)
#include <cstdio>
#include <cstring>

#include "platform/display/VyDisplayDeviceName.h"
#include "platform/display/VyFrameDump.h"
#include "platform/display/VyVideoPlane.h"

#include <vector>

namespace {

int usage() {
    std::fprintf(stderr, "usage: fbshot [-o out.png] /dev/fbN\n"
                         "       fbshot -s WIDTHxHEIGHT [-o out.png] [-v video.raw] raw.file\n");
    return 2;
}

} // namespace

int main(int argc, char** argv) {
    const char* out = "fbshot.png";
    const char* size = nullptr;
    const char* input = nullptr;
    const char* video = nullptr;
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "-o") == 0 && i + 1 < argc) {
            out = argv[++i];
        } else if (std::strcmp(argv[i], "-v") == 0 && i + 1 < argc) {
            video = argv[++i];
        } else if (std::strcmp(argv[i], "-s") == 0 && i + 1 < argc) {
            size = argv[++i];
        } else if (argv[i][0] == '-' || input) {
            return usage();
        } else {
            input = argv[i];
        }
    }
    if (!input)
        return usage();

    VyBitmap picture;
    if (size) {
        const VyDisplayDeviceName geometry = VyDisplayDeviceName::parse(VyString("mem:") + size);
        if (geometry.kind != VyDisplayDeviceName::Memory || !geometry.path.isEmpty()) {
            std::fprintf(stderr, "fbshot: bad size \"%s\" (WIDTHxHEIGHT)\n", size);
            return 2;
        }
        picture = VyFrameDump::fromRawFile(input, geometry.width, geometry.height);
        VyVideoPlane plane;
        if (video && !picture.isNull()) {
            if (!plane.open(video, geometry.width, geometry.height)) {
                std::fprintf(stderr, "fbshot: video plane \"%s\" missing or short\n", video);
                return 1;
            }
            // Read again as raw pixels: the bitmap no longer has the overlay bit.
            std::vector<uint8_t> raw(size_t(geometry.width) * geometry.height * 2);
            FILE* f = std::fopen(input, "rb");
            const bool ok = f && std::fread(raw.data(), 1, raw.size(), f) == raw.size();
            if (f)
                std::fclose(f);
            if (!ok)
                return 1;
            picture = VyFrameDump::composed(raw.data(), geometry.width, geometry.height,
                                            geometry.width * 2, plane.pixels());
        }
    } else {
        picture = VyFrameDump::fromFramebuffer(input);
    }
    if (picture.isNull() || !picture.savePng(out))
        return 1;
    std::printf("fbshot: %dx%d -> %s\n", picture.width(), picture.height(), out);
    return 0;
}
