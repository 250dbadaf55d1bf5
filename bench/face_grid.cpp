// The face search result grid on a 1920x1080 RGB 16-bit memory display, as a ratio against
// one full-screen flush measured in the same run (a window that paints nothing, its whole
// surface copied to the framebuffer): a grid of 200 face thumbnails, each with its time and
// channel, scrolled by one page (Right on the last column pages down, Left on the first
// back up): at most 2 full-screen flushes. The thumbnails are synthetic pictures the size
// App sends; the grid asks its source only for the cells in view.
#include "core_ratio_reporter.h"

#include <vector>

#include "BenchPages.h"
#include "BenchTargets.h"
#include "runtime/VyBitmap.h"
#include "runtime/VyFontEngine.h"
#include "runtime/VyResources.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VyScreenCursor.h"
#include "toolkit/events/VyKeyEvent.h"
#include "toolkit/style/VyStyle.h"
#include "ui/analytics/face/FaceThumbnailGrid.h"

namespace {

const char* const kFont = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";
constexpr int kThumbnails = 200;
constexpr int kPictureWidth = 64; // what App sends
constexpr int kPictureHeight = 80;

class Page : public VyWidget {
    VY_OBJECT(Page, VyWidget)
public:
    void paintEvent(VyPaintEvent*) override {}
};

VyBitmap syntheticFace(int seed) {
    VyBitmap b(kPictureWidth, kPictureHeight);
    uint8_t* p = b.bits();
    for (int y = 0; y < kPictureHeight; ++y) {
        for (int x = 0; x < kPictureWidth; ++x, p += 4) {
            const int dx = x - 32, dy = y - 38;
            const bool face = dx * dx * 529 + dy * dy * 324 <= 529 * 324;
            p[0] = uint8_t(face ? 230 - seed % 60 : 80 + seed % 50);
            p[1] = uint8_t(face ? 180 - seed % 40 : 90);
            p[2] = uint8_t(face ? 140 : 110 + seed % 30);
            p[3] = 0xFF;
        }
    }
    return b;
}

struct Scene {
    VyApplication* app;
    Page* empty;
    Page* gridPage;
    FaceThumbnailGrid* grid;
    std::vector<VyBitmap> faces;
};

Scene& scene() {
    static Scene* s = [] {
        VyFontEngine::instance().setFontFile(kFont, VyFontEngine::kDeviceFontReserveBytes);
        VyResources::setRoot(VY_RESOURCES_DIR);
        VyApplication::setDisplayDevice("mem:1920x1080");
        auto* sc = new Scene;
        sc->app = new VyApplication;
        sc->app->screen()->cursor()->hide();
        VyStyle::instance()->followScreen(sc->app->screen());
        for (int i = 0; i < kThumbnails; ++i)
            sc->faces.push_back(syntheticFace(i));
        sc->empty = new Page;
        sc->empty->setGeometry(0, 0, 1920, 1080);
        sc->gridPage = new Page;
        sc->gridPage->setGeometry(0, 0, 1920, 1080);
        sc->grid = new FaceThumbnailGrid(sc->gridPage);
        sc->grid->setGeometry(0, 0, 1920, 1080);
        sc->grid->setTextLines(3);
        sc->grid->setSource([sc](int i) {
            FaceThumbnailGrid::Cell c;
            c.picture = sc->faces[size_t(i)];
            c.line1 = "2026-11-" + VyString::number(10 + i % 20);
            c.line2 = "08:" + VyString::number(10 + i % 50) + ":" + VyString::number(10 + i % 49) +
                      "  " + VyString::number(70 + i % 30) + "%";
            c.line3 = "Channel " + VyString::number(1 + i % 16);
            return c;
        });
        sc->grid->setCount(kThumbnails);
        return sc;
    }();
    return *s;
}

void showOnly(Page* page) {
    Scene& s = scene();
    showPageAlone({s.empty, s.gridPage}, page, s.app);
}

FlushCounts counts() {
    return FlushCounts::of(scene().app->screen());
}

void report(benchmark::State& state, const FlushCounts& before) {
    reportFlushes(state, scene().app->screen(), before);
}

void BM_FullScreenFlush(benchmark::State& state) {
    showOnly(scene().empty);
    repaintAndFlush(state, scene().empty, scene().app);
}

void BM_FaceGridOf200ScrollsOnePage(benchmark::State& state) {
    Scene& s = scene();
    showOnly(s.gridPage);
    s.grid->setFocus();
    // On the last column of the first page: Right pages down, Left on the first column of
    // the next page pages back up.
    s.grid->setFirstRow(0);
    s.grid->setCurrentIndex(s.grid->columns() - 1);
    s.app->processPostedEvents();
    const FlushCounts before = counts();
    bool down = true;
    for (auto _ : state) {
        VyKeyEvent key(VyEvent::KeyPress, down ? VyKeyEvent::KeyRight : VyKeyEvent::KeyLeft);
        VyApplication::sendEvent(s.grid, &key);
        s.app->processPostedEvents();
        // Paging down leaves the first column current, ready for Left; back up, the last
        // column is made current again for Right (two cells repainted, counted too).
        if (!down) {
            s.grid->setCurrentIndex(s.grid->columns() - 1);
            s.app->processPostedEvents();
        }
        down = !down;
    }
    report(state, before);
    state.counters["cellsPerPage"] = s.grid->columns() * s.grid->visibleRows();
}

} // namespace

BENCHMARK(BM_FullScreenFlush)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_FaceGridOf200ScrollsOnePage)->Unit(benchmark::kMicrosecond);

int main(int argc, char** argv) {
    return runWithRatios(argc, argv, [](const CoreRatioReporter& r) {
        r.ratio("BM_FaceGridOf200ScrollsOnePage", "BM_FullScreenFlush", 2.0);
    });
}
