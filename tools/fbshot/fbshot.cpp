// fbshot: saves what a 16-bit framebuffer shows as a PNG.
//   fbshot [-o out.png] /dev/fb0
//   fbshot -s WIDTHxHEIGHT [-o out.png] raw.file    (raw little-endian ARGB1555)
#include <cstdio>
#include <cstring>

#include "platform/display/VyDisplayDeviceName.h"
#include "platform/display/VyFrameDump.h"

namespace {

int usage() {
    std::fprintf(stderr, "usage: fbshot [-o out.png] /dev/fbN\n"
                         "       fbshot -s WIDTHxHEIGHT [-o out.png] raw.file\n");
    return 2;
}

} // namespace

int main(int argc, char** argv) {
    const char* out = "fbshot.png";
    const char* size = nullptr;
    const char* input = nullptr;
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "-o") == 0 && i + 1 < argc) {
            out = argv[++i];
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
    } else {
        picture = VyFrameDump::fromFramebuffer(input);
    }
    if (picture.isNull() || !picture.savePng(out))
        return 1;
    std::printf("fbshot: %dx%d -> %s\n", picture.width(), picture.height(), out);
    return 0;
}
