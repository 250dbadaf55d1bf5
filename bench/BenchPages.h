#pragma once
// What the screen benchmarks share: a scene's pages shown one at a time, and what the screen
// flushed between two points of a benchmark, per iteration.
#include <benchmark/benchmark.h>

#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VyWidget.h"

#include <cstdint>
#include <initializer_list>

// Shows `page` with its children, hides the other `pages`, and lets the change paint.
inline void showPageAlone(std::initializer_list<VyWidget*> pages, VyWidget* page,
                          VyApplication* app) {
    for (VyWidget* p : pages)
        if (p != page && p->isVisible())
            p->hide();
    if (!page->isVisible()) {
        page->show();
        for (VyObject* c : page->children())
            static_cast<VyWidget*>(c)->show();
    }
    app->processPostedEvents();
}

struct FlushCounts {
    uint64_t pixels;
    int flushes;

    static FlushCounts of(VyScreen* screen) {
        return {screen->flushedPixelCount(), screen->flushCount()};
    }
};

// Pixels flushed and flushes since `before`, per iteration of `state`.
inline void reportFlushes(benchmark::State& state, VyScreen* screen, const FlushCounts& before) {
    const FlushCounts after = FlushCounts::of(screen);
    const double n = double(state.iterations());
    state.counters["pixelsFlushed"] = double(after.pixels - before.pixels) / n;
    state.counters["flushes"] = double(after.flushes - before.flushes) / n;
}

// `target` marked dirty, then painted and flushed, once an iteration: the unit of work of
// the screen benchmarks and, on a full-screen page, their baseline. Answers the pixels
// flushed per iteration.
inline double repaintAndFlush(benchmark::State& state, VyWidget* target, VyApplication* app) {
    const FlushCounts before = FlushCounts::of(app->screen());
    for (auto _ : state) {
        target->update();
        app->processPostedEvents();
    }
    reportFlushes(state, app->screen(), before);
    return double(app->screen()->flushedPixelCount() - before.pixels) / double(state.iterations());
}
