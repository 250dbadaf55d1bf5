// The control gallery drawn at the two output sizes the recorders ship with, compared pixel by
// pixel with golden images that were checked by eye. On a mismatch the actual image is written
// next to the golden one ("*.actual.png") to be looked at, and accepted by copying it over.
#include <gtest/gtest.h>

#include <memory>
#include <ostream>
#include <string>

#include "ControlGallery.h"
#include "ItemGallery.h"
#include "platform/display/VyFrameDump.h"
#include "runtime/VyBitmap.h"
#include "runtime/VyFontEngine.h"
#include "runtime/VyResources.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VyScreenCursor.h"
#include "toolkit/style/VyStyle.h"

namespace {

const char* const kFont = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";

struct GalleryCase {
    const char* size;
    int page;
};

// Named in test listings by its values, not its bytes.
void PrintTo(const GalleryCase& c, std::ostream* os) {
    *os << "page " << c.page << " at " << c.size;
}

class GalleryGolden : public ::testing::TestWithParam<GalleryCase> {};

VyBitmap drawGallery(const VyString& device, int page) {
    VyApplication::setDisplayDevice(device);
    // No timer thread: nothing may change the page between the flush and the read-back.
    VyApplication::setTimerClock([] { return int64_t(0); });
    VyBitmap image;
    {
        VyApplication app;
        VyScreen* screen = app.screen();
        screen->cursor()->hide();
        VyStyle::instance()->followScreen(screen);
        ControlGallery gallery(screen->width(), screen->height());
        ItemGallery items(screen->width(), screen->height());
        if (page == 2)
            items.showPage();
        else
            gallery.showPage();
        app.processPostedEvents();
        image = VyFrameDump::toBitmap(screen->mapping(), screen->width(), screen->height(),
                                      screen->lineLength());
    }
    VyApplication::setTimerClock(nullptr);
    return image;
}

} // namespace

TEST_P(GalleryGolden, EveryControlInEveryStateMatchesTheCheckedImage) {
    if (!VyFontEngine::instance().setFontFile(kFont, VyFontEngine::kDeviceFontReserveBytes))
        GTEST_SKIP() << "font missing: " << kFont;
    const VyString size = GetParam().size;
    const VyString name = VyString(VY_TEST_DATA_DIR "/gallery/") +
                          (GetParam().page == 2 ? "items-" : "gallery-") + size;
    const VyString oldRoot = VyResources::root();
    VyResources::setRoot(VY_RESOURCES_DIR);
    const VyBitmap actual = drawGallery("mem:" + size, GetParam().page);
    VyResources::setRoot(oldRoot);
    ASSERT_FALSE(actual.isNull());

    const VyString expectedPath = name + ".png";
    const VyBitmap expected = VyBitmap::loadPng(expectedPath);
    int differing = -1;
    if (!expected.isNull() && expected.width() == actual.width() &&
        expected.height() == actual.height()) {
        differing = 0;
        const int n = actual.width() * actual.height();
        for (int i = 0; i < n; ++i)
            for (int c = 0; c < 4; ++c)
                if (expected.constBits()[i * 4 + c] != actual.constBits()[i * 4 + c]) {
                    ++differing;
                    break;
                }
    }
    if (differing != 0) {
        const VyString actualPath = name + ".actual.png";
        actual.savePng(actualPath);
        FAIL() << (differing < 0
                       ? VyString("no golden image ") + expectedPath
                       : VyString::number(differing) + " pixels differ from " + expectedPath)
                      .c_str()
               << "; the page as drawn now is " << actualPath.c_str();
    }
}

INSTANTIATE_TEST_SUITE_P(OutputSizes, GalleryGolden,
                         ::testing::Values(GalleryCase{"1920x1080", 1}, GalleryCase{"1280x720", 1},
                                           GalleryCase{"1920x1080", 2}, GalleryCase{"1280x720", 2}),
                         [](const ::testing::TestParamInfo<GalleryCase>& param) {
                             return std::string(param.param.page == 2 ? "Items" : "Controls") +
                                    "_" + param.param.size;
                         });
