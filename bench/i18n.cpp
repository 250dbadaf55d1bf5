// Texts and languages, each against a baseline measured in the same run:
//   - a text query against a plain hash lookup that hands back a copy of the text (<= 3x);
//   - loading a 5,000-text language file against TinyXML's own parse of it (<= 3x);
//   - repainting a label whose shaped line is cached against drawing the same glyphs through
//     the glyph cache one code point at a time, as text was drawn before shaping (<= 2x);
//   - switching the language with 200 labels on a 1920x1080 screen, every text fetched
//     again and repainted, against one full-screen repaint and flush (<= 40x).
#include "core_ratio_reporter.h"

#include "runtime/VyFontEngine.h"
#include "runtime/VyGlyph.h"
#include "runtime/VyTextShaper.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VyScreenCursor.h"
#include "toolkit/core/VyWidget.h"
#include "toolkit/events/VyPaintEvent.h"
#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/graphics/VyFbCanvas.h"
#include "toolkit/graphics/VyPixelOps.h"
#include "toolkit/i18n/VyTranslation.h"

#include <tinyxml.h>

#include <cstdio>
#include <random>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <unordered_map>
#include <vector>

namespace {

constexpr int kTexts = 5000;
constexpr uint32_t kFirstId = 100000;
const char* const kFont = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";

std::string sampleText(int i, const char* language) {
    return std::string(language) + " text number " + std::to_string(i) + " with %1 inside";
}

std::string languageFile(const char* language) {
    std::string xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<TS>\n";
    for (int i = 0; i < kTexts; ++i)
        xml += "  <tr id=\"" + std::to_string(kFirstId + uint32_t(i)) + "\" text=\"" +
               sampleText(i, language) + "\"/>\n";
    return xml + "</TS>\n";
}

// A language folder with English and German files of 5,000 texts each.
const std::string& languageDir() {
    static const std::string dir = [] {
        std::string d = "/tmp/vy-bench-lang-XXXXXX";
        if (mkdtemp(&d[0]) == nullptr)
            return std::string();
        for (int lang : {VyTranslation::kEnglish, 7}) {
            const std::string path = d + "/" + VyTranslation::fileName(lang).c_str();
            FILE* f = std::fopen(path.c_str(), "wb");
            const std::string xml = languageFile(VyTranslation::languageName(lang));
            std::fwrite(xml.data(), 1, xml.size(), f);
            std::fclose(f);
        }
        return d;
    }();
    return dir;
}

std::vector<uint32_t> queryIds() {
    std::mt19937 random(7);
    std::vector<uint32_t> ids(1024);
    for (uint32_t& id : ids)
        id = kFirstId + random() % kTexts;
    return ids;
}

void BM_PlainHashLookupBaseline(benchmark::State& state) {
    std::unordered_map<uint32_t, std::string> table;
    for (int i = 0; i < kTexts; ++i)
        table.emplace(kFirstId + uint32_t(i), sampleText(i, "english"));
    const std::vector<uint32_t> ids = queryIds();
    size_t k = 0;
    for (auto _ : state) {
        const auto it = table.find(ids[k++ & 1023]);
        std::string copy = it != table.end() ? it->second : std::string();
        benchmark::DoNotOptimize(copy);
    }
}
BENCHMARK(BM_PlainHashLookupBaseline);

void BM_TextQuery(benchmark::State& state) {
    VyTranslation t(languageDir().c_str(), nullptr);
    if (!t.changeLanguage(VyTranslation::kEnglish)) {
        state.SkipWithError("language file not written");
        return;
    }
    const std::vector<uint32_t> ids = queryIds();
    size_t k = 0;
    for (auto _ : state) {
        VyString text = t.text(ids[k++ & 1023]);
        benchmark::DoNotOptimize(text);
    }
}
BENCHMARK(BM_TextQuery);

void BM_TinyXmlParseBaseline(benchmark::State& state) {
    const std::string xml = languageFile("english");
    for (auto _ : state) {
        TiXmlDocument doc;
        doc.Parse(xml.c_str(), nullptr, TIXML_DEFAULT_ENCODING);
        benchmark::DoNotOptimize(doc.RootElement());
    }
}
BENCHMARK(BM_TinyXmlParseBaseline)->Unit(benchmark::kMillisecond);

void BM_LoadLanguageFile(benchmark::State& state) {
    VyTranslation t(languageDir().c_str(), nullptr);
    int next = VyTranslation::kEnglish;
    for (auto _ : state) {
        if (!t.changeLanguage(next)) {
            state.SkipWithError("language file not loaded");
            return;
        }
        next = next == VyTranslation::kEnglish ? 7 : VyTranslation::kEnglish;
    }
    state.counters["texts"] = t.textCount();
}
BENCHMARK(BM_LoadLanguageFile)->Unit(benchmark::kMillisecond);

const char* const kLabel = "Camera 01 Front Door"; // 20 glyphs
constexpr int kPixelSize = 17;

bool fontReady(benchmark::State& state) {
    static const bool ok =
        VyFontEngine::instance().setFontFile(kFont, VyFontEngine::kDeviceFontReserveBytes);
    if (!ok)
        state.SkipWithError("font file missing");
    return ok;
}

// Text drawing as it was before shaping: one glyph-cache hit per code point, then the blend.
void BM_LabelGlyphCacheHitBaseline(benchmark::State& state) {
    if (!fontReady(state))
        return;
    VyFbCanvas canvas(400, 40);
    VyFontEngine& engine = VyFontEngine::instance();
    const std::u32string text = VyString(kLabel).toUcs4();
    for (auto _ : state) {
        int pen = 4;
        for (char32_t cp : text) {
            const VyGlyph* g = engine.glyph(cp, kPixelSize);
            for (int row = 0; row < g->height; ++row)
                VyPixelOps::blendCoverageRow(canvas.scanLine(24 - g->top + row) + pen + g->left,
                                             g->coverage.data() + row * g->width, g->width,
                                             0xffffffff);
            pen += g->advance;
        }
        benchmark::DoNotOptimize(canvas.scanLine(20));
    }
}
BENCHMARK(BM_LabelGlyphCacheHitBaseline);

void BM_LabelShapedCacheHit(benchmark::State& state) {
    if (!fontReady(state))
        return;
    VyFbCanvas canvas(400, 40);
    VyTextShaper& shaper = VyFontEngine::instance().shaper();
    canvas.drawText(4, 24, kLabel, kPixelSize, 0xffffffff);
    const int64_t shaped = shaper.shapeCount();
    for (auto _ : state) {
        canvas.drawText(4, 24, kLabel, kPixelSize, 0xffffffff);
        benchmark::DoNotOptimize(canvas.scanLine(20));
    }
    state.counters["shapes"] = double(shaper.shapeCount() - shaped);
}
BENCHMARK(BM_LabelShapedCacheHit);

// A label that keeps its text ID and fetches the text again when the language changes.
class Label : public VyWidget {
    VY_OBJECT(Label, VyWidget)
public:
    Label(uint32_t id, VyWidget* parent)
        : VyWidget(parent)
        , m_id(id)
        , m_text(VyTranslation::tr(id)) {
        VyTranslation* t = VyTranslation::instance();
        connect(t, &t->languageChanged, this, VY_SLOT(Label, retranslate));
    }
    void retranslate() {
        m_text = VyTranslation::tr(m_id);
        update();
    }
    void paintEvent(VyPaintEvent*) override {
        canvas()->fillRect(rect(), 0xff303030);
        canvas()->drawText(rect(), VyCanvas::AlignLeft | VyCanvas::AlignVCenter, m_text, kPixelSize,
                           0xffffffff);
    }

private:
    uint32_t m_id;
    VyString m_text;
};

class Backdrop : public VyWidget {
    VY_OBJECT(Backdrop, VyWidget)
public:
    void paintEvent(VyPaintEvent*) override { canvas()->fillRect(rect(), 0xff101418); }
};

struct Screen {
    VyApplication* app;
    Backdrop* window;
};

Screen& screen() {
    static Screen* s = [] {
        VyApplication::setDisplayDevice("mem:1920x1080");
        auto* sc = new Screen;
        sc->app = new VyApplication;
        if (sc->app->screen()->cursor())
            sc->app->screen()->cursor()->hide();
        VyTranslation::resetInstance(new VyTranslation(languageDir().c_str(), nullptr));
        VyTranslation::instance()->changeLanguage(VyTranslation::kEnglish);
        sc->window = new Backdrop;
        sc->window->setGeometry(0, 0, 1920, 1080);
        // 200 labels in 8 columns of 25 rows.
        for (int i = 0; i < 200; ++i) {
            auto* label = new Label(kFirstId + uint32_t(i), sc->window);
            label->setGeometry(10 + (i % 8) * 238, 10 + (i / 8) * 42, 230, 36);
            label->show();
        }
        sc->window->show();
        sc->app->processPostedEvents();
        return sc;
    }();
    return *s;
}

void BM_FullScreenRepaintBaseline(benchmark::State& state) {
    if (!fontReady(state))
        return;
    Screen& s = screen();
    for (auto _ : state) {
        s.window->update();
        s.app->processPostedEvents();
    }
}
BENCHMARK(BM_FullScreenRepaintBaseline)->Unit(benchmark::kMillisecond);

void BM_SwitchLanguageWith200Labels(benchmark::State& state) {
    if (!fontReady(state))
        return;
    Screen& s = screen();
    VyTranslation* t = VyTranslation::instance();
    int next = 7;
    const int flushes = s.app->screen()->flushCount();
    for (auto _ : state) {
        t->changeLanguage(next);
        s.app->processPostedEvents();
        next = next == VyTranslation::kEnglish ? 7 : VyTranslation::kEnglish;
    }
    state.counters["flushesPerSwitch"] =
        double(s.app->screen()->flushCount() - flushes) / double(state.iterations());
}
BENCHMARK(BM_SwitchLanguageWith200Labels)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    return runWithRatios(argc, argv, [](const CoreRatioReporter& r) {
        r.ratio("BM_TextQuery", "BM_PlainHashLookupBaseline", 3.0);
        r.ratio("BM_LoadLanguageFile", "BM_TinyXmlParseBaseline", 3.0);
        r.ratio("BM_LabelShapedCacheHit", "BM_LabelGlyphCacheHitBaseline", 2.0);
        r.ratio("BM_SwitchLanguageWith200Labels", "BM_FullScreenRepaintBaseline", 40.0);
    });
}
