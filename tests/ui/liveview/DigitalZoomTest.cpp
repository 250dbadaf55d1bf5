// The digital zoom's arithmetic: the part shown stays inside the picture at every edge, keeps
// the point under the pointer in place while there is room, and stops at its limits.
#include "ui/liveview/DigitalZoom.h"

#include <gtest/gtest.h>

#include <random>

namespace {

void expectInsidePicture(const PreviewZoom& z) {
    EXPECT_LT(z.left, z.right);
    EXPECT_LT(z.top, z.bottom);
    EXPECT_LE(z.right, PreviewZoom::kFull);
    EXPECT_LE(z.bottom, PreviewZoom::kFull);
    // Square in picture units: the same fraction across and down.
    EXPECT_EQ(z.right - z.left, z.bottom - z.top);
}

} // namespace

TEST(DigitalZoom, ZoomAtTheCornersAndEdgesKeepsThePartInsideThePicture) {
    struct Case {
        double fx, fy;
        uint16_t left, top; // of the part after 4 notches in (factor 1.25^4 = 2.44)
    };
    // Zooming around a corner pins that corner; around the middle of an edge, that edge.
    const Case cases[] = {
        {0.0, 0.0, 0, 0},    {1.0, 1.0, 5904, 5904}, {1.0, 0.0, 5904, 0},
        {0.0, 1.0, 0, 5904}, {0.5, 0.0, 2952, 0},    {0.5, 0.5, 2952, 2952},
    };
    for (const Case& c : cases) {
        DigitalZoom z;
        z.zoomAround(c.fx, c.fy, 4);
        const PreviewZoom r = z.region(3);
        expectInsidePicture(r);
        EXPECT_EQ(r.channel, 3);
        EXPECT_EQ(r.left, c.left) << c.fx << "," << c.fy;
        EXPECT_EQ(r.top, c.top) << c.fx << "," << c.fy;
        EXPECT_EQ(r.right - r.left, 4096);
    }
}

TEST(DigitalZoom, LimitsPansAndTheWayBack) {
    DigitalZoom z;
    z.zoomAround(0.5, 0.5, -3); // out from the whole picture: nothing to do
    EXPECT_TRUE(z.region(0).isWhole());
    z.panBy(0.3, -0.2); // a whole picture does not pan
    EXPECT_TRUE(z.region(0).isWhole());

    z.zoomAround(0.5, 0.5, 40); // far past the limit
    EXPECT_DOUBLE_EQ(z.factor(), DigitalZoom::kMaxFactor);
    EXPECT_EQ(z.region(0).right - z.region(0).left, PreviewZoom::kFull / 8);

    // Dragging far right and down shows the top-left corner, and no further.
    z.panBy(50.0, 50.0);
    EXPECT_EQ(z.region(0).left, 0);
    EXPECT_EQ(z.region(0).top, 0);
    z.panBy(-50.0, -50.0);
    EXPECT_EQ(z.region(0).right, PreviewZoom::kFull);
    EXPECT_EQ(z.region(0).bottom, PreviewZoom::kFull);
    // A drag of one cell width moves the part by its own width.
    z.panBy(0.5, 0.0);
    EXPECT_EQ(z.region(0).left, PreviewZoom::kFull - PreviewZoom::kFull / 8 * 3 / 2);

    z.zoomAround(0.2, 0.9, -40);
    EXPECT_TRUE(z.region(0).isWhole());
}

TEST(DigitalZoom, RandomWheelAndDragKeepThePartValidAndThePointerPointFixed) {
    std::mt19937 rng(7);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    std::uniform_int_distribution<int> notches(-3, 3);
    DigitalZoom z;
    for (int i = 0; i < 2000; ++i) {
        const double fx = unit(rng);
        const double fy = unit(rng);
        if (i % 3 == 0) {
            z.panBy(unit(rng) - 0.5, unit(rng) - 0.5);
        } else {
            const double beforeX = z.left() + fx * z.size();
            const double beforeY = z.top() + fy * z.size();
            const double factor = z.factor();
            z.zoomAround(fx, fy, notches(rng));
            // Away from the limits and the picture's edges the point under the pointer stays.
            const double afterX = z.left() + fx * z.size();
            const double afterY = z.top() + fy * z.size();
            const bool room = z.left() > 0 && z.top() > 0 && z.left() + z.size() < 1.0 &&
                              z.top() + z.size() < 1.0;
            if (room && z.factor() != factor) {
                EXPECT_NEAR(afterX, beforeX, 1e-9);
                EXPECT_NEAR(afterY, beforeY, 1e-9);
            }
        }
        expectInsidePicture(z.region(0));
        ASSERT_GE(z.factor(), 1.0);
        ASSERT_LE(z.factor(), DigitalZoom::kMaxFactor);
    }
}
