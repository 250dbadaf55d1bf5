// control-gallery: every standard control in every state on one page, for looking at the
// style and for the golden images of the tests.
//   control-gallery [-d DEVICE] [-o shot.png] [-r RESOURCES] [-f FONT] [-k] [-p PAGE]
// -k opens the on-screen keyboard on the focused line edit; -p 2 shows the second page (item
// views, menus and windows).
// DEVICE is a display as VY_FBDEV_NODE takes it (default mem:1920x1080, or window:1280x720
// to look at it on a desktop). With -o the page is drawn once, written as a PNG, and the
// program ends; without it the program runs until the window is closed.
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "ControlGallery.h"
#include "ItemGallery.h"
#include "platform/display/VyFrameDump.h"
#include "runtime/VyFontEngine.h"
#include "runtime/VyResources.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VyScreenCursor.h"
#include "toolkit/style/VyStyle.h"
#include "toolkit/widgets/VyLineEdit.h"

namespace {

const char* const kFontFile = "font/yahei_arial_gothic_unicode.ttf";
const char* const kFallbackFont = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";

} // namespace

int main(int argc, char** argv) {
    const char* device = "mem:1920x1080";
    const char* shot = nullptr;
    const char* font = nullptr;
    bool keyboard = false;
    int page = 1;
    int opt;
    while ((opt = getopt(argc, argv, "d:o:r:f:kp:h")) != -1) {
        switch (opt) {
        case 'd':
            device = optarg;
            break;
        case 'o':
            shot = optarg;
            break;
        case 'k':
            keyboard = true;
            break;
        case 'p':
            page = std::atoi(optarg);
            break;
        case 'f':
            font = optarg;
            break;
        case 'r':
            VyResources::setRoot(optarg);
            break;
        default:
            std::fprintf(
                stderr,
                "usage: %s [-d DEVICE] [-o shot.png] [-r RESOURCES] [-f FONT] [-k] [-p PAGE]\n",
                argv[0]);
            return opt == 'h' ? 0 : 2;
        }
    }
    if (font &&
        !VyFontEngine::instance().setFontFile(font, VyFontEngine::kDeviceFontReserveBytes)) {
        std::fprintf(stderr, "control-gallery: cannot read font %s\n", font);
        return 1;
    }
    if (!font &&
        !VyFontEngine::instance().setFontFile(VyResources::path(kFontFile),
                                              VyFontEngine::kDeviceFontReserveBytes) &&
        !VyFontEngine::instance().setFontFile(kFallbackFont,
                                              VyFontEngine::kDeviceFontReserveBytes)) {
        std::fprintf(stderr, "control-gallery: no font\n");
        return 1;
    }
    VyApplication::setDisplayDevice(device);
    VyApplication app(argc, argv);
    VyScreen* screen = app.screen();
    VyStyle::instance()->followScreen(screen);
    ControlGallery gallery(screen->width(), screen->height());
    ItemGallery items(screen->width(), screen->height());
    if (page == 2) {
        items.showPage();
    } else {
        gallery.showPage();
        if (keyboard)
            gallery.focusedEdit()->openKeyboard();
    }
    if (!shot) {
        VyObject::connect(screen, &screen->displayClosed, &app, VY_SLOT(VyApplication, quit));
        return app.exec();
    }
    screen->cursor()->hide();
    app.processPostedEvents();
    const VyBitmap image = VyFrameDump::toBitmap(screen->mapping(), screen->width(),
                                                 screen->height(), screen->lineLength());
    if (image.isNull() || !image.savePng(shot)) {
        std::fprintf(stderr, "control-gallery: cannot write %s\n", shot);
        return 1;
    }
    std::printf("control-gallery: wrote %s (%dx%d)\n", shot, screen->width(), screen->height());
    return 0;
}
