#pragma once
// The parsed form of a display device name ("mem:800x600", "window:1280x720",
// "mem:320x240:/tmp/fb.raw", "/dev/fb0").
#include "runtime/VyString.h"

struct VyDisplayDeviceName {
    enum Kind { Invalid, Framebuffer, Memory, Window };

    // Larger outputs are refused before anything is allocated.
    static constexpr int kMaxDimension = 8192; // pixels

    Kind kind = Invalid;
    int width = 0;
    int height = 0;
    VyString path; // the device path, or the backing file of a shared memory output

    static VyDisplayDeviceName parse(const VyString& device);
};
