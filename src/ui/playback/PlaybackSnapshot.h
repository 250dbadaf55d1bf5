#pragma once
// Snapshots of a playback cell: the picture encoded as JPEG in memory at a set quality and
// written as "CH%1_%2_%3.jpg" (channel from 1, date, time of the picture).
#include "runtime/VyBitmap.h"
#include "runtime/VyDateTime.h"
#include "runtime/VyRect.h"
#include "runtime/VyString.h"

class VyScreen;

class PlaybackSnapshot {
public:
    static constexpr const char* kFileName = "CH%1_%2_%3.jpg";
    static constexpr int kQuality = 85; // JPEG quality, 1..100

    static VyString fileName(int channel, const VyDateTime& time);
    // The screen's pixels of `area` (16-bit framebuffer) as a bitmap; null outside the screen.
    static VyBitmap grab(const VyScreen* screen, const VyRect& area);
    // Encodes and writes the picture into `directory`; the path written, or empty (and a log
    // line) on failure.
    static VyString save(const VyBitmap& picture, int channel, const VyDateTime& time,
                         const VyString& directory, int quality = kQuality);
};
