#include "ui/liveview/LiveViewController.h"

#include "model/AIManager.h"
#include "model/MainViewManager.h"
#include "model/ParamAccess.h"
#include "model/UiManager.h"
#include "model/UserAccess.h"
#include "protocol/OutputSettingsBlock.h"
#include "protocol/PreviewControl.h"
#include "protocol/PreviewRecord.h"
#include "protocol/PreviewZoom.h"
#include "protocol/TurnPageNotice.h"
#include "protocol/UiEventType.h"
#include "runtime/VyDateTime.h"
#include "runtime/VyLog.h"
#include "toolkit/core/VyPointer.h"
#include "toolkit/events/VyTimerEvent.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/input/VyKeyManager.h"
#include "toolkit/widgets/VyLabel.h"
#include "toolkit/widgets/VySlider.h"
#include "ui/ShellActions.h"
#include "ui/liveview/ColourPanel.h"
#include "ui/liveview/DigitalZoomView.h"
#include "ui/liveview/ImageButton.h"
#include "ui/liveview/LiveViewProfile.h"
#include "ui/liveview/MainViewTaskBar.h"
#include "ui/liveview/MainViewVideo.h"
#include "ui/liveview/MoreLayoutMenu.h"
#include "ui/liveview/PlayMenu.h"
#include "ui/liveview/ScreanLayoutMenu.h"
#include "ui/liveview/StartMenu.h"
#include "ui/liveview/VideoLayout.h"
#include "ui/liveview/VideoToolBar.h"
#include "ui/liveview/VyPtzWidget.h"
#include "ui/liveview/VyVideoScreen.h"
#include "ui/liveview/VyVideoScreenLayout.h"
#include "ui/liveview/VyVideoScreenLayoutManager.h"

#include <algorithm>

namespace {
LiveViewController::Clock g_clock = &VyDateTime::currentDateTime;

// The remote's arrows and OK start on this widget: the key manager's focus, and the
// pointer's focus with it.
void giveKeyFocus(VyWidget* widget) {
    widget->setFocus();
    if (VyKeyManager* keys = VyKeyManager::liveInstance())
        keys->setKeyFocusWidget(widget);
}
} // namespace

void LiveViewController::setClock(Clock clock) {
    g_clock = clock ? clock : &VyDateTime::currentDateTime;
}

LiveViewController::LiveViewController(VyVideoScreen* screen, MainViewTaskBar* taskBar,
                                       VyLabel* notice, VyObject* parent)
    : VyObject(parent)
    , m_screen(screen)
    , m_taskBar(taskBar)
    , m_notice(notice) {
    connect(screen, &screen->previewChanged, this, VY_SLOT(LiveViewController, onPreviewChanged));
    // Who is logged in decides which channels show a picture.
    if (UserAccess* users = UserAccess::instance())
        connect(users, &users->userChanged, this, VY_SLOT(LiveViewController, onPreviewChanged));
    connect(screen, &screen->orderChanged, this, VY_SLOT(LiveViewController, onOrderChanged));
    connect(screen, &screen->rightClicked, this, VY_SLOT(LiveViewController, onRightClick));
    VideoToolBar* bar = screen->toolBar();
    connect(bar, &bar->actionTriggered, this, VY_SLOT(LiveViewController, onToolBarAction));
    if (taskBar != nullptr)
        connect(taskBar, &taskBar->buttonClicked, this,
                VY_SLOT(LiveViewController, onTaskBarButton));
    if (MainViewManager* m = manager()) {
        connect(m, &m->layoutRequested, this, VY_SLOT(LiveViewController, onLayoutRequested));
        connect(m, &m->channelStateChanged, this, VY_SLOT(LiveViewController, onChannelState));
        connect(m, &m->deviceStateChanged, this, VY_SLOT(LiveViewController, onDeviceState));
        connect(m, &m->sequenceStep, this, VY_SLOT(LiveViewController, onSequenceStep));
        connect(m, &m->snapshotTaken, this, VY_SLOT(LiveViewController, onSnapshot));
        connect(m, &m->sequenceTick, this, VY_SLOT(LiveViewController, onSequenceTick));
        connect(m, &m->talkStateChanged, this, VY_SLOT(LiveViewController, onTalkState));
        connect(m, &m->pageTurnRequested, this, VY_SLOT(LiveViewController, onPageTurn));
    }
    if (AIManager* ai = AIManager::instance())
        connect(ai, &ai->recognised, this, VY_SLOT(LiveViewController, onFaceRecognised));
    if (UiManager* ui = UiManager::instance())
        connect(ui, &ui->networkStatusChanged, this, VY_SLOT(LiveViewController, onNetworkStatus));
    m_clockTimer = startTimer(kClockMs);
}

MainViewManager* LiveViewController::manager() const {
    return MainViewManager::instance();
}

LiveViewController::~LiveViewController() = default;

void LiveViewController::start(const LiveViewProfile& profile, int channelCount) {
    m_channelCount = channelCount;
    m_screen->videoLayout()->setAlignment(profile.coarseUnit, profile.fineUnit);
    m_screen->setChannelCount(channelCount);
    MainViewManager* m = manager();
    if (m != nullptr) {
        m->setChannelCount(channelCount);
        if (UiManager* ui = UiManager::instance()) {
            ui->setReceiver(UiEventType::ChannelState, m);
            ui->setReceiver(UiEventType::DualTalk, m);
            ui->setReceiver(UiEventType::TurnPage, m);
        }
        m_screen->setChannelOrder(m->channelOrder());
        // Every layout of the count list that does not exceed the channels, in order.
        std::vector<int> sequence;
        VyVideoScreenLayoutManager* catalogue = VyVideoScreenLayoutManager::instance();
        for (int i = 0; i < catalogue->countListSize(); ++i) {
            if (catalogue->countAt(i) <= channelCount && !catalogue->layoutAt(i)->isMerged())
                sequence.push_back(i);
        }
        m->setSequenceLayouts(sequence);
    }
    // The user's default split (output settings) wins over the device's.
    LiveViewProfile start = profile;
    const uint32_t userSplit = ParamAccess::get<OutputSettingsBlock>().splitMode;
    if (userSplit > 0 && userSplit <= uint32_t(PreviewRecord::kMaxCells))
        start.splitCount = int(userSplit);
    m_screen->setLayout(start.startLayoutIndex());
    if (m != nullptr) {
        m->requestCameraRoster();
        for (int ch = 0; ch < channelCount; ++ch) {
            if (MainViewVideo* cell = m_screen->cellOfChannel(ch))
                cell->setChannelState(m->channelState(ch));
        }
        m->announceLiveView();
    }
    onNetworkStatus();
    timerEvent(nullptr);
}

void LiveViewController::sendPreview() {
    if (MainViewManager* m = manager()) {
        m->setLayout(m_screen->shownLayoutIndex());
        PreviewRecord record = m_screen->previewRecord();
        // A channel the user may not watch keeps its cell, without a picture.
        if (const UserAccess* users = UserAccess::instance()) {
            for (int i = 0; i < record.cellCount && i < PreviewRecord::kMaxCells; ++i) {
                PreviewCell& cell = record.cells[i];
                if (cell.channel != PreviewCell::kNoChannel &&
                    !users->offers(UserRights::kLiveView, cell.channel))
                    cell.channel = PreviewCell::kNoChannel;
            }
        }
        m->sendPreview(record);
    }
}

bool LiveViewController::allowed(uint32_t function) {
    UserAccess* users = UserAccess::instance();
    return users == nullptr || users->ensure(function);
}

void LiveViewController::onPreviewChanged() {
    sendPreview();
}

void LiveViewController::onOrderChanged() {
    if (MainViewManager* m = manager())
        m->setChannelOrder(m_screen->channelOrder());
}

void LiveViewController::onLayoutRequested() {
    MainViewManager* m = manager();
    if (m == nullptr)
        return;
    VyVideoScreenLayoutManager* catalogue = VyVideoScreenLayoutManager::instance();
    const int index = catalogue->indexOf(catalogue->layoutById(m->requestedLayout()));
    m_screen->setLayout(index < 0 ? 0 : index);
}

void LiveViewController::onChannelState() {
    MainViewManager* m = manager();
    if (m == nullptr)
        return;
    const int ch = m->changedChannel();
    MainViewVideo* cell = m_screen->cellOfChannel(ch);
    if (cell == nullptr)
        return;
    const bool cameraBefore = cell->hasCamera();
    cell->setChannelState(m->channelState(ch));
    if (cell == m_screen->toolBar()->cell())
        m_screen->toolBar()->setRecording(
            m->channelState(ch).has(ChannelStateNotice::kManualRecord));
    // App draws a camera's picture only when the record says it has one.
    if (cameraBefore != cell->hasCamera() && cell->isVideoVisible())
        sendPreview();
}

void LiveViewController::onDeviceState() {
    if (MainViewManager* m = manager(); m && m_taskBar)
        m_taskBar->setDeviceState(m->deviceState());
}

void LiveViewController::onNetworkStatus() {
    if (UiManager* ui = UiManager::instance(); ui && m_taskBar)
        m_taskBar->setConnectionState(ui->networkStatus());
}

void LiveViewController::onSequenceStep() {
    MainViewManager* m = manager();
    if (m == nullptr)
        return;
    if ((m_screen->flags() & VyVideoScreen::kMultiCellPaging) != 0 && !m_screen->isLastPage()) {
        m_screen->nextPage();
        return;
    }
    m_screen->setLayout(m->nextSequenceLayout());
}

void LiveViewController::onSnapshot() {
    showNotice(TextId::LiveView::SnapshotSaved);
}

void LiveViewController::onFaceRecognised() {
    AIManager* ai = AIManager::instance();
    if (ai == nullptr || m_notice == nullptr)
        return;
    showNotice(TextId::Analytics::Recognised);
    m_notice->setText(VyTranslation::tr(TextId::Analytics::Recognised)
                          .arg(ai->lastRecognisedName())
                          .arg(int(ai->lastRecognition().channel) + 1));
}

void LiveViewController::showNotice(uint32_t textId) {
    if (m_notice == nullptr)
        return;
    m_notice->setTextId(textId);
    m_notice->show();
    m_notice->raise();
    if (m_noticeTimer != 0)
        killTimer(m_noticeTimer);
    m_noticeTimer = startTimer(kNoticeMs);
}

bool LiveViewController::keyAction(uint32_t deviceKey) {
    switch (deviceKey) {
    case 56: // sequence
        if (MainViewManager* m = manager())
            m->setSequenceDwell(m->sequenceDwell() > 0 ? -1 : kKeySequenceDwellSec);
        return true;
    case 60:
        act(VideoToolBar::Snapshot);
        return true;
    case 67:
        act(VideoToolBar::Record);
        return true;
    case 73:
        act(VideoToolBar::Volume);
        return true;
    default:
        return false;
    }
}

void LiveViewController::act(int action) {
    VideoToolBar* bar = m_screen->toolBar();
    if (m_screen->selectedCell() == nullptr)
        return;
    bar->attachTo(m_screen->selectedCell());
    perform(VideoToolBar::Action(action));
}

void LiveViewController::onToolBarAction() {
    perform(m_screen->toolBar()->lastAction());
}

void LiveViewController::perform(int action) {
    VideoToolBar* bar = m_screen->toolBar();
    MainViewVideo* cell = bar->cell();
    MainViewManager* m = manager();
    if (cell == nullptr || m == nullptr)
        return;
    if (cell->channel() == Video::kNoChannel && action != VideoToolBar::Close) {
        VY_GUI_LOG("tool bar action %d on a cell without a channel ignored\n", action);
        return;
    }
    PreviewControl control;
    control.channel = uint8_t(cell->channel() < 0 ? 0 : cell->channel());
    switch (action) {
    case VideoToolBar::Record: {
        const bool on = !cell->channelState().has(ChannelStateNotice::kManualRecord);
        control.command = PreviewControl::kManualRecord;
        control.action = on ? PreviewControl::kOn : PreviewControl::kOff;
        bar->setRecording(on);
        break;
    }
    case VideoToolBar::Snapshot:
        control.command = PreviewControl::kSnapshot;
        break;
    case VideoToolBar::Stream: {
        const bool main = !cell->prefersMainStream();
        cell->setPrefersMainStream(main);
        bar->setMainStream(main);
        control.command = PreviewControl::kStream;
        control.value = main ? PreviewCell::kMainStream : PreviewCell::kSubStream;
        m->sendControl(control);
        sendPreview();
        return;
    }
    case VideoToolBar::Volume:
        m_muted = !m_muted;
        bar->setMuted(m_muted);
        control.command = PreviewControl::kAudio;
        control.action = m_muted ? PreviewControl::kOn : PreviewControl::kOff;
        control.value = 100;
        break;
    case VideoToolBar::TalkBack:
        // The image follows App's answer (onTalkState), not the click.
        control.command = PreviewControl::kTalkBack;
        control.action = bar->isTalking() ? PreviewControl::kOff : PreviewControl::kOn;
        break;
    case VideoToolBar::Ptz:
        openPtz(cell);
        return;
    case VideoToolBar::Zoom:
        startZoom(cell);
        return;
    case VideoToolBar::Colour:
        openColour(cell);
        return;
    case VideoToolBar::Playback:
        if (ShellActions* shell = ShellActions::instance()) {
            m_screen->hideToolBar();
            shell->openPlayback(cell->channel(), g_clock().toTime_t() - kInstantPlaybackSec);
        }
        return;
    case VideoToolBar::Close:
        m_screen->hideToolBar();
        return;
    default:
        VY_GUI_LOG("tool bar action %d not offered here\n", action);
        return;
    }
    m->sendControl(control);
}

void LiveViewController::placePanel(VyWidget* panel, MainViewVideo* cell) {
    VyWidget* window = panel->parentWidget();
    const VySize size = panel->sizeHint();
    const int bottom = window->height() - (m_taskBar ? m_taskBar->height() : 0);
    const VyPoint corner = cell->mapToWindow(VyPoint(0, 0));
    // Right of the cell when there is room, else left of it; then kept on the screen.
    int x = corner.x + cell->width();
    if (x + size.width > window->width())
        x = corner.x - size.width;
    x = std::clamp(x, 0, std::max(0, window->width() - size.width));
    const int y = std::clamp(corner.y, 0, std::max(0, bottom - size.height));
    panel->setGeometry(x, y, size.width, size.height);
    panel->show();
    panel->raise();
}

void LiveViewController::openPtz(MainViewVideo* cell) {
    VyPointer<MainViewVideo> alive(cell);
    if (!allowed(UserRights::kPtz) || !alive) // a login prompt runs the event loop
        return;
    if (m_ptz == nullptr) {
        m_ptz = new VyPtzWidget(m_screen->parentWidget());
        connect(m_ptz, &m_ptz->closeRequested, this, VY_SLOT(LiveViewController, onPanelClosed));
    }
    if (m_colour != nullptr)
        m_colour->hide();
    m_screen->hideToolBar();
    m_ptz->setChannel(cell->channel());
    placePanel(m_ptz, cell);
    giveKeyFocus(m_ptz->button(VyPtzWidget::Up));
}

void LiveViewController::openColour(MainViewVideo* cell) {
    if (m_colour == nullptr) {
        m_colour = new ColourPanel(m_screen->parentWidget());
        connect(m_colour, &m_colour->closeRequested, this,
                VY_SLOT(LiveViewController, onPanelClosed));
    }
    if (m_ptz != nullptr)
        m_ptz->hide();
    m_screen->hideToolBar();
    m_colour->open(cell->channel());
    placePanel(m_colour, cell);
    giveKeyFocus(m_colour->slider(ColourPanel::Brightness));
}

bool LiveViewController::escape() {
    if (m_zoom != nullptr && m_zoom->isVisible()) {
        endZoom();
        return true;
    }
    if (m_ptz != nullptr && m_ptz->isVisible()) {
        m_ptz->hide();
        onPanelClosed();
        return true;
    }
    if (m_colour != nullptr && m_colour->isVisible()) {
        m_colour->flush();
        m_colour->hide();
        onPanelClosed();
        return true;
    }
    return false;
}

void LiveViewController::onPanelClosed() {
    if (MainViewVideo* cell = m_screen->selectedCell())
        m_screen->showToolBar(cell);
}

void LiveViewController::startZoom(MainViewVideo* cell) {
    if (m_zoom == nullptr) {
        m_zoom = new DigitalZoomView(m_screen->parentWidget());
        connect(m_zoom, &m_zoom->regionChanged, this, VY_SLOT(LiveViewController, onZoomRegion));
        connect(m_zoom, &m_zoom->finished, this, VY_SLOT(LiveViewController, onZoomFinished));
    }
    m_screen->hideToolBar();
    // Paging, layouts and the sequence wait while the cell is zoomed.
    cell->setExclusive(true);
    const VyPoint corner = cell->mapToWindow(VyPoint(0, 0));
    m_zoom->begin(cell->channel(), VyRect(corner.x, corner.y, cell->width(), cell->height()));
    m_zoom->show();
    m_zoom->raise();
    giveKeyFocus(m_zoom);
    showNotice(TextId::LiveView::ZoomHint);
}

void LiveViewController::onZoomRegion() {
    if (MainViewManager* m = manager(); m && m_zoom)
        m->sendZoom(m_zoom->zoom().region(m_zoom->channel()));
}

void LiveViewController::onZoomFinished() {
    endZoom();
}

void LiveViewController::endZoom() {
    if (m_zoom == nullptr || !m_zoom->isVisible())
        return;
    m_zoom->hide();
    // The whole picture again.
    if (MainViewManager* m = manager()) {
        PreviewZoom whole;
        whole.channel = uint8_t(std::max(0, m_zoom->channel()));
        m->sendZoom(whole);
    }
    for (MainViewVideo* cell : m_screen->cells())
        cell->setExclusive(false);
    if (MainViewVideo* cell = m_screen->selectedCell())
        m_screen->showToolBar(cell);
}

void LiveViewController::onTalkState() {
    MainViewManager* m = manager();
    if (m == nullptr)
        return;
    m_screen->toolBar()->setTalkChannel(m->isTalking() ? m->talkChannel() : -1);
    if (m->talkState() == DualTalkNotice::kBusy)
        showNotice(TextId::LiveView::TalkBackBusy);
    else if (m->talkState() == DualTalkNotice::kFailed)
        showNotice(TextId::LiveView::TalkBackFailed);
}

void LiveViewController::onPageTurn() {
    MainViewManager* m = manager();
    if (m == nullptr)
        return;
    // The screen itself refuses while a cell is zoomed or in a control mode.
    const TurnPageNotice& turn = m->pageTurn();
    switch (turn.operation) {
    case TurnPageNotice::kNext:
        m_screen->nextPage();
        break;
    case TurnPageNotice::kPrevious:
        m_screen->previousPage();
        break;
    case TurnPageNotice::kGoto:
        if (turn.page >= m_screen->pageCount()) {
            VY_GUI_LOG("page %d of %d asked for, ignored\n", turn.page + 1, m_screen->pageCount());
            return;
        }
        m_screen->gotoPage(turn.page);
        break;
    default:
        break;
    }
}

void LiveViewController::popupMenu(std::unique_ptr<VyMenu> menu, VyWidget* above, VyPoint at) {
    if (above != nullptr) {
        const VyPoint corner = above->mapToGlobal(VyPoint(0, 0));
        at = VyPoint(corner.x, corner.y - menu->sizeHint().height);
    }
    m_menu = std::move(menu);
    m_menu->popup(at);
}

void LiveViewController::onRightClick() {
    MainViewManager* m = manager();
    if (m != nullptr && m->isPickMode())
        return;
    MainViewVideo* cell = m_screen->rightClickedCell();
    const VyPoint at =
        cell ? cell->mapToGlobal(VyPoint(cell->width() / 2, cell->height() / 2)) : VyPoint();
    popupMenu(std::make_unique<ScreanLayoutMenu>(m_channelCount), nullptr, at);
}

void LiveViewController::onSequenceTick() {
    MainViewManager* m = manager();
    if (m_taskBar == nullptr || m == nullptr)
        return;
    m_taskBar->setSequenceText(m->sequenceDwell() > 0 ? PlayMenu::remainingText(m->secondsLeft())
                                                      : VyString());
}

void LiveViewController::onTaskBarButton() {
    if (m_taskBar == nullptr)
        return;
    switch (m_taskBar->lastButton()) {
    case MainViewTaskBar::Start: {
        auto menu = std::make_unique<StartMenu>(VyString("admin"), true);
        if (const UserAccess* users = UserAccess::instance())
            menu->followAccess(*users);
        connect(menu.get(), &menu->chosen, this, VY_SLOT(LiveViewController, onStartMenuChosen));
        popupMenu(std::move(menu), m_taskBar->button(MainViewTaskBar::Start));
        break;
    }
    case MainViewTaskBar::MoreLayouts:
        popupMenu(std::make_unique<MoreLayoutMenu>(m_channelCount),
                  m_taskBar->button(MainViewTaskBar::MoreLayouts));
        break;
    case MainViewTaskBar::Layout4:
        m_screen->setLayout(1);
        break;
    case MainViewTaskBar::Layout9:
        m_screen->setLayout(4);
        break;
    case MainViewTaskBar::Layout16:
        m_screen->setLayout(11);
        break;
    case MainViewTaskBar::Sequence:
        popupMenu(std::make_unique<PlayMenu>(false), m_taskBar->button(MainViewTaskBar::Sequence));
        break;
    case MainViewTaskBar::OpenWizard:
        if (ShellActions* shell = ShellActions::instance())
            shell->openWizard();
        break;
    default:
        break;
    }
}

void LiveViewController::onStartMenuChosen() {
    auto* menu = dynamic_cast<StartMenu*>(m_menu.get());
    ShellActions* shell = ShellActions::instance();
    if (menu == nullptr || shell == nullptr)
        return;
    const StartMenu::Entry entry = menu->chosenEntry();
    // The menu closes before the screen it chose opens over the main view.
    menu->hide();
    switch (entry) {
    case StartMenu::User:
        shell->openUserMenu();
        break;
    case StartMenu::Search:
        if (allowed(UserRights::kPlayback))
            shell->openPlayback(-1, 0);
        break;
    case StartMenu::Backup:
        if (allowed(UserRights::kBackup))
            shell->openBackup();
        break;
    case StartMenu::Settings:
        shell->openSettings();
        break;
    case StartMenu::Lock:
        shell->toggleLock();
        break;
    case StartMenu::Shutdown:
        if (allowed(UserRights::kShutdown))
            shell->openShutdown();
        break;
    }
}

void LiveViewController::timerEvent(VyTimerEvent* e) {
    if (e != nullptr && e->timerId() == m_noticeTimer) {
        killTimer(m_noticeTimer);
        m_noticeTimer = 0;
        if (m_notice)
            m_notice->hide();
        return;
    }
    if (m_taskBar == nullptr)
        return;
    UiManager* ui = UiManager::instance();
    const VyString format =
        ui ? ui->dateFormat() + VyString(" ") + ui->timeFormat() : VyString("yyyy-MM-dd hh:mm:ss");
    m_taskBar->setClockText(g_clock().toString(format));
}
