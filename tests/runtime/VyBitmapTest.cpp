#include "runtime/VyBitmap.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <jpeglib.h>
#include <unistd.h>

namespace {

VyBitmap gradient(int w, int h) {
    VyBitmap bmp(w, h);
    uint8_t* p = bmp.bits();
    for (int y = 0; y < h; ++y) {
        for (int x = 0; x < w; ++x, p += 4) {
            p[0] = static_cast<uint8_t>(x * 255 / (w - 1));
            p[1] = static_cast<uint8_t>(y * 255 / (h - 1));
            p[2] = static_cast<uint8_t>(128 + (x - y) / 2);
            p[3] = static_cast<uint8_t>(x * 4); // dropped by JPEG
        }
    }
    return bmp;
}

// Mean and largest difference of the colour channels.
std::pair<double, int> colourError(const VyBitmap& a, const VyBitmap& b) {
    long sum = 0;
    int max = 0;
    const int n = a.width() * a.height() * 4;
    const int colourChannels = a.width() * a.height() * 3;
    for (int i = 0; i < n; ++i) {
        const int d = i % 4 == 3 ? 0 : std::abs(a.constBits()[i] - b.constBits()[i]);
        sum += d;
        max = std::max(max, d);
    }
    return {static_cast<double>(sum) / colourChannels, max};
}

// A flat-coloured JPEG written straight through libjpeg, for colour spaces that
// VyBitmap does not write itself.
std::vector<uint8_t> flatJpeg(J_COLOR_SPACE space, int components, const uint8_t* value) {
    constexpr int kSide = 16;
    jpeg_compress_struct cinfo;
    jpeg_error_mgr err;
    cinfo.err = jpeg_std_error(&err);
    jpeg_create_compress(&cinfo);
    unsigned char* buffer = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&cinfo, &buffer, &size);
    cinfo.image_width = kSide;
    cinfo.image_height = kSide;
    cinfo.input_components = components;
    cinfo.in_color_space = space;
    jpeg_set_defaults(&cinfo);
    jpeg_set_quality(&cinfo, 95, TRUE);
    jpeg_start_compress(&cinfo, TRUE);
    std::vector<uint8_t> row(kSide * components);
    for (int x = 0; x < kSide; ++x)
        std::memcpy(&row[x * components], value, components);
    while (cinfo.next_scanline < kSide) {
        JSAMPROW r = row.data();
        jpeg_write_scanlines(&cinfo, &r, 1);
    }
    jpeg_finish_compress(&cinfo);
    jpeg_destroy_compress(&cinfo);
    std::vector<uint8_t> out(buffer, buffer + size);
    std::free(buffer);
    return out;
}

void expectNear(vyargb got, vyargb want, int tolerance) {
    for (int shift = 0; shift < 32; shift += 8) {
        const int g = static_cast<int>((got >> shift) & 0xFF);
        const int w = static_cast<int>((want >> shift) & 0xFF);
        EXPECT_LE(std::abs(g - w), tolerance) << std::hex << got << " vs " << want;
    }
}

} // namespace

TEST(VyBitmap, NewBitmapsAreZeroedAndBadSizesAreNull) {
    const VyBitmap bmp(7, 3);
    ASSERT_FALSE(bmp.isNull());
    EXPECT_EQ(bmp.bytesPerLine(), 28);
    EXPECT_EQ(std::vector<uint8_t>(bmp.constBits(), bmp.constBits() + 7 * 3 * 4),
              std::vector<uint8_t>(7 * 3 * 4, 0));
    for (auto [w, h] : {std::pair{0, 5}, {5, -1}, {VyBitmap::kMaxSide + 1, 1}, {16384, 16384}})
        EXPECT_TRUE(VyBitmap(w, h).isNull()) << w << "x" << h;
    EXPECT_EQ(VyBitmap().constBits(), nullptr);
}

TEST(VyBitmap, CopiesShareUntilWritten) {
    VyBitmap a(4, 4);
    a.fill(0xFF102030);
    VyBitmap b = a;
    EXPECT_EQ(a.constBits(), b.constBits());
    b.bits()[0] = 0x99;
    EXPECT_NE(a.constBits(), b.constBits());
    EXPECT_EQ(a.pixel(0, 0), 0xFF102030u);
    EXPECT_EQ(b.pixel(0, 0), 0xFF992030u);
    EXPECT_EQ(b.pixel(3, 3), 0xFF102030u);
}

TEST(VyBitmap, ScaledSamplesNearestPixel) {
    VyBitmap src(3, 2);
    for (int y = 0; y < 2; ++y)
        for (int x = 0; x < 3; ++x)
            std::memcpy(src.bits() + (y * 3 + x) * 4,
                        std::vector<uint8_t>{uint8_t(x), uint8_t(y), 7, 255}.data(), 4);
    const VyBitmap up = src.scaled(6, 4);
    ASSERT_EQ(up.width(), 6);
    ASSERT_EQ(up.height(), 4);
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 6; ++x)
            EXPECT_EQ(up.pixel(x, y), src.pixel(x / 2, y / 2)) << x << "," << y;
    const VyBitmap down = up.scaled(3, 2);
    for (int y = 0; y < 2; ++y)
        for (int x = 0; x < 3; ++x)
            EXPECT_EQ(down.pixel(x, y), src.pixel(x, y));
    EXPECT_TRUE(src.scaled(0, 4).isNull());
    EXPECT_TRUE(VyBitmap().scaled(4, 4).isNull());
}

TEST(VyBitmapJpeg, RoundTripStaysCloseAndQualityMatters) {
    const VyBitmap original = gradient(64, 48);
    const std::vector<uint8_t> fine = original.encodeJpeg(92);
    const std::vector<uint8_t> coarse = original.encodeJpeg(5);
    ASSERT_FALSE(fine.empty());
    ASSERT_FALSE(coarse.empty());
    EXPECT_LT(coarse.size(), fine.size());

    const VyBitmap back = VyBitmap::loadJpegFromMemory(fine.data(), fine.size());
    ASSERT_EQ(back.width(), 64);
    ASSERT_EQ(back.height(), 48);
    const auto [mean, max] = colourError(original, back);
    EXPECT_LT(mean, 2.0);
    EXPECT_LE(max, 24);
    const VyBitmap rough = VyBitmap::loadJpegFromMemory(coarse.data(), coarse.size());
    EXPECT_GT(colourError(original, rough).first, mean);
    for (int i = 3; i < 64 * 48 * 4; i += 4)
        ASSERT_EQ(back.constBits()[i], 255) << "JPEG pixels are opaque";

    EXPECT_FALSE(original.encodeJpeg(1000).empty()); // clamped, not refused
    EXPECT_TRUE(VyBitmap().encodeJpeg(80).empty());
}

TEST(VyBitmapJpeg, GreyAndCmykBecomeRgba) {
    const uint8_t grey = 90;
    const std::vector<uint8_t> g = flatJpeg(JCS_GRAYSCALE, 1, &grey);
    expectNear(VyBitmap::loadJpegFromMemory(g.data(), g.size()).pixel(5, 5), 0xFF5A5A5A, 1);
    // Stored inverted, as Adobe writes it: 255 means no ink.
    const uint8_t cmyk[4] = {255, 128, 0, 200};
    const std::vector<uint8_t> c = flatJpeg(JCS_CMYK, 4, cmyk);
    expectNear(VyBitmap::loadJpegFromMemory(c.data(), c.size()).pixel(5, 5),
               0xFF000000 | (255 * 200 / 255) << 16 | (128 * 200 / 255) << 8, 2);
}

TEST(VyBitmapJpeg, TruncatedOrForeignDataGivesNullBitmap) {
    const std::vector<uint8_t> good = gradient(24, 16).encodeJpeg(75);
    ASSERT_FALSE(VyBitmap::loadJpegFromMemory(good.data(), good.size()).isNull());
    for (size_t n = 0; n < good.size(); ++n)
        ASSERT_TRUE(VyBitmap::loadJpegFromMemory(good.data(), n).isNull()) << "cut at " << n;
    const uint8_t text[] = "\xFF\xD8\xFF but nothing after the start marker";
    EXPECT_TRUE(VyBitmap::loadJpegFromMemory(text, sizeof text).isNull());
    EXPECT_TRUE(VyBitmap::loadJpeg(VyString(std::string("/nonexistent/pic.jpg"))).isNull());

    const std::string path = ::testing::TempDir() + "vybitmap_" + std::to_string(getpid()) + ".jpg";
    FILE* f = std::fopen(path.c_str(), "wb");
    ASSERT_NE(f, nullptr);
    std::fwrite(good.data(), 1, good.size(), f);
    std::fclose(f);
    const VyBitmap loaded = VyBitmap::load(VyString(path));
    std::remove(path.c_str());
    EXPECT_EQ(loaded.width(), 24);
    EXPECT_EQ(loaded.height(), 16);
}
