#include "ui/liveview/LiveViewController.h"

#include "model/AIManager.h"
#include "model/MainViewManager.h"
#include "model/ParamAccess.h"
#include "model/UiManager.h"
#include "protocol/OutputSettingsBlock.h"
#include "protocol/PreviewControl.h"
#include "protocol/PreviewRecord.h"
#include "protocol/UiEventType.h"
#include "runtime/VyDateTime.h"
#include "runtime/VyLog.h"
#include "toolkit/events/VyTimerEvent.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/widgets/VyLabel.h"
#include "ui/ShellActions.h"
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
#include "ui/liveview/VyVideoScreen.h"
#include "ui/liveview/VyVideoScreenLayout.h"
#include "ui/liveview/VyVideoScreenLayoutManager.h"

namespace {
LiveViewController::Clock g_clock = &VyDateTime::currentDateTime;
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
        m->sendPreview(m_screen->previewRecord());
    }
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
        m_talking = !m_talking;
        control.command = PreviewControl::kTalkBack;
        control.action = m_talking ? PreviewControl::kOn : PreviewControl::kOff;
        break;
    case VideoToolBar::Close:
        m_screen->hideToolBar();
        return;
    default:
        VY_GUI_LOG("tool bar action %d not offered here\n", action);
        return;
    }
    m->sendControl(control);
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
        shell->openPlayback(-1, 0);
        break;
    case StartMenu::Backup:
        shell->openBackup();
        break;
    case StartMenu::Settings:
        shell->openSettings();
        break;
    case StartMenu::Lock:
        shell->toggleLock();
        break;
    case StartMenu::Shutdown:
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
