#pragma once
// One channel's crowd-counting rule: a line people cross (two points; "in" is crossing from
// its left to its right, seen from the first point towards the second) or an area they enter
// and leave (3 to kMaxPoints corners), and the number of people inside above which App
// raises the channel's analytics alarm. Points are in picture units, 0..kCoordRange on both
// axes whatever the camera's resolution.
#include <cstddef>
#include <cstdint>

struct CountRule {
    static constexpr size_t kSize = 48; // bytes
    static constexpr int kMaxPoints = 8;
    static constexpr uint16_t kCoordRange = 10000; // the picture's right and bottom edge

    // `shape`.
    static constexpr uint8_t kLine = 0;
    static constexpr uint8_t kArea = 1;

    struct Point {
        uint16_t x = 0;
        uint16_t y = 0;
    };

    uint8_t enabled = 0;
    uint8_t shape = kLine;
    uint8_t pointCount = 0; // points used of `points`
    uint8_t reserved = 0;
    uint32_t limit = 0; // people inside; 0: no alarm
    uint32_t reserved2 = 0;
    Point points[kMaxPoints];
    uint32_t reserved3 = 0;

    // The fewest points the shape needs.
    int minimumPoints() const { return shape == kArea ? 3 : 2; }
    // A rule as read from App made safe to use: a point count beyond the buffer or below
    // the shape's minimum disables the rule, points are kept inside the picture. True when
    // nothing had to change.
    bool sanitise() {
        bool clean = true;
        if (shape != kLine && shape != kArea) {
            shape = kLine;
            clean = false;
        }
        if (pointCount > kMaxPoints || (pointCount != 0 && pointCount < minimumPoints())) {
            pointCount = 0;
            enabled = 0;
            clean = false;
        }
        for (Point& p : points) {
            if (p.x > kCoordRange || p.y > kCoordRange)
                clean = false;
            p.x = p.x > kCoordRange ? kCoordRange : p.x;
            p.y = p.y > kCoordRange ? kCoordRange : p.y;
        }
        return clean;
    }
};

static_assert(sizeof(CountRule) == CountRule::kSize, "wire size");
