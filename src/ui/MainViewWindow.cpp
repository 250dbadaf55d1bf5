#include "ui/MainViewWindow.h"

#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/events/VyKeyEvent.h"
#include "toolkit/events/VyPaintEvent.h"
#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/input/VyKeyManager.h"
#include "toolkit/widgets/VyLabel.h"
#include "ui/UiLook.h"
#include "ui/liveview/LiveViewController.h"
#include "ui/liveview/LiveViewProfile.h"
#include "ui/liveview/MainViewTaskBar.h"
#include "ui/liveview/MainViewVideo.h"
#include "ui/liveview/VideoToolBar.h"
#include "ui/liveview/VyVideoScreen.h"
#include "ui/liveview/VyVideoScreenLayout.h"
#include "ui/liveview/VyVideoScreenLayoutManager.h"

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
    if (VyKeyManager* keys = VyKeyManager::liveInstance()) {
        keys->setKeyTarget(VyKeyTarget::MainView, this);
        keys->setKeyTarget(VyKeyTarget::TaskBar, m_taskBar);
        keys->setKeyTarget(VyKeyTarget::VideoScreen, m_screen);
    }
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
    m_screen->toolBar()->setBottomReserve(bar);
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

void MainViewWindow::keyPressEvent(VyKeyEvent* e) {
    if (e->key() == VyKeyEvent::KeyEscape && m_controller->escape()) {
        e->accept();
        return;
    }
    VyWidget::keyPressEvent(e);
}

bool MainViewWindow::selectChannel(int channel) {
    MainViewVideo* cell = m_screen->cellOfChannel(channel - 1);
    if (cell == nullptr)
        return false;
    if (!cell->isVideoVisible()) {
        const int perPage = m_screen->shownLayout()->cellCount();
        m_screen->gotoPage(m_screen->positionOf(cell) / perPage);
    }
    m_screen->selectCell(cell);
    return cell == m_screen->selectedCell();
}

bool MainViewWindow::keyAction(uint32_t deviceKey) {
    VyVideoScreenLayoutManager* catalogue = VyVideoScreenLayoutManager::instance();
    auto split = [&](int count) {
        m_screen->setLayout(catalogue->findLayoutForCount(count, false));
        return true;
    };
    switch (deviceKey) {
    case KeySplit1:
        return split(1);
    case KeySplit4:
    case KeySplit4Alike:
        return split(4);
    case KeySplit8:
        return split(8);
    case KeySplit9:
        return split(9);
    case KeySplit16:
        return split(16);
    case KeySplit25:
        return split(25);
    case KeySplit36:
        return split(36);
    case KeySplit64:
        return split(64);
    case KeyNextSplit: {
        // Through the unmerged layouts of the count list, wrapping.
        const int shown = m_screen->shownLayoutIndex();
        for (int step = 1; step < catalogue->countListSize(); ++step) {
            const int i = (shown + step) % catalogue->countListSize();
            if (!catalogue->layoutAt(i)->isMerged()) {
                m_screen->setLayout(i);
                return true;
            }
        }
        return false;
    }
    case KeyPreviousPage:
        m_screen->previousPage();
        return true;
    case KeyNextPage:
        m_screen->nextPage();
        return true;
    case KeyEnlarge:
        m_screen->toggleSingleView();
        return true;
    case KeyToolBar:
        if (m_screen->toolBar()->isVisible())
            m_screen->hideToolBar();
        else
            m_screen->showToolBar(m_screen->selectedCell());
        return true;
    case KeySequence:
    case KeySnapshot:
    case KeyRecord:
    case KeyMute:
        return m_controller->keyAction(deviceKey);
    default:
        return false;
    }
}
