#include "runtime/VyRegion.h"

#include <climits>
#include <random>
#include <vector>

#include <gtest/gtest.h>

namespace {

// Every pixel of the playground, as a plain boolean grid. Rectangles are drawn inside
// [0, kSpan) and moved by at most kMargin, so the grid [-kMargin, kSpan + kMargin) sees all.
constexpr int kSpan = 32;
constexpr int kMargin = 6;
constexpr int kGrid = kSpan + 2 * kMargin;

struct Model {
    std::vector<bool> on = std::vector<bool>(kGrid * kGrid, false);

    bool at(int x, int y) const {
        if (x < -kMargin || y < -kMargin || x >= kSpan + kMargin || y >= kSpan + kMargin)
            return false;
        return on[(y + kMargin) * kGrid + x + kMargin];
    }
    void set(const VyRect& r, bool value) {
        for (int y = r.top; y <= r.bottom; ++y)
            for (int x = r.left; x <= r.right; ++x)
                on[(y + kMargin) * kGrid + x + kMargin] = value;
    }
    template <typename F>
    static Model of(F pixelIsOn) {
        Model m;
        for (int y = -kMargin; y < kSpan + kMargin; ++y)
            for (int x = -kMargin; x < kSpan + kMargin; ++x)
                m.on[(y + kMargin) * kGrid + x + kMargin] = pixelIsOn(x, y);
        return m;
    }
};

VyRect randomRect(std::mt19937& rng) {
    std::uniform_int_distribution<int> pos(0, kSpan - 1);
    std::uniform_int_distribution<int> len(1, 12);
    const int x = pos(rng);
    const int y = pos(rng);
    return VyRect(x, y, std::min(len(rng), kSpan - x), std::min(len(rng), kSpan - y));
}

// A region of a few random rectangles, mostly united, sometimes cut; the model follows.
VyRegion randomRegion(std::mt19937& rng, Model& model) {
    VyRegion region;
    const int count = std::uniform_int_distribution<int>(0, 8)(rng);
    for (int i = 0; i < count; ++i) {
        const VyRect r = randomRect(rng);
        const bool cut = i > 0 && rng() % 4 == 0;
        cut ? region.subtract(r) : region.unite(r);
        model.set(r, !cut);
    }
    return region;
}

// The same set rebuilt pixel by pixel in raster order (the append fast paths).
VyRegion rasterRegion(const Model& model) {
    VyRegion region;
    for (int y = -kMargin; y < kSpan + kMargin; ++y) {
        for (int x = -kMargin; x < kSpan + kMargin; ++x) {
            if (model.at(x, y))
                region.unite(VyRect(x, y, 1, 1));
        }
    }
    return region;
}

void expectMatches(const VyRegion& region, const Model& model, const char* what) {
    SCOPED_TRACE(what);
    std::vector<int> cover(kGrid * kGrid, 0);
    const VyVector<VyRect> rects = region.rects();
    for (const VyRect& r : rects.toStdVector()) {
        ASSERT_FALSE(r.isEmpty());
        ASSERT_GE(r.left, -kMargin);
        ASSERT_GE(r.top, -kMargin);
        ASSERT_LT(r.right, kSpan + kMargin);
        ASSERT_LT(r.bottom, kSpan + kMargin);
        for (int y = r.top; y <= r.bottom; ++y)
            for (int x = r.left; x <= r.right; ++x)
                ++cover[(y + kMargin) * kGrid + x + kMargin];
    }
    VyRect bounds;
    bool mismatch = false;
    for (int y = -kMargin; y < kSpan + kMargin; ++y) {
        for (int x = -kMargin; x < kSpan + kMargin; ++x) {
            const int c = cover[(y + kMargin) * kGrid + x + kMargin];
            mismatch |= c != (model.at(x, y) ? 1 : 0) || region.contains(x, y) != model.at(x, y);
            if (model.at(x, y))
                bounds = bounds.united(VyRect(x, y, 1, 1));
        }
    }
    EXPECT_FALSE(mismatch) << "rects() or contains() disagree with the pixel model";
    EXPECT_EQ(region.isEmpty(), bounds.isEmpty());
    EXPECT_EQ(region.boundingRect(), bounds);
    EXPECT_EQ(region, rasterRegion(model)) << "equal sets must compare equal";
}

} // namespace

TEST(VyRegionAlgebra, MatchesPixelModelOnRandomSets) {
    std::mt19937 rng(20240611);
    for (int round = 0; round < 300; ++round) {
        SCOPED_TRACE(round);
        Model ma;
        Model mb;
        const VyRegion a = randomRegion(rng, ma);
        const VyRegion b = randomRegion(rng, mb);
        const VyRect r = randomRect(rng);
        const int dx = std::uniform_int_distribution<int>(-kMargin, kMargin)(rng);
        const int dy = std::uniform_int_distribution<int>(-kMargin, kMargin)(rng);

        expectMatches(a, ma, "built");
        expectMatches(a.united(b),
                      Model::of([&](int x, int y) { return ma.at(x, y) || mb.at(x, y); }),
                      "united");
        expectMatches(a.intersected(b),
                      Model::of([&](int x, int y) { return ma.at(x, y) && mb.at(x, y); }),
                      "intersected");
        expectMatches(a.subtracted(b),
                      Model::of([&](int x, int y) { return ma.at(x, y) && !mb.at(x, y); }),
                      "subtracted");
        expectMatches(a.intersected(r),
                      Model::of([&](int x, int y) { return ma.at(x, y) && r.contains(x, y); }),
                      "intersected rect");
        expectMatches(a.translated(dx, dy),
                      Model::of([&](int x, int y) { return ma.at(x - dx, y - dy); }), "translated");
        // In-place forms go through the shared scratch storage; they must agree.
        VyRegion inPlace = a;
        inPlace.unite(b).subtract(r);
        EXPECT_EQ(inPlace, a.united(b).subtracted(VyRegion(r)));

        bool inside = true;
        bool touches = false;
        for (int y = r.top; y <= r.bottom; ++y) {
            for (int x = r.left; x <= r.right; ++x) {
                inside &= ma.at(x, y);
                touches |= ma.at(x, y);
            }
        }
        EXPECT_EQ(a.contains(r), inside);
        EXPECT_EQ(a.intersects(r), touches);
        EXPECT_EQ(a.intersects(b), !a.intersected(b).isEmpty());
    }
}

TEST(VyRegionAlgebra, TouchingPiecesCollapseToOneRect) {
    std::mt19937 rng(7);
    std::vector<VyRect> tiles;
    for (int ty = 0; ty < 4; ++ty)
        for (int tx = 0; tx < 4; ++tx)
            tiles.push_back(VyRect(tx * 8, ty * 8, 8, 8));
    std::shuffle(tiles.begin(), tiles.end(), rng);
    VyRegion region;
    for (const VyRect& t : tiles)
        region.unite(t);
    EXPECT_EQ(region.rectCount(), 1);
    EXPECT_EQ(region, VyRegion(0, 0, 32, 32));

    // Cutting a hole and filling it again must give back the same single rectangle.
    region.subtract(VyRect(10, 10, 5, 5));
    EXPECT_EQ(region.rectCount(), 4);
    region.unite(VyRect(10, 10, 5, 5));
    EXPECT_EQ(region.rectCount(), 1);
}

TEST(VyRegionAlgebra, EmptyAndSelfOperands) {
    VyRegion a(2, 3, 10, 4);
    const VyRegion original = a;
    a.unite(VyRect()).unite(VyRect(5, 5, 0, 3)).subtract(VyRect(1, 1, -2, 5));
    EXPECT_EQ(a, original);
    EXPECT_FALSE(a.contains(VyRect()));
    EXPECT_FALSE(a.intersects(VyRect()));
    a.unite(a);
    EXPECT_EQ(a, original);
    a.intersect(a);
    EXPECT_EQ(a, original);
    EXPECT_TRUE(a.intersected(VyRect()).isEmpty());
    a.subtract(a);
    EXPECT_TRUE(a.isEmpty());
    EXPECT_TRUE(a.boundingRect().isEmpty());
    EXPECT_TRUE(a.rects().isEmpty());
}

TEST(VyRegionAlgebra, ExtremeCoordinatesAreClampedWithoutOverflow) {
    VyRegion all(VyRect::fromEdges(INT_MIN, INT_MIN, INT_MAX, INT_MAX));
    const VyRect limit = VyRect::fromEdges(-VyRegion::kCoordLimit, -VyRegion::kCoordLimit,
                                           VyRegion::kCoordLimit, VyRegion::kCoordLimit);
    EXPECT_EQ(all.boundingRect(), limit);
    all.translate(INT_MAX, INT_MIN);
    EXPECT_TRUE(limit.contains(all.boundingRect()));
    EXPECT_TRUE(all.contains(VyRegion::kCoordLimit, -VyRegion::kCoordLimit));
    EXPECT_FALSE(all.contains(0, 0));
    all.translate(INT_MIN, INT_MAX);
    EXPECT_EQ(all, VyRegion(-VyRegion::kCoordLimit, VyRegion::kCoordLimit, 1, 1));
}
