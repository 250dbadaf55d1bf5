#include "runtime/VyBitmap.h"

#include <csetjmp>
#include <cstdio>
#include <string>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>
#include <png.h>
#include <unistd.h>
#include <zlib.h>

namespace {

constexpr int kW = 13; // odd, so sub-byte rows end in a partly used byte
constexpr int kH = 7;

struct PngCase {
    int colorType;
    int bitDepth;
    bool trns;
    bool interlaced;
};

int channelsOf(int colorType) {
    return colorType == PNG_COLOR_TYPE_GRAY_ALPHA  ? 2
           : colorType == PNG_COLOR_TYPE_RGB       ? 3
           : colorType == PNG_COLOR_TYPE_RGB_ALPHA ? 4
                                                   : 1;
}

// The stored sample of channel c at (x, y), anywhere in 0 .. 2^depth - 1.
unsigned sampleAt(int x, int y, int c, int depth) {
    const unsigned v = static_cast<unsigned>(x * 37 + y * 91 + c * 53 + x * y * 7) * 2654435761u;
    return (v >> 7) & ((1u << depth) - 1);
}

uint8_t to8(unsigned v, int depth) {
    return depth == 16 ? static_cast<uint8_t>(v >> 8)
                       : static_cast<uint8_t>(v * 255 / ((1u << depth) - 1));
}

png_color paletteEntry(int i) {
    return {static_cast<png_byte>(i * 7), static_cast<png_byte>(255 - i),
            static_cast<png_byte>(i * 3 + 1)};
}

uint8_t paletteAlpha(int i) {
    return static_cast<uint8_t>(i * 50 + 5);
}

void appendBytes(png_structp png, png_bytep data, png_size_t n) {
    auto* out = static_cast<std::vector<uint8_t>*>(png_get_io_ptr(png));
    out->insert(out->end(), data, data + n);
}

std::vector<uint8_t> writeTestPng(const PngCase& pc) {
    std::vector<uint8_t> out;
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    if (setjmp(png_jmpbuf(png))) {
        png_destroy_write_struct(&png, &info);
        return {};
    }
    png_set_write_fn(png, &out, appendBytes, nullptr);
    png_set_IHDR(png, info, kW, kH, pc.bitDepth, pc.colorType,
                 pc.interlaced ? PNG_INTERLACE_ADAM7 : PNG_INTERLACE_NONE,
                 PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_color palette[256];
    uint8_t alphas[256];
    png_color_16 key{};
    if (pc.colorType == PNG_COLOR_TYPE_PALETTE) {
        const int n = 1 << pc.bitDepth;
        for (int i = 0; i < n; ++i) {
            palette[i] = paletteEntry(i);
            alphas[i] = paletteAlpha(i);
        }
        png_set_PLTE(png, info, palette, n);
        if (pc.trns) // shorter than the palette: the entries past it stay opaque
            png_set_tRNS(png, info, alphas, n / 2 + 1, nullptr);
    } else if (pc.trns) {
        key.gray = static_cast<png_uint_16>(sampleAt(0, 0, 0, pc.bitDepth));
        key.red = key.gray;
        key.green = static_cast<png_uint_16>(sampleAt(0, 0, 1, pc.bitDepth));
        key.blue = static_cast<png_uint_16>(sampleAt(0, 0, 2, pc.bitDepth));
        png_set_tRNS(png, info, nullptr, 0, &key);
    }
    png_write_info(png, info);
    const int channels = channelsOf(pc.colorType);
    std::vector<std::vector<uint8_t>> rows(kH);
    std::vector<png_bytep> rowPointers(kH);
    for (int y = 0; y < kH; ++y) {
        std::vector<uint8_t>& row = rows[y];
        row.assign((kW * channels * pc.bitDepth + 7) / 8, 0);
        int bit = 0;
        for (int x = 0; x < kW; ++x) {
            for (int c = 0; c < channels; ++c, bit += pc.bitDepth) {
                const unsigned v = sampleAt(x, y, c, pc.bitDepth);
                if (pc.bitDepth == 16) {
                    row[bit / 8] = static_cast<uint8_t>(v >> 8);
                    row[bit / 8 + 1] = static_cast<uint8_t>(v);
                } else {
                    row[bit / 8] |= static_cast<uint8_t>(v << (8 - pc.bitDepth - bit % 8));
                }
            }
        }
        rowPointers[y] = row.data();
    }
    png_write_image(png, rowPointers.data());
    png_write_end(png, nullptr);
    png_destroy_write_struct(&png, &info);
    return out;
}

// What the decoder must give for pixel (x, y) of a case, as 0xAARRGGBB.
vyargb expectedPixel(const PngCase& pc, int x, int y) {
    const int d = pc.bitDepth;
    unsigned r, g, b, a = 255;
    switch (pc.colorType) {
    case PNG_COLOR_TYPE_PALETTE: {
        const int i = static_cast<int>(sampleAt(x, y, 0, d));
        const png_color e = paletteEntry(i);
        r = e.red, g = e.green, b = e.blue;
        if (pc.trns && i < (1 << d) / 2 + 1)
            a = paletteAlpha(i);
        break;
    }
    case PNG_COLOR_TYPE_GRAY:
    case PNG_COLOR_TYPE_GRAY_ALPHA:
        r = g = b = to8(sampleAt(x, y, 0, d), d);
        if (pc.colorType == PNG_COLOR_TYPE_GRAY_ALPHA)
            a = to8(sampleAt(x, y, 1, d), d);
        else if (pc.trns && sampleAt(x, y, 0, d) == sampleAt(0, 0, 0, d))
            a = 0;
        break;
    default:
        r = to8(sampleAt(x, y, 0, d), d);
        g = to8(sampleAt(x, y, 1, d), d);
        b = to8(sampleAt(x, y, 2, d), d);
        if (pc.colorType == PNG_COLOR_TYPE_RGB_ALPHA)
            a = to8(sampleAt(x, y, 3, d), d);
        else if (pc.trns && sampleAt(x, y, 0, d) == sampleAt(0, 0, 0, d) &&
                 sampleAt(x, y, 1, d) == sampleAt(0, 0, 1, d) &&
                 sampleAt(x, y, 2, d) == sampleAt(0, 0, 2, d))
            a = 0;
        break;
    }
    return a << 24 | r << 16 | g << 8 | b;
}

void putU32(std::vector<uint8_t>& out, uint32_t v) {
    for (int shift = 24; shift >= 0; shift -= 8)
        out.push_back(static_cast<uint8_t>(v >> shift));
}

void putChunk(std::vector<uint8_t>& out, const char* type, const std::vector<uint8_t>& data) {
    putU32(out, static_cast<uint32_t>(data.size()));
    const size_t typeAt = out.size();
    out.insert(out.end(), type, type + 4);
    out.insert(out.end(), data.begin(), data.end());
    putU32(out, static_cast<uint32_t>(crc32(0, out.data() + typeAt, out.size() - typeAt)));
}

// A signature, an IHDR declaring the given size and an empty IDAT: the decoder learns the
// size, then finds no pixels.
std::vector<uint8_t> headerOnlyPng(uint32_t width, uint32_t height) {
    std::vector<uint8_t> out = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
    std::vector<uint8_t> ihdr;
    putU32(ihdr, width);
    putU32(ihdr, height);
    ihdr.insert(ihdr.end(), {8, PNG_COLOR_TYPE_RGB_ALPHA, 0, 0, 0});
    putChunk(out, "IHDR", ihdr);
    putChunk(out, "IDAT", {});
    return out;
}

std::string tempPath(const char* name) {
    return ::testing::TempDir() + "vybitmap_" + std::to_string(getpid()) + "_" + name;
}

} // namespace

TEST(VyBitmapPng, DecodesEveryColourTypeAndDepthToRgba) {
    const std::vector<std::pair<int, std::vector<int>>> layouts = {
        {PNG_COLOR_TYPE_GRAY, {1, 2, 4, 8, 16}}, {PNG_COLOR_TYPE_GRAY_ALPHA, {8, 16}},
        {PNG_COLOR_TYPE_RGB, {8, 16}},           {PNG_COLOR_TYPE_RGB_ALPHA, {8, 16}},
        {PNG_COLOR_TYPE_PALETTE, {1, 2, 4, 8}},
    };
    for (const auto& [colorType, depths] : layouts) {
        for (int depth : depths) {
            const bool trnsAllowed = (colorType & PNG_COLOR_MASK_ALPHA) == 0;
            for (int trns = 0; trns <= (trnsAllowed ? 1 : 0); ++trns) {
                for (int interlaced = 0; interlaced <= 1; ++interlaced) {
                    const PngCase pc{colorType, depth, trns != 0, interlaced != 0};
                    SCOPED_TRACE(testing::Message() << "type " << colorType << " depth " << depth
                                                    << " tRNS " << trns << " Adam7 " << interlaced);
                    const std::vector<uint8_t> file = writeTestPng(pc);
                    ASSERT_FALSE(file.empty());
                    const VyBitmap bmp = VyBitmap::loadPngFromMemory(file.data(), file.size());
                    ASSERT_FALSE(bmp.isNull());
                    ASSERT_EQ(bmp.width(), kW);
                    ASSERT_EQ(bmp.height(), kH);
                    ASSERT_EQ(bmp.bytesPerLine(), kW * 4);
                    int wrong = 0;
                    for (int y = 0; y < kH; ++y)
                        for (int x = 0; x < kW; ++x)
                            wrong += bmp.pixel(x, y) != expectedPixel(pc, x, y);
                    EXPECT_EQ(wrong, 0) << "first pixel got " << std::hex << bmp.pixel(0, 0)
                                        << " want " << expectedPixel(pc, 0, 0);
                }
            }
        }
    }
}

TEST(VyBitmapPng, TruncatedOrCorruptDataGivesNullBitmap) {
    const std::vector<uint8_t> good = writeTestPng({PNG_COLOR_TYPE_RGB_ALPHA, 16, false, true});
    ASSERT_FALSE(VyBitmap::loadPngFromMemory(good.data(), good.size()).isNull());
    // Everything before the closing IEND chunk (12 bytes) carries pixels or is checked
    // by a CRC, so any cut or any changed byte there must be refused.
    const size_t pixelsEnd = good.size() - 12;
    for (size_t n = 0; n < pixelsEnd; ++n) {
        ASSERT_TRUE(VyBitmap::loadPngFromMemory(good.data(), n).isNull()) << "cut at " << n;
        std::vector<uint8_t> bad = good;
        bad[n] ^= 0x5A;
        ASSERT_TRUE(VyBitmap::loadPngFromMemory(bad.data(), bad.size()).isNull())
            << "byte " << n << " changed";
    }
    const uint8_t text[] = "certainly not a picture";
    EXPECT_TRUE(VyBitmap::loadPngFromMemory(text, sizeof text).isNull());
    EXPECT_TRUE(VyBitmap::loadPngFromMemory(nullptr, 0).isNull());
}

TEST(VyBitmapPng, OversizedImagesAreRefusedBeforeAllocating) {
    for (auto [w, h] :
         {std::pair<uint32_t, uint32_t>{16385, 1}, {1, 20000}, {0x7FFFFFFF, 0x7FFFFFFF}}) {
        const std::vector<uint8_t> file = headerOnlyPng(w, h);
        EXPECT_TRUE(VyBitmap::loadPngFromMemory(file.data(), file.size()).isNull())
            << w << "x" << h;
    }
    // Each side within its limit, the total above it: refused by the total, not by the
    // missing pixels that a smaller image of the same shape runs into.
    for (auto [w, h, reason] : {std::tuple<uint32_t, uint32_t, const char*>{16384, 16384, "limit"},
                                {16, 16, "truncated"}}) {
        const std::vector<uint8_t> file = headerOnlyPng(w, h);
        testing::internal::CaptureStdout();
        EXPECT_TRUE(VyBitmap::loadPngFromMemory(file.data(), file.size()).isNull());
        EXPECT_NE(testing::internal::GetCapturedStdout().find(reason), std::string::npos) << w;
    }
}

TEST(VyBitmapPng, SaveThenLoadKeepsEveryByte) {
    VyBitmap bmp(19, 5);
    uint8_t* p = bmp.bits();
    for (int i = 0; i < 19 * 5 * 4; ++i)
        p[i] = static_cast<uint8_t>(i * 31 + 7);
    const std::string path = tempPath("roundtrip.png");
    ASSERT_TRUE(bmp.savePng(VyString(path)));
    const VyBitmap back = VyBitmap::loadPng(VyString(path));
    ASSERT_EQ(back.width(), 19);
    ASSERT_EQ(back.height(), 5);
    EXPECT_EQ(std::vector<uint8_t>(back.constBits(), back.constBits() + 19 * 5 * 4),
              std::vector<uint8_t>(p, p + 19 * 5 * 4));

    // load() goes by the signature, not by a misleading extension.
    const std::string renamed = tempPath("really_a_png.jpg");
    ASSERT_EQ(std::rename(path.c_str(), renamed.c_str()), 0);
    EXPECT_EQ(VyBitmap::load(VyString(renamed)).pixel(3, 2), bmp.pixel(3, 2));
    std::remove(renamed.c_str());

    EXPECT_FALSE(bmp.savePng(VyString(tempPath("no/such/dir/x.png"))));
    EXPECT_FALSE(VyBitmap().savePng(VyString(tempPath("null.png"))));
    EXPECT_TRUE(VyBitmap::loadPng(VyString(tempPath("missing.png"))).isNull());
    EXPECT_TRUE(VyBitmap::load(VyString(tempPath("missing.png"))).isNull());
}
