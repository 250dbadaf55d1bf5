#include "ui/MainViewWindow.h"

#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/events/VyPaintEvent.h"
#include "toolkit/graphics/VyCanvas.h"
#include "ui/UiLook.h"

MainViewWindow::MainViewWindow()
    : VyWidget(nullptr, Window) {
    fitScreen();
}

void MainViewWindow::fitScreen() {
    VyScreen* screen = VyApplication::instance()->screen();
    setGeometry(0, 0, screen->width(), screen->height());
}

void MainViewWindow::paintEvent(VyPaintEvent* e) {
    VyCanvas* c = canvas();
    if (c == nullptr)
        return;
    const vyargb background = UiLook::instance().mainViewBackground;
    for (const VyRect& r : e->region().rects())
        c->fillRect(r, background);
}
