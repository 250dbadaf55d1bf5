#pragma once
// An RGBA8888 picture: four bytes per pixel in the order R, G, B, A, rows packed with a
// stride of width * 4 bytes. Copies share the pixels until one of them asks for writable
// bits. Loading never throws and never aborts: a missing, corrupt, truncated or oversized
// image prints one line ending " !!!" and gives a null bitmap.
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "runtime/VyGlobal.h"
#include "runtime/VyString.h"

class VyBitmap {
public:
    // Decoders refuse anything larger before allocating.
    static constexpr int kMaxSide = 16384;                             // pixels per row or column
    static constexpr int64_t kMaxPixels = 64LL * 1024 * 1024;          // pixels in total
    static constexpr size_t kMaxFileBytes = size_t(128) * 1024 * 1024; // bytes of an image file

    VyBitmap() = default;
    // Zero-filled (transparent black). A size that is not positive, or above the limits,
    // gives a null bitmap.
    VyBitmap(int width, int height);

    bool isNull() const { return !m_data; }
    int width() const { return m_data ? m_data->width : 0; }
    int height() const { return m_data ? m_data->height : 0; }
    int bytesPerLine() const { return width() * 4; }

    // Writable pixels; a bitmap that shares them with a copy gets its own first.
    uint8_t* bits();
    const uint8_t* constBits() const { return m_data ? m_data->pixels.get() : nullptr; }
    const uint8_t* bits() const { return constBits(); }

    // 0xAARRGGBB of one pixel; 0 outside the bitmap.
    vyargb pixel(int x, int y) const;
    void fill(vyargb color);

    static VyBitmap loadPng(const VyString& path);
    static VyBitmap loadPngFromMemory(const uint8_t* data, size_t size);
    static VyBitmap loadJpeg(const VyString& path);
    static VyBitmap loadJpegFromMemory(const uint8_t* data, size_t size);
    // PNG or JPEG chosen by the file's signature, else by its extension.
    static VyBitmap load(const VyString& path);

    // 8-bit RGBA PNG; false (and a log line) when the file cannot be written.
    bool savePng(const VyString& path) const;
    // Baseline JPEG of the colour channels (alpha is dropped); quality is clamped to 1..100.
    // Empty on failure.
    std::vector<uint8_t> encodeJpeg(int quality) const;

    // Nearest-neighbour resampling to the given size; null when either side is not positive.
    VyBitmap scaled(int width, int height) const;

private:
    struct Data {
        int width = 0;
        int height = 0;
        std::unique_ptr<uint8_t[]> pixels;
    };

    // Checks the size against the limits (logging what is refused on behalf of `what`) and
    // allocates pixels that the caller will overwrite entirely.
    static VyBitmap allocateUninitialised(int width, int height, const char* what);
    static bool readFile(const VyString& path, std::vector<uint8_t>& out, const char* what);
    static VyBitmap decodePng(const uint8_t* data, size_t size, const char* source);
    static VyBitmap decodeJpeg(const uint8_t* data, size_t size, const char* source);

    std::shared_ptr<Data> m_data;
};
