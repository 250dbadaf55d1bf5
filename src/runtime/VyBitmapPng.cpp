// PNG reading and writing through libpng. libpng reports errors by longjmp, so every
// function that calls setjmp keeps its state in a struct owned by its caller and holds
// no object with a destructor of its own: nothing is skipped when libpng jumps back.
#include "runtime/VyBitmap.h"

#include <csetjmp>
#include <cstdio>
#include <cstring>

#include <png.h>

#include "runtime/VyLog.h"

namespace {

constexpr size_t kPngSignatureBytes = 8;
constexpr size_t kMessageBytes = 256;

struct PngReader {
    png_structp png = nullptr;
    png_infop info = nullptr;
    const uint8_t* data = nullptr;
    size_t size = 0;
    size_t pos = 0;
    png_uint_32 width = 0;
    png_uint_32 height = 0;
    std::vector<png_bytep> rows;
    char message[kMessageBytes] = "unknown error";

    ~PngReader() {
        if (png)
            png_destroy_read_struct(&png, info ? &info : nullptr, nullptr);
    }
};

struct PngWriter {
    png_structp png = nullptr;
    png_infop info = nullptr;
    FILE* file = nullptr;
    std::vector<png_bytep> rows;
    char message[kMessageBytes] = "unknown error";

    ~PngWriter() {
        if (png)
            png_destroy_write_struct(&png, info ? &info : nullptr);
        if (file)
            std::fclose(file);
    }
};

template <typename State>
void pngError(png_structp png, png_const_charp msg) {
    auto* state = static_cast<State*>(png_get_error_ptr(png));
    std::snprintf(state->message, sizeof state->message, "%s", msg ? msg : "unknown error");
    png_longjmp(png, 1);
}

void pngWarning(png_structp, png_const_charp msg) {
    VY_DEBUG("image", "png warning: %s\n", msg ? msg : "");
}

void pngReadBytes(png_structp png, png_bytep out, png_size_t count) {
    auto* reader = static_cast<PngReader*>(png_get_io_ptr(png));
    if (count > reader->size - reader->pos)
        png_error(png, "truncated data");
    std::memcpy(out, reader->data + reader->pos, count);
    reader->pos += count;
}

// Reads up to the first image data and sets up the expansion to 8-bit RGBA.
bool pngReadHeader(PngReader* r) {
    if (setjmp(png_jmpbuf(r->png)))
        return false;
    png_set_read_fn(r->png, r, pngReadBytes);
    png_set_user_limits(r->png, VyBitmap::kMaxSide, VyBitmap::kMaxSide);
    png_read_info(r->png, r->info);

    const int colorType = png_get_color_type(r->png, r->info);
    const int bitDepth = png_get_bit_depth(r->png, r->info);
    const bool hasTrns = png_get_valid(r->png, r->info, PNG_INFO_tRNS) != 0;
    if (colorType == PNG_COLOR_TYPE_PALETTE)
        png_set_palette_to_rgb(r->png);
    if (colorType == PNG_COLOR_TYPE_GRAY && bitDepth < 8)
        png_set_expand_gray_1_2_4_to_8(r->png);
    if (hasTrns)
        png_set_tRNS_to_alpha(r->png);
    if (bitDepth == 16)
        png_set_strip_16(r->png);
    if (colorType == PNG_COLOR_TYPE_GRAY || colorType == PNG_COLOR_TYPE_GRAY_ALPHA)
        png_set_gray_to_rgb(r->png);
    if ((colorType & PNG_COLOR_MASK_ALPHA) == 0 && !hasTrns)
        png_set_filler(r->png, 0xFF, PNG_FILLER_AFTER);
    png_set_interlace_handling(r->png);
    png_read_update_info(r->png, r->info);

    r->width = png_get_image_width(r->png, r->info);
    r->height = png_get_image_height(r->png, r->info);
    if (png_get_rowbytes(r->png, r->info) != static_cast<size_t>(r->width) * 4)
        png_error(r->png, "unexpected row layout after expansion to RGBA");
    return true;
}

bool pngReadPixels(PngReader* r) {
    if (setjmp(png_jmpbuf(r->png)))
        return false;
    png_read_image(r->png, r->rows.data());
    // The chunks after the image data are not read: nothing in them changes the pixels.
    return true;
}

bool pngWrite(PngWriter* w, int width, int height) {
    if (setjmp(png_jmpbuf(w->png)))
        return false;
    png_init_io(w->png, w->file);
    png_set_IHDR(w->png, w->info, static_cast<png_uint_32>(width), static_cast<png_uint_32>(height),
                 8, PNG_COLOR_TYPE_RGB_ALPHA, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT,
                 PNG_FILTER_TYPE_DEFAULT);
    png_write_info(w->png, w->info);
    png_write_image(w->png, w->rows.data());
    png_write_end(w->png, nullptr);
    return true;
}

} // namespace

VyBitmap VyBitmap::decodePng(const uint8_t* data, size_t size, const char* source) {
    if (!data || size < kPngSignatureBytes || png_sig_cmp(data, 0, kPngSignatureBytes) != 0) {
        vyFrameworkLog("loadPng: \"%s\" is not a PNG image !!!\n", source);
        return VyBitmap();
    }
    PngReader reader;
    reader.data = data;
    reader.size = size;
    reader.png =
        png_create_read_struct(PNG_LIBPNG_VER_STRING, &reader, pngError<PngReader>, pngWarning);
    if (reader.png)
        reader.info = png_create_info_struct(reader.png);
    if (!reader.info) {
        vyFrameworkLog("loadPng: \"%s\": out of memory !!!\n", source);
        return VyBitmap();
    }
    if (!pngReadHeader(&reader)) {
        vyFrameworkLog("loadPng: \"%s\" failed: %s !!!\n", source, reader.message);
        return VyBitmap();
    }
    if (static_cast<int64_t>(reader.width) * reader.height > kMaxPixels) {
        vyFrameworkLog("loadPng: \"%s\": image size %ux%u is over the limit !!!\n", source,
                       reader.width, reader.height);
        return VyBitmap();
    }
    VyBitmap bitmap = allocateUninitialised(static_cast<int>(reader.width),
                                            static_cast<int>(reader.height), "loadPng");
    if (bitmap.isNull())
        return bitmap;
    uint8_t* pixels = bitmap.m_data->pixels.get();
    reader.rows.resize(reader.height);
    for (png_uint_32 y = 0; y < reader.height; ++y)
        reader.rows[y] = pixels + static_cast<size_t>(y) * reader.width * 4;
    if (!pngReadPixels(&reader)) {
        vyFrameworkLog("loadPng: \"%s\" failed: %s !!!\n", source, reader.message);
        return VyBitmap();
    }
    return bitmap;
}

bool VyBitmap::savePng(const VyString& path) const {
    if (isNull()) {
        vyFrameworkLog("savePng: \"%s\": the bitmap is null !!!\n", path.c_str());
        return false;
    }
    PngWriter writer;
    writer.file = std::fopen(path.c_str(), "wb");
    if (!writer.file) {
        vyFrameworkLog("savePng: cannot create \"%s\" !!!\n", path.c_str());
        return false;
    }
    writer.png =
        png_create_write_struct(PNG_LIBPNG_VER_STRING, &writer, pngError<PngWriter>, pngWarning);
    if (writer.png)
        writer.info = png_create_info_struct(writer.png);
    bool ok = writer.info != nullptr;
    if (ok) {
        // libpng only reads through these row pointers.
        uint8_t* pixels = const_cast<uint8_t*>(constBits());
        writer.rows.resize(static_cast<size_t>(height()));
        for (int y = 0; y < height(); ++y)
            writer.rows[y] = pixels + static_cast<size_t>(y) * bytesPerLine();
        ok = pngWrite(&writer, width(), height());
    }
    const bool closed = std::fclose(writer.file) == 0;
    writer.file = nullptr;
    if (!ok || !closed) {
        vyFrameworkLog("savePng: writing \"%s\" failed: %s !!!\n", path.c_str(),
                       ok ? "close failed" : writer.message);
        std::remove(path.c_str());
        return false;
    }
    return true;
}
