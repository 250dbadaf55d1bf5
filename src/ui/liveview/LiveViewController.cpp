#include "ui/liveview/LiveViewController.h"

#include "model/MainViewManager.h"
#include "model/UiManager.h"
#include "protocol/PreviewControl.h"
#include "protocol/PreviewRecord.h"
#include "protocol/UiEventType.h"
#include "runtime/VyDateTime.h"
#include "runtime/VyLog.h"
#include "toolkit/events/VyTimerEvent.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/widgets/VyLabel.h"
#include "ui/liveview/LiveViewProfile.h"
#include "ui/liveview/MainViewTaskBar.h"
#include "ui/liveview/MainViewVideo.h"
#include "ui/liveview/VideoLayout.h"
#include "ui/liveview/VideoToolBar.h"
#include "ui/liveview/VyVideoScreen.h"
#include "ui/liveview/VyVideoScreenLayout.h"
#include "ui/liveview/VyVideoScreenLayoutManager.h"

LiveViewController::LiveViewController(VyVideoScreen* screen, MainViewTaskBar* taskBar,
                                       VyLabel* notice, VyObject* parent)
    : VyObject(parent)
    , m_screen(screen)
    , m_taskBar(taskBar)
    , m_notice(notice) {
    connect(screen, &screen->previewChanged, this, VY_SLOT(LiveViewController, onPreviewChanged));
    connect(screen, &screen->orderChanged, this, VY_SLOT(LiveViewController, onOrderChanged));
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
    }
    if (UiManager* ui = UiManager::instance())
        connect(ui, &ui->networkStatusChanged, this, VY_SLOT(LiveViewController, onNetworkStatus));
    m_clockTimer = startTimer(kClockMs);
}

MainViewManager* LiveViewController::manager() const {
    return MainViewManager::instance();
}

void LiveViewController::start(const LiveViewProfile& profile, int channelCount) {
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
    m_screen->setLayout(profile.startLayoutIndex());
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

void LiveViewController::onToolBarAction() {
    VideoToolBar* bar = m_screen->toolBar();
    MainViewVideo* cell = bar->cell();
    MainViewManager* m = manager();
    if (cell == nullptr || m == nullptr)
        return;
    PreviewControl control;
    control.channel = uint8_t(cell->channel() < 0 ? 0 : cell->channel());
    switch (bar->lastAction()) {
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
        VY_GUI_LOG("tool bar action %d not offered here\n", int(bar->lastAction()));
        return;
    }
    m->sendControl(control);
}

void LiveViewController::onTaskBarButton() {
    if (m_taskBar == nullptr)
        return;
    switch (m_taskBar->lastButton()) {
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
        if (MainViewManager* m = manager())
            m->setSequenceDwell(m->sequenceDwell() > 0 ? -1 : 10);
        break;
    default:
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
    m_taskBar->setClockText(VyDateTime::currentDateTime().toString(format));
}
