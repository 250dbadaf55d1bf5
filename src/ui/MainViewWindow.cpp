#include "ui/MainViewWindow.h"

#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/events/VyPaintEvent.h"
#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/widgets/VyLabel.h"
#include "ui/UiLook.h"
#include "ui/liveview/LiveViewController.h"
#include "ui/liveview/LiveViewProfile.h"
#include "ui/liveview/MainViewTaskBar.h"
#include "ui/liveview/VyVideoScreen.h"

namespace {
constexpr int kNoticeWidthPx = 420; // at 1920x1080
constexpr int kNoticeHeightPx = 40;
} // namespace

MainViewWindow::MainViewWindow()
    : VyWidget(nullptr, Window)
    , m_screen(new VyVideoScreen(this))
    , m_taskBar(new MainViewTaskBar(this))
    , m_notice(new VyLabel(this))
    , m_controller(new LiveViewController(m_screen, m_taskBar, m_notice, this)) {
    m_notice->setAlignment(VyCanvas::AlignCenter);
    m_notice->hide();
    m_screen->show();
    m_taskBar->show();
    fitScreen();
}

void MainViewWindow::fitScreen() {
    VyScreen* screen = VyApplication::instance()->screen();
    setGeometry(0, 0, screen->width(), screen->height());
}

void MainViewWindow::resizeEvent(VyResizeEvent*) {
    // The cells take the whole screen; the task bar lies over their lower edge, as on the
    // device, so a full-screen picture keeps its proportions.
    m_screen->setGeometry(0, 0, width(), height());
    const int bar = MainViewTaskBar::barHeight();
    m_taskBar->setGeometry(0, height() - bar, width(), bar);
    const int w = UiLook::scaledX(kNoticeWidthPx);
    const int h = UiLook::scaledY(kNoticeHeightPx);
    m_notice->setGeometry((width() - w) / 2, height() - bar - 2 * h, w, h);
    m_taskBar->raise();
}

void MainViewWindow::startLiveView(int channelCount) {
    if (m_started)
        return;
    m_started = true;
    m_controller->start(LiveViewProfile::load(), channelCount);
}

void MainViewWindow::paintEvent(VyPaintEvent* e) {
    VyCanvas* c = canvas();
    if (c == nullptr)
        return;
    const vyargb background = UiLook::instance().mainViewBackground;
    // What lies under the video screen is its own to paint.
    const VyRegion region = e->region().subtracted(m_screen->geometry());
    for (const VyRect& r : region.rects())
        c->fillRect(r, background);
}
