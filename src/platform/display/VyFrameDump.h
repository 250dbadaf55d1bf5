#pragma once
// Turns 16-bit ARGB1555 framebuffer contents into a bitmap that can be saved as PNG:
// the screenshot path of fbshot and of the screen tests.
#include "runtime/VyBitmap.h"
#include "runtime/VyString.h"

class VyFrameDump {
public:
    // Each 5-bit channel widens to 8 bits by repeating its top bits, so 31 becomes 255 and
    // 0 stays 0; the result is opaque (the overlay bit is not a picture property).
    static VyBitmap toBitmap(const uint8_t* pixels, int width, int height, int bytesPerLine);
    // The picture the display hardware shows: the video plane (width * height pixels) where
    // an interface pixel has the overlay bit clear.
    static VyBitmap composed(const uint8_t* pixels, int width, int height, int bytesPerLine,
                             const uint16_t* video);
    // A raw little-endian dump of width * height pixels, as the "mem:WxH:FILE" display
    // writes it. Null (and a log line) when the file is missing or too short.
    static VyBitmap fromRawFile(const VyString& path, int width, int height);
    // The visible part of a framebuffer device, opened read-only. 16 bits per pixel only.
    static VyBitmap fromFramebuffer(const VyString& device);
};
