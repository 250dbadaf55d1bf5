#pragma once
// The video plane beneath the interface plane, as the device's display hardware composes
// them: where an interface pixel has the overlay bit (bit 15) clear, the video shows. On a
// PC the recorder simulator draws its pictures into a shared file of 16-bit pixels (5 bits
// per channel, bit 15 unused) the size of the framebuffer; the desktop window and fbshot
// read it here. The file is named by $VY_VIDEO_PLANE.
#include "runtime/VyMapping.h"
#include "runtime/VyString.h"

#include <cstdint>

class VyVideoPlane {
public:
    static constexpr const char* kEnvironment = "VY_VIDEO_PLANE";
    // How often a window that shows the plane redraws it (the pictures move).
    static constexpr int kRefreshMs = 100;

    // $VY_VIDEO_PLANE, or empty.
    static VyString configuredPath();

    // Maps the file read-only when it holds at least width * height pixels; false (quietly:
    // the simulator may not have made it yet) otherwise.
    bool open(const VyString& path, int width, int height);
    bool isOpen() const { return m_pixels != nullptr; }
    void close();
    const uint16_t* pixels() const { return m_pixels; }
    int width() const { return m_width; }

    // One row: the interface pixel where its bit 15 is set, the video pixel where not.
    // Without a plane the transparent pixels show black.
    static void composeRow(const uint16_t* gui, const uint16_t* video, uint16_t* out, int n);

private:
    VyMapping m_mapping;
    const uint16_t* m_pixels = nullptr;
    int m_width = 0;
};
