// libFuzzer target: arbitrary bytes as a language file, through TinyXML and the "tr"
// visitor, then every text taken through the argument substitution and the text shaper as a
// label would be. Never crashes; no ID above the catalogue's limit gets into the table.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <unistd.h>

#include "runtime/VyFontEngine.h"
#include "runtime/VyTextShaper.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/i18n/VyXmlVisitor.h"

namespace {

// Shaping needs a font; the fuzzer runs without one when none is installed.
bool fontReady() {
    static const bool ready = [] {
        const char* font = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";
        return access(font, R_OK) == 0 &&
               VyFontEngine::instance().setFontFile(font, VyFontEngine::kDeviceFontReserveBytes);
    }();
    return ready;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size > 64 * 1024)
        return 0;
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    VyHash<uint32_t, VyString> table;
    if (!VyTranslation::parseTexts(bytes, "fuzz", &table))
        return 0;
    for (const auto& entry : table) {
        if (entry.first > VyXmlVisitor::kMaxTextId)
            std::abort();
        const VyString filled = entry.second.arg("720p").arg(15);
        if (fontReady())
            VyFontEngine::instance().shaper().shape(filled, 17);
    }
    return 0;
}
