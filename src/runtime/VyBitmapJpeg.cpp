// JPEG decoding and encoding through libjpeg. The library's default error handler exits the
// process; ours longjmps back instead. As with PNG, the functions that call setjmp keep
// their state in a struct owned by the caller and hold no destructible objects themselves.
#include "runtime/VyBitmap.h"

#include <algorithm>
#include <csetjmp>
#include <cstdio>
#include <cstdlib>
#include <cstring>

// jpeglib.h needs FILE and size_t declared before it.
#include <jerror.h>
#include <jpeglib.h>

#include "runtime/VyLog.h"

namespace {

constexpr int kMinQuality = 1;
constexpr int kMaxQuality = 100;

struct JpegError {
    jpeg_error_mgr base; // first, so the library's pointer to it is a pointer to us
    jmp_buf jump;
    char message[JMSG_LENGTH_MAX];
};

[[noreturn]] void jpegErrorExit(j_common_ptr cinfo) {
    auto* err = reinterpret_cast<JpegError*>(cinfo->err);
    (*cinfo->err->format_message)(cinfo, err->message);
    std::longjmp(err->jump, 1);
}

void jpegOutputMessage(j_common_ptr cinfo) {
    char text[JMSG_LENGTH_MAX];
    (*cinfo->err->format_message)(cinfo, text);
    VY_DEBUG("image", "jpeg: %s\n", text);
}

void jpegEmitMessage(j_common_ptr cinfo, int level) {
    if (level >= 0)
        return; // trace messages
    // A file that ends early would be decoded with grey filling the rest; a picture with
    // a missing part is worth less than a clear failure.
    if (cinfo->err->msg_code == JWRN_JPEG_EOF)
        jpegErrorExit(cinfo);
    ++cinfo->err->num_warnings;
    jpegOutputMessage(cinfo);
}

void installErrorManager(JpegError& err) {
    jpeg_std_error(&err.base);
    err.base.error_exit = jpegErrorExit;
    err.base.emit_message = jpegEmitMessage;
    err.base.output_message = jpegOutputMessage;
    std::snprintf(err.message, sizeof err.message, "unknown error");
}

struct JpegReader {
    jpeg_decompress_struct cinfo;
    JpegError err;
    bool created = false;
    bool cmyk = false;
    std::vector<uint8_t> cmykRow;

    ~JpegReader() {
        if (created)
            jpeg_destroy_decompress(&cinfo);
    }
};

struct JpegWriter {
    jpeg_compress_struct cinfo;
    JpegError err;
    bool created = false;
    unsigned char* buffer = nullptr; // malloc'ed by the library's memory destination
    unsigned long bufferSize = 0;

    ~JpegWriter() {
        if (created)
            jpeg_destroy_compress(&cinfo);
        std::free(buffer);
    }
};

bool jpegReadHeader(JpegReader* r, const uint8_t* data, size_t size) {
    if (setjmp(r->err.jump))
        return false;
    jpeg_create_decompress(&r->cinfo);
    r->created = true;
    jpeg_mem_src(&r->cinfo, data, static_cast<unsigned long>(size));
    jpeg_read_header(&r->cinfo, TRUE);
    // Adobe CMYK and YCCK have no direct conversion to RGBA; they are converted per row.
    r->cmyk = r->cinfo.jpeg_color_space == JCS_CMYK || r->cinfo.jpeg_color_space == JCS_YCCK;
    r->cinfo.out_color_space = r->cmyk ? JCS_CMYK : JCS_EXT_RGBA;
    return true;
}

bool jpegReadPixels(JpegReader* r, uint8_t* pixels) {
    if (setjmp(r->err.jump))
        return false;
    jpeg_start_decompress(&r->cinfo);
    const JDIMENSION width = r->cinfo.output_width;
    while (r->cinfo.output_scanline < r->cinfo.output_height) {
        uint8_t* row = pixels + static_cast<size_t>(r->cinfo.output_scanline) * width * 4;
        JSAMPROW target = r->cmyk ? r->cmykRow.data() : row;
        if (jpeg_read_scanlines(&r->cinfo, &target, 1) != 1)
            ERREXIT(&r->cinfo, JERR_BAD_BUFFER_MODE);
        if (!r->cmyk)
            continue;
        // Adobe writes CMYK inverted: each stored value is 255 minus the ink.
        for (JDIMENSION x = 0; x < width; ++x) {
            const unsigned k = target[x * 4 + 3];
            row[x * 4 + 0] = static_cast<uint8_t>(target[x * 4 + 0] * k / 255);
            row[x * 4 + 1] = static_cast<uint8_t>(target[x * 4 + 1] * k / 255);
            row[x * 4 + 2] = static_cast<uint8_t>(target[x * 4 + 2] * k / 255);
            row[x * 4 + 3] = 0xFF;
        }
    }
    jpeg_finish_decompress(&r->cinfo);
    return true;
}

bool jpegEncode(JpegWriter* w, const uint8_t* pixels, int width, int height, int quality) {
    if (setjmp(w->err.jump))
        return false;
    jpeg_create_compress(&w->cinfo);
    w->created = true;
    jpeg_mem_dest(&w->cinfo, &w->buffer, &w->bufferSize);
    w->cinfo.image_width = static_cast<JDIMENSION>(width);
    w->cinfo.image_height = static_cast<JDIMENSION>(height);
    w->cinfo.input_components = 4;
    w->cinfo.in_color_space = JCS_EXT_RGBA; // the alpha byte is skipped
    jpeg_set_defaults(&w->cinfo);
    jpeg_set_quality(&w->cinfo, quality, TRUE);
    jpeg_start_compress(&w->cinfo, TRUE);
    while (w->cinfo.next_scanline < w->cinfo.image_height) {
        // libjpeg only reads the rows it is given.
        JSAMPROW row =
            const_cast<uint8_t*>(pixels) + static_cast<size_t>(w->cinfo.next_scanline) * width * 4;
        jpeg_write_scanlines(&w->cinfo, &row, 1);
    }
    jpeg_finish_compress(&w->cinfo);
    return true;
}

} // namespace

VyBitmap VyBitmap::decodeJpeg(const uint8_t* data, size_t size, const char* source) {
    if (!data || size == 0) {
        vyFrameworkLog("loadJpeg: \"%s\" is empty !!!\n", source);
        return VyBitmap();
    }
    JpegReader reader;
    installErrorManager(reader.err);
    reader.cinfo.err = &reader.err.base;
    if (!jpegReadHeader(&reader, data, size)) {
        vyFrameworkLog("loadJpeg: \"%s\" is not a readable JPEG image: %s !!!\n", source,
                       reader.err.message);
        return VyBitmap();
    }
    const JDIMENSION width = reader.cinfo.image_width;
    const JDIMENSION height = reader.cinfo.image_height;
    if (width > static_cast<JDIMENSION>(kMaxSide) || height > static_cast<JDIMENSION>(kMaxSide) ||
        static_cast<int64_t>(width) * height > kMaxPixels) {
        vyFrameworkLog("loadJpeg: \"%s\": image size %ux%u is over the limit !!!\n", source, width,
                       height);
        return VyBitmap();
    }
    VyBitmap bitmap =
        allocateUninitialised(static_cast<int>(width), static_cast<int>(height), "loadJpeg");
    if (bitmap.isNull())
        return bitmap;
    if (reader.cmyk)
        reader.cmykRow.resize(static_cast<size_t>(width) * 4);
    if (!jpegReadPixels(&reader, bitmap.m_data->pixels.get())) {
        vyFrameworkLog("loadJpeg: \"%s\" is corrupt: %s !!!\n", source, reader.err.message);
        return VyBitmap();
    }
    return bitmap;
}

std::vector<uint8_t> VyBitmap::encodeJpeg(int quality) const {
    std::vector<uint8_t> out;
    if (isNull()) {
        vyFrameworkLog("encodeJpeg: the bitmap is null !!!\n");
        return out;
    }
    JpegWriter writer;
    installErrorManager(writer.err);
    writer.cinfo.err = &writer.err.base;
    const int q = std::clamp(quality, kMinQuality, kMaxQuality);
    if (!jpegEncode(&writer, constBits(), width(), height(), q)) {
        vyFrameworkLog("encodeJpeg: encoding failed: %s !!!\n", writer.err.message);
        return out;
    }
    out.assign(writer.buffer, writer.buffer + writer.bufferSize);
    return out;
}
