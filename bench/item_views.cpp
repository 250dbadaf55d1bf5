// The item views on a 1920x1080 RGB 16-bit memory display, as ratios against one full-screen
// flush measured in the same run (a window that paints nothing, its whole surface copied to
// the framebuffer):
// - a full-screen table of 100,000 log entries (on a window that paints nothing, as the
//   baseline's) scrolled by one page (Right pages down, Left back up): at most 3 full-screen
//   flushes; the table asks its cell source only for the rows in view (the same table on a
//   window that paints its own background under it is printed for scale);
// - the memory of that table against one of 1,000 rows, both built from a row count and a
//   cell source, counted by this program's operator new: the bytes each further row costs,
//   at most 1 (the table holds no rows);
// - a combo box of 64 items opening its drop-down list (the popup made, laid out, painted and
//   flushed): at most 2 full-screen flushes. Closing it again runs untimed.
#include "core_ratio_reporter.h"

#include <malloc.h>

#include <atomic>
#include <cstdlib>
#include <memory>

#include "BenchPages.h"
#include "BenchTargets.h"
#include "runtime/VyFontEngine.h"
#include "runtime/VyResources.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VyScreenCursor.h"
#include "toolkit/events/VyKeyEvent.h"
#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/style/VyStyle.h"
#include "toolkit/widgets/VyComboBox.h"
#include "toolkit/widgets/VyTableWidget.h"

// Live heap bytes, counted by this program's own operator new and delete.
std::atomic<long long> g_liveBytes{0};

void* operator new(size_t size) {
    void* p = std::malloc(size ? size : 1);
    if (!p)
        std::abort();
    g_liveBytes += static_cast<long long>(malloc_usable_size(p));
    return p;
}

void operator delete(void* p) noexcept {
    if (!p)
        return;
    g_liveBytes -= static_cast<long long>(malloc_usable_size(p));
    std::free(p);
}

void operator delete(void* p, size_t) noexcept {
    operator delete(p);
}

namespace {

const char* const kFont = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";
constexpr int kRows = 100000;
constexpr int kFewRows = 1000;

class Page : public VyWidget {
    VY_OBJECT(Page, VyWidget)
public:
    void paintEvent(VyPaintEvent*) override {
        if (fill)
            canvas()->fillRect(rect(), 0xFF1E2024);
    }
    bool fill = true;
};

VyTableCell logEntry(int row, int column) {
    VyTableCell c;
    switch (column) {
    case 0:
        c.text = VyString::number(row + 1);
        break;
    case 1:
        c.text = "2026-11-23 08:" + VyString::number(10 + row % 50) + ":" +
                 VyString::number(10 + row % 49);
        break;
    case 2:
        c.text = row % 3 == 0 ? "Motion detection" : "Continuous recording";
        break;
    case 3:
        c.text = "Channel " + VyString::number(1 + row % 64);
        break;
    default:
        c.text = "admin";
        break;
    }
    return c;
}

VyTableWidget* makeTable(VyWidget* parent, int rows) {
    auto* table = new VyTableWidget(parent);
    table->setColumnCount(5);
    table->setHorizontalHeaderLabels(VyStringList() << "No."
                                                    << "Time"
                                                    << "Event"
                                                    << "Channel"
                                                    << "User");
    // Columns sized for their contents, as the log page sizes them.
    const int widths[] = {100, 260, 300, 200};
    for (int c = 0; c < 4; ++c)
        table->setColumnWidth(c, widths[c]);
    table->setCellSource(logEntry);
    table->setRowCount(rows);
    return table;
}

struct Scene {
    VyApplication* app;
    Page* empty;
    Page* tablePage;
    VyTableWidget* table;
    Page* paintedPage; // the same table on a window that paints its background first
    VyTableWidget* paintedTable;
    Page* comboPage;
    VyComboBox* combo;
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
        sc->empty = new Page;
        sc->empty->fill = false;
        sc->empty->setGeometry(0, 0, 1920, 1080);
        // The table fills the window and paints its own background: the window behind it
        // paints nothing, like the baseline's, so the ratio is the table's own cost.
        sc->tablePage = new Page;
        sc->tablePage->fill = false;
        sc->tablePage->setGeometry(0, 0, 1920, 1080);
        sc->table = makeTable(sc->tablePage, kRows);
        sc->table->setGeometry(0, 0, 1920, 1080);
        sc->paintedPage = new Page;
        sc->paintedPage->setGeometry(0, 0, 1920, 1080);
        sc->paintedTable = makeTable(sc->paintedPage, kRows);
        sc->paintedTable->setGeometry(0, 0, 1920, 1080);
        sc->comboPage = new Page;
        sc->comboPage->setGeometry(0, 0, 1920, 1080);
        sc->combo = new VyComboBox(sc->comboPage);
        for (int i = 1; i <= 64; ++i)
            sc->combo->addItem("Channel " + VyString::number(i));
        sc->combo->setGeometry(200, 100, 300, 40);
        return sc;
    }();
    return *s;
}

void showOnly(Page* page) {
    Scene& s = scene();
    showPageAlone({s.empty, s.tablePage, s.paintedPage, s.comboPage}, page, s.app);
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

void pageBackAndForth(benchmark::State& state, Page* page, VyTableWidget* table) {
    Scene& s = scene();
    showOnly(page);
    table->setFocus();
    table->setCurrentCell(kRows / 2, 0);
    s.app->processPostedEvents();
    const FlushCounts before = counts();
    bool down = true;
    for (auto _ : state) {
        VyKeyEvent key(VyEvent::KeyPress, down ? VyKeyEvent::KeyRight : VyKeyEvent::KeyLeft);
        VyApplication::sendEvent(table, &key);
        s.app->processPostedEvents();
        down = !down;
    }
    report(state, before);
    state.counters["rowsPerPage"] = table->visibleRowCount();
}

void BM_TableOf100000RowsScrollsOnePage(benchmark::State& state) {
    pageBackAndForth(state, scene().tablePage, scene().table);
}

// For scale: the window's own background is painted under the table again on each page.
void BM_TableOnAPaintedWindowScrollsOnePage(benchmark::State& state) {
    pageBackAndForth(state, scene().paintedPage, scene().paintedTable);
}

void BM_ComboPopupOf64ItemsOpens(benchmark::State& state) {
    Scene& s = scene();
    showOnly(s.comboPage);
    const FlushCounts before = counts();
    for (auto _ : state) {
        s.combo->showPopup();
        s.app->processPostedEvents();
        state.PauseTiming();
        s.combo->hidePopup();
        s.app->processPostedEvents();
        state.ResumeTiming();
    }
    report(state, before);
}

// The heap bytes a table holds once built and laid out (its children, headers, scroll bar).
long long tableBytes(int rows) {
    scene();
    const long long before = g_liveBytes.load();
    std::unique_ptr<VyTableWidget> table(makeTable(nullptr, rows));
    table->setGeometry(0, 0, 1920, 1080);
    return g_liveBytes.load() - before;
}

} // namespace

BENCHMARK(BM_FullScreenFlush)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_TableOf100000RowsScrollsOnePage)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_TableOnAPaintedWindowScrollsOnePage)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_ComboPopupOf64ItemsOpens)->Unit(benchmark::kMicrosecond);

int main(int argc, char** argv) {
    return runWithRatios(argc, argv, [](const CoreRatioReporter& r) {
        r.ratio("BM_TableOf100000RowsScrollsOnePage", "BM_FullScreenFlush", 3.0);
        r.info("BM_TableOnAPaintedWindowScrollsOnePage", "BM_FullScreenFlush");
        r.ratio("BM_ComboPopupOf64ItemsOpens", "BM_FullScreenFlush", 2.0);
        const long long few = tableBytes(kFewRows);
        const long long many = tableBytes(kRows);
        const double perRow = double(many - few) / double(kRows - kFewRows);
        std::printf("table of %d rows: %lld bytes, of %d rows: %lld bytes\n", kFewRows, few, kRows,
                    many);
        reportTarget("VyTableWidget bytes per row (100,000 vs 1,000 rows)", perRow, false, 1.0);
    });
}
