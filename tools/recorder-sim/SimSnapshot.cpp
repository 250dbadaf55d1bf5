#include "SimSnapshot.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include <jpeglib.h>

namespace {

uint64_t mix(uint64_t x) {
    x += 0x9E3779B97F4A7C15ull;
    x = (x ^ (x >> 30)) * 0xBF58476D1CE4E5B9ull;
    x = (x ^ (x >> 27)) * 0x94D049BB133111EBull;
    return x ^ (x >> 31);
}

void fill(std::vector<uint8_t>& px, int x0, int y0, int x1, int y1, int r, int g, int b) {
    x0 = std::max(0, x0);
    y0 = std::max(0, y0);
    x1 = std::min(SimSnapshot::kWidth, x1);
    y1 = std::min(SimSnapshot::kHeight, y1);
    for (int y = y0; y < y1; ++y)
        for (int x = x0; x < x1; ++x) {
            uint8_t* p = &px[(size_t(y) * SimSnapshot::kWidth + size_t(x)) * 3];
            p[0] = uint8_t(r);
            p[1] = uint8_t(g);
            p[2] = uint8_t(b);
        }
}

} // namespace

std::vector<uint8_t> SimSnapshot::pixels(uint32_t seed, int channel) {
    std::vector<uint8_t> px(size_t(kWidth) * kHeight * 3);
    const int horizon = kHeight / 3;
    for (int y = 0; y < kHeight; ++y) {
        // Wall above the horizon, a floor that lightens towards the camera below it.
        const bool wall = y < horizon;
        const int shade = wall ? 70 + y / 8 : 60 + (y - horizon) * 90 / (kHeight - horizon);
        for (int x = 0; x < kWidth; ++x) {
            uint8_t* p = &px[(size_t(y) * kWidth + size_t(x)) * 3];
            const bool tile = !wall && ((x / 40 + (y - horizon) / 24) % 2 == 0);
            p[0] = uint8_t(wall ? shade + 20 : shade + (tile ? 8 : 0));
            p[1] = uint8_t(wall ? shade + 15 : shade + (tile ? 8 : 0));
            p[2] = uint8_t(wall ? shade : shade - 10 + (tile ? 8 : 0));
        }
    }
    // Shelves along the wall and counters on the floor, placed from the seed.
    uint64_t state = mix(uint64_t(seed) << 32 ^ uint64_t(uint32_t(channel)));
    for (int i = 0; i < 4; ++i) {
        state = mix(state);
        const int x = int(state % (kWidth - 120));
        fill(px, x, horizon - 70, x + 90 + int(state >> 20) % 40, horizon, 120, 90, 60);
        fill(px, x, horizon - 48, x + 90 + int(state >> 20) % 40, horizon - 44, 60, 45, 30);
    }
    for (int i = 0; i < 3; ++i) {
        state = mix(state);
        const int x = int(state % (kWidth - 160));
        const int y = horizon + 40 + int((state >> 24) % uint64_t(kHeight - horizon - 100));
        fill(px, x, y, x + 110 + int(state >> 40) % 50, y + 30, 150, 150, 160);
        fill(px, x, y + 30, x + 110 + int(state >> 40) % 50, y + 38, 80, 80, 90);
    }
    return px;
}

std::vector<uint8_t> SimSnapshot::jpeg(uint32_t seed, int channel) {
    std::vector<uint8_t> px = pixels(seed, channel);
    jpeg_compress_struct c;
    jpeg_error_mgr err;
    c.err = jpeg_std_error(&err);
    jpeg_create_compress(&c);
    unsigned char* out = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&c, &out, &size);
    c.image_width = kWidth;
    c.image_height = kHeight;
    c.input_components = 3;
    c.in_color_space = JCS_RGB;
    jpeg_set_defaults(&c);
    jpeg_set_quality(&c, kQuality, TRUE);
    jpeg_start_compress(&c, TRUE);
    while (c.next_scanline < c.image_height) {
        JSAMPROW row = &px[size_t(c.next_scanline) * kWidth * 3];
        jpeg_write_scanlines(&c, &row, 1);
    }
    jpeg_finish_compress(&c);
    std::vector<uint8_t> bytes(out, out + size);
    jpeg_destroy_compress(&c);
    std::free(out);
    return bytes;
}
