// The split-layout catalogue and the geometry engine, the latter checked against an exact
// integer recomputation of the same rules for every layout at two interface sizes, with and
// without output-plane alignment.
#include "runtime/VyResources.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/i18n/VyTranslation.h"
#include "ui/liveview/Video.h"
#include "ui/liveview/VideoLayout.h"
#include "ui/liveview/VyVideoScreenLayout.h"
#include "ui/liveview/VyVideoScreenLayoutManager.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace {

VyVideoScreenLayoutManager* catalogue() {
    return VyVideoScreenLayoutManager::instance();
}

// Spans of big cells, anchored position -> size; everything else must be 1 or covered.
std::vector<int> bigCells(const VyVideoScreenLayout& l) {
    std::vector<int> sizes;
    for (int r = 0; r < l.rows(); ++r)
        for (int c = 0; c < l.columns(); ++c)
            if (l.cellSpan(r, c) > 1)
                sizes.push_back(l.cellSpan(r, c));
    return sizes;
}

} // namespace

TEST(VideoScreenLayoutCatalogue, HoldsTheTwentyFiveLayoutsWithTheirCellCounts) {
    const int expected[] = {1,  4,  6,  8,  9,  10, 10, 12, 13, 13, 14, 16, 17,
                            19, 20, 22, 25, 32, 36, 42, 49, 56, 64, 6,  2};
    ASSERT_EQ(catalogue()->layoutCount(), 25);
    for (int id = 0; id < 25; ++id) {
        SCOPED_TRACE(id);
        const VyVideoScreenLayout* l = catalogue()->layoutById(id);
        ASSERT_NE(l, nullptr);
        EXPECT_EQ(l->cellCount(), expected[id]);
        EXPECT_EQ(catalogue()->cellCountOf(id), expected[id]);
        EXPECT_EQ(catalogue()->indexOf(l), id);
        // Covered positions and spans add up to the grid.
        int area = 0;
        for (int r = 0; r < l->rows(); ++r)
            for (int c = 0; c < l->columns(); ++c)
                area += l->cellSpan(r, c) * l->cellSpan(r, c);
        EXPECT_EQ(area, l->rows() * l->columns());
        if (id < 23) {
            EXPECT_EQ(catalogue()->countAt(id), expected[id]);
        }
    }
    EXPECT_EQ(catalogue()->name(24), "2");
    EXPECT_EQ(catalogue()->layoutById(23)->rows(), 3);
    EXPECT_EQ(catalogue()->layoutById(23)->columns(), 2);
    EXPECT_EQ(bigCells(*catalogue()->layoutById(9)), (std::vector<int>{2, 2, 2, 2}));
    EXPECT_EQ(bigCells(*catalogue()->layoutById(17)), (std::vector<int>{2, 2, 2, 3}));
}

TEST(VideoScreenLayoutCatalogue, OutOfRangeRequestsAreAbsorbed) {
    EXPECT_EQ(catalogue()->layoutAt(-1), catalogue()->layoutAt(0));
    EXPECT_EQ(catalogue()->layoutAt(25), catalogue()->layoutAt(0));
    EXPECT_EQ(catalogue()->layoutById(25), nullptr);
    EXPECT_EQ(catalogue()->cellCountOf(99), 0);
    EXPECT_EQ(catalogue()->countAt(-1), 1);
    EXPECT_EQ(catalogue()->countAt(23), 1);
    EXPECT_EQ(catalogue()->displayText(25), "");
    EXPECT_EQ(catalogue()->layoutAt(0)->cellSpan(1, 0), 0);
}

TEST(VideoScreenLayoutCatalogue, FindsTheSmallestSplitForACount) {
    struct Case {
        int minimum;
        bool merged;
        int id;
    } cases[] = {{5, false, 4},  {5, true, 2},  {65, false, 0},  {65, true, 0}, {1, false, 0},
                 {10, false, 7}, {10, true, 5}, {64, false, 22}, {33, true, 18}};
    for (const Case& c : cases)
        EXPECT_EQ(catalogue()->findLayoutForCount(c.minimum, c.merged), c.id)
            << c.minimum << (c.merged ? " merged" : "");
}

TEST(VideoScreenLayoutCatalogue, DisplayTextPutsTheNameIntoTheTranslatedText) {
    VyResources::setRoot(VY_RESOURCES_DIR);
    auto* t = new VyTranslation(VyString(VY_RESOURCES_DIR "/language"), nullptr);
    VyTranslation::resetInstance(t);
    t->changeLanguage(VyTranslation::kEnglish);
    EXPECT_EQ(catalogue()->displayText(9), "13-1 Split");
    EXPECT_EQ(catalogue()->displayText(24), "2 Split");
    t->changeLanguage(12); // japanese
    EXPECT_EQ(catalogue()->displayText(11), VyString::fromUtf8("16分割"));
    VyTranslation::resetInstance();
}

TEST(VideoScreenLayoutMerge, GrowsRingByRingAndRefusesWhatDoesNotFit) {
    VyVideoScreenLayout l(5, 5);
    l.mergeCells(0, 0, 2);
    EXPECT_EQ(l.cellCount(), 22);
    // Across the big cell: unchanged.
    l.mergeCells(1, 1, 2);
    EXPECT_EQ(l.cellCount(), 22);
    EXPECT_EQ(l.cellSpan(1, 1), 0);
    l.mergeCells(0, 1, 3);
    EXPECT_EQ(l.cellCount(), 22);
    // Growing a big cell through a region that holds another is abandoned whole.
    l.mergeCells(2, 2, 2);
    EXPECT_EQ(l.cellCount(), 19);
    l.mergeCells(0, 0, 4);
    EXPECT_EQ(l.cellCount(), 19);
    EXPECT_EQ(l.cellSpan(0, 0), 2);
    EXPECT_EQ(l.cellSpan(0, 2), 1);
    // Beyond the grid, on a covered position, not larger: nothing.
    l.mergeCells(4, 4, 2);
    l.mergeCells(3, 3, 1);
    l.mergeCells(5, 0, 2);
    EXPECT_EQ(l.cellCount(), 19);
    // The existing cell grows from its size to a larger one.
    l.mergeCells(2, 2, 3);
    EXPECT_EQ(l.cellCount(), 14);
    EXPECT_TRUE(l.isMerged());
}

// ---- Geometry ----

namespace {

int floorDiv(long long a, long long b) {
    long long q = a / b;
    if ((a % b != 0) && ((a < 0) != (b < 0)))
        --q;
    return int(q);
}

// The output edges for `count` units over `extent` output pixels from 0, in exact integer
// arithmetic: interior edges floor(i * extent / count) down to A/2, then onto B.
std::vector<int> exactEdges(int extent, int count, int a, int b) {
    const int half = a / 2 < 1 ? 1 : a / 2;
    std::vector<int> e(size_t(count) + 1);
    for (int i = 0; i <= count; ++i) {
        int v = i == 0 ? 0 : floorDiv(1LL * i * extent, count) / half * half;
        if (v % b != 0)
            v = i < count ? (v / b + 1) * b : v / a * a;
        e[size_t(i)] = v;
    }
    return e;
}

struct GeometryCase {
    int width;
    int height;
    int coarse;
    int fine;
};

class VideoLayoutGeometry : public ::testing::TestWithParam<GeometryCase> {
protected:
    void SetUp() override {
        VyApplication::setDisplayDevice("mem:64x64");
        app = std::make_unique<VyApplication>();
    }
    void TearDown() override { app.reset(); }
    std::unique_ptr<VyApplication> app;
};

} // namespace

TEST_P(VideoLayoutGeometry, EveryLayoutMatchesTheExactComputationAndTilesTheScreen) {
    const GeometryCase g = GetParam();
    constexpr int kOutW = 1920;
    constexpr int kOutH = 1080;
    VyWidget parent;
    for (int id = 0; id < catalogue()->layoutCount(); ++id) {
        SCOPED_TRACE(testing::Message() << "layout " << id);
        const VyVideoScreenLayout* l = catalogue()->layoutById(id);
        VideoLayout engine;
        engine.setContentRect(VyRect(0, 0, g.width, g.height));
        engine.setOutputSize(kOutW, kOutH);
        engine.setInterfaceSize(g.width, g.height);
        engine.setAlignment(g.coarse, g.fine);
        std::vector<std::unique_ptr<Video>> cells;
        for (int r = 0; r < l->rows(); ++r)
            for (int c = 0; c < l->columns(); ++c)
                if (l->cellSpan(r, c) > 0) {
                    cells.push_back(std::make_unique<Video>(&parent));
                    cells.back()->show();
                    engine.addCell(cells.back().get(), r, c, l->cellSpan(r, c));
                }
        engine.activate();

        const std::vector<int> ex = exactEdges(kOutW, l->columns(), g.coarse, g.fine);
        const std::vector<int> ey = exactEdges(kOutH, l->rows(), g.coarse, g.fine);
        auto ui = [](int e, int interface, int output) {
            return floorDiv(2LL * e * interface + output, 2LL * output);
        };
        long long area = 0;
        for (const VideoLayout::Item& it : engine.items()) {
            const size_t c = it.column, r = it.row, s = it.size;
            const VyRect v = it.cell->videoRect();
            EXPECT_EQ(v.left, ex[c]);
            EXPECT_EQ(v.top, ey[r]);
            EXPECT_EQ(v.right, ex[c + s] - 1);
            EXPECT_EQ(v.bottom, ey[r + s] - 1);
            const VyRect w = it.cell->geometry();
            EXPECT_EQ(w.left, ui(ex[c], g.width, kOutW));
            EXPECT_EQ(w.top, ui(ey[r], g.height, kOutH));
            EXPECT_EQ(w.right + 1, ui(ex[c + s], g.width, kOutW));
            EXPECT_EQ(w.bottom + 1, ui(ey[r + s], g.height, kOutH));
            EXPECT_EQ(v.left % g.fine, 0);
            EXPECT_EQ(v.top % g.fine, 0);
            area += 1LL * w.width() * w.height();
        }
        // Without alignment the cells cover the screen exactly, and nothing overlaps.
        if (g.coarse == 1 && g.fine == 1) {
            EXPECT_EQ(area, 1LL * g.width * g.height);
        }
        for (size_t i = 0; i < engine.items().size(); ++i)
            for (size_t j = i + 1; j < engine.items().size(); ++j)
                EXPECT_FALSE(engine.items()[i].cell->geometry().intersects(
                    engine.items()[j].cell->geometry()));
    }
}

INSTANTIATE_TEST_SUITE_P(Sizes, VideoLayoutGeometry,
                         ::testing::Values(GeometryCase{1920, 1080, 1, 1},
                                           GeometryCase{1280, 720, 1, 1},
                                           GeometryCase{1920, 1080, 16, 8},
                                           GeometryCase{1280, 720, 16, 8},
                                           GeometryCase{1280, 720, 8, 4}));

TEST(VideoLayoutEdges, OneByOneAlignsBothEdgesOfAnAxis) {
    // X0 = 3 is not on B = 4: up to 4. The right edge 3 + 1917 = 1920 stays; with an
    // extent ending off the unit it goes down to A/2 and then to A.
    EXPECT_EQ(VideoLayout::outputEdges(3, 1917, 1, 8, 4), (std::vector<int>{4, 1920}));
    EXPECT_EQ(VideoLayout::outputEdges(0, 1914, 1, 8, 4), (std::vector<int>{0, 1912}));
    EXPECT_EQ(VideoLayout::outputEdges(0, 1910, 1, 8, 8), (std::vector<int>{0, 1904}));
    EXPECT_EQ(VideoLayout::outputEdges(5, 100, 1, 1, 1), (std::vector<int>{5, 105}));
}

TEST(VideoLayoutEdges, MarginsShiftTheContentAndCellAtFindsTheCell) {
    VyApplication::setDisplayDevice("mem:64x64");
    VyApplication app;
    VyWidget parent;
    VideoLayout engine;
    engine.setOutputSize(1920, 1080);
    engine.setInterfaceSize(1920, 1080);
    engine.setContentRect(VyRect::fromEdges(0, 0, 1919, 1079));
    engine.setMargins(10, 20, 10, 20);
    Video a(&parent), b(&parent);
    a.show();
    b.show();
    engine.addCell(&a, 0, 0, 1);
    engine.addCell(&b, 0, 1, 1);
    engine.activate();
    EXPECT_EQ(a.videoRect().left, 10);
    EXPECT_EQ(a.videoRect().top, 20);
    EXPECT_EQ(b.videoRect().right, 10 + 1900 - 1);
    EXPECT_EQ(a.geometry().left, 0); // relative to the content origin
    EXPECT_EQ(b.geometry().left, 950);
    EXPECT_EQ(engine.cellAt(VyPoint(960, 5)), &b);
    EXPECT_EQ(engine.cellAt(VyPoint(5, 5)), &a);
    EXPECT_EQ(engine.cellAt(VyPoint(5, 2000)), nullptr);
}
