// Feeds arbitrary bytes to both image decoders. A decoder may refuse the input, but it
// must not crash, read out of bounds or leak, and what it accepts must be a whole image.
#include <cstdint>
#include <cstdio>

#include "runtime/VyBitmap.h"

namespace {

void checkDecoded(const VyBitmap& bmp) {
    if (bmp.isNull())
        return;
    VY_ASSERT(bmp.width() > 0 && bmp.height() > 0);
    VY_ASSERT(bmp.bytesPerLine() == bmp.width() * 4);
    // Read every byte, so that a short buffer shows up under AddressSanitizer.
    const uint8_t* p = bmp.constBits();
    const size_t bytes = static_cast<size_t>(bmp.bytesPerLine()) * bmp.height();
    unsigned sum = 0;
    for (size_t i = 0; i < bytes; ++i)
        sum += p[i];
    volatile unsigned sink = sum;
    (void)sink;
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    // Every refused input logs one line on standard output; the fuzzer reports on stderr.
    // Without /dev/null the lines just stay on the terminal.
    std::FILE* quiet = std::freopen("/dev/null", "w", stdout);
    (void)quiet;
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    checkDecoded(VyBitmap::loadPngFromMemory(data, size));
    checkDecoded(VyBitmap::loadJpegFromMemory(data, size));
    return 0;
}
