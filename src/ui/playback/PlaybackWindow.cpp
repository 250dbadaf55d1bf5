#include "ui/playback/PlaybackWindow.h"

#include "model/UiManager.h"
#include "model/UserAccess.h"
#include "protocol/PlaybackStatus.h"
#include "runtime/VyIniSettings.h"
#include "runtime/VyLog.h"
#include "runtime/VyRegion.h"
#include "runtime/VyResources.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/events/VyKeyEvent.h"
#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/input/VyKeyManager.h"
#include "toolkit/style/VyStyle.h"
#include "toolkit/widgets/VyLabel.h"
#include "toolkit/widgets/VyProgressBar.h"
#include "toolkit/widgets/VyPushButton.h"
#include "ui/UiLook.h"
#include "ui/playback/BackupToolBar.h"
#include "ui/playback/MotionSearchPanel.h"
#include "ui/playback/PlaybackDetailsPanel.h"
#include "ui/playback/PlaybackScreen.h"
#include "ui/playback/PlaybackSearchPanel.h"
#include "ui/playback/PlaybackSession.h"
#include "ui/playback/PlaybackSnapshot.h"
#include "ui/playback/PlaybackSplit.h"
#include "ui/playback/RecordTimeBar.h"
#include "ui/playback/TagSearchPanel.h"
#include "ui/playback/ThumbnailBar.h"

#include <algorithm>

namespace {

// Metrics at 1920x1080.
constexpr int kPanelWidthDesign = 360;
constexpr int kTimeBarHeightDesign = 230;
constexpr int kControlBarDesign = 56;
constexpr int kButtonDesign = 44;
constexpr int kBackupBarDesign = 48;

const char* const kIcons[PlaybackWindow::ControlCount] = {
    "images/playback-play.png",
    "images/playback-stop.png",
    "images/playback-slow.png",
    "images/playback-fast.png",
    "images/playback-frame.png",
    "images/playback-back30.png",
    "images/playback-forward30.png",
    "images/prev.png",
    "images/next.png",
    "images/playback-fullscreen.png",
    "images/playback-mute.png",
    "images/playback-snapshot.png",
    "images/playback-clip.png",
    "images/playback-backup.png",
    "images/playback-motion.png",
    "images/playback-pictures.png",
    "images/playback-thumbnails.png",
    "images/playback-tags.png",
};

VyString speedText(int step) {
    if (step >= 0)
        return VyString::number(1 << step) + "x";
    return VyString("1/") + VyString::number(1 << -step) + "x";
}

} // namespace

PlaybackWindow::PlaybackWindow(int deviceChannels, VyWidget* parent)
    : VyWidget(parent, Window) {
    const VyIniSettings ini(VyResources::path(kStyleFile));
    const VyString s = VyString("Playback/");
    m_background = UiLook::colourOr(ini, s + "Background", m_background);
    m_controlBar = UiLook::colourOr(ini, s + "ControlBar/Background", m_controlBar);
    m_controlBorder = UiLook::colourOr(ini, s + "ControlBar/Border", m_controlBorder);

    m_session = new PlaybackSession(this);
    m_screen = new PlaybackScreen(this);
    m_timeBar = new RecordTimeBar(this);
    m_panel = new PlaybackSearchPanel(deviceChannels, this);
    m_motion = new MotionSearchPanel(this);
    m_details = new PlaybackDetailsPanel(this);
    connect(m_details, &m_details->segmentChosen, this, VY_SLOT(PlaybackWindow, onSegmentChosen));
    connect(m_timeBar, &m_timeBar->channelSelected, this, VY_SLOT(PlaybackWindow, onRowSelected));
    connect(m_motion, &m_motion->searchRequested, this, VY_SLOT(PlaybackWindow, onMotionSearch));
    VyStyle* style = VyStyle::instance();
    m_backupBar = new BackupToolBar(this);
    connect(m_backupBar, &m_backupBar->cancelRequested, this,
            VY_SLOT(PlaybackWindow, onCancelExport));
    for (int c = 0; c < ControlCount; ++c) {
        m_controls[c] = new VyPushButton(c == Backup ? static_cast<VyWidget*>(m_backupBar) : this);
        m_controls[c]->setIcon(style->image(kIcons[c]));
        connect(m_controls[c], &m_controls[c]->clicked, this,
                VY_SLOT(PlaybackWindow, onControlClicked));
    }
    m_controls[Clip]->setCheckable(true);
    m_controls[MotionSearch]->setCheckable(true);
    m_controls[PicturePlay]->setCheckable(true);
    m_controls[Thumbnails]->setCheckable(true);
    m_controls[Tags]->setCheckable(true);
    m_tags = new TagSearchPanel(deviceChannels, this);
    connect(m_tags, &m_tags->searchRequested, this, VY_SLOT(PlaybackWindow, onTagSearch));
    connect(m_tags, &m_tags->addRequested, this, VY_SLOT(PlaybackWindow, onAddTag));
    connect(m_tags, &m_tags->tagChosen, this, VY_SLOT(PlaybackWindow, onTagChosen));
    connect(m_session, &m_session->tagsFound, this, VY_SLOT(PlaybackWindow, onTagsFound));
    m_thumbnailBar = new ThumbnailBar(this);
    connect(m_thumbnailBar, &m_thumbnailBar->thumbnailChosen, this,
            VY_SLOT(PlaybackWindow, onThumbnailChosen));
    connect(m_session, &m_session->thumbnailsArrived, this,
            VY_SLOT(PlaybackWindow, onThumbnailsArrived));
    connect(m_timeBar, &m_timeBar->viewMoved, this, VY_SLOT(PlaybackWindow, refreshThumbnails));
    for (VyPushButton*& zoom : m_zoom) {
        zoom = new VyPushButton(this);
        zoom->setCheckable(true);
        zoom->show();
        connect(zoom, &zoom->clicked, this, VY_SLOT(PlaybackWindow, onZoomClicked));
    }
    m_zoom[0]->setChecked(true);
    m_timeBar->setSpanSource([this] { return zoomSpan(); });
    connect(m_timeBar, &m_timeBar->spanChanged, this, VY_SLOT(PlaybackWindow, onWheelZoomed));
    connect(m_panel, &m_panel->typeFilterChanged, this,
            VY_SLOT(PlaybackWindow, onTypeFilterChanged));
    m_speed = new VyLabel(speedText(0), this);
    m_backupBar->setBackupButton(m_controls[Backup]);
    retranslate();
    VyTranslation* tr = VyTranslation::instance();
    connect(tr, &tr->languageChanged, this, VY_SLOT(PlaybackWindow, retranslate));
    connect(m_timeBar, &m_timeBar->clipChanged, this, VY_SLOT(PlaybackWindow, onClipChanged));

    connect(m_timeBar, &m_timeBar->positionChosen, this, VY_SLOT(PlaybackWindow, onPositionChosen));
    connect(m_timeBar, &m_timeBar->playRequested, this, VY_SLOT(PlaybackWindow, onPositionChosen));
    connect(m_session, &m_session->daySearched, this, VY_SLOT(PlaybackWindow, onDaySearched));
    connect(m_session, &m_session->monthSearched, this, VY_SLOT(PlaybackWindow, onMonthSearched));
    connect(m_session, &m_session->progressed, this, VY_SLOT(PlaybackWindow, onProgressed));
    connect(m_session, &m_session->exportChanged, this, VY_SLOT(PlaybackWindow, onExportChanged));
    connect(m_panel, &m_panel->dateChosen, this, VY_SLOT(PlaybackWindow, search));
    connect(m_panel, &m_panel->monthShown, this, VY_SLOT(PlaybackWindow, onMonthShown));
    connect(m_panel, &m_panel->searchRequested, this, VY_SLOT(PlaybackWindow, search));
    connect(m_screen, &m_screen->cellSelected, this, VY_SLOT(PlaybackWindow, onCellSelected));
    m_timeBar->setDateRange(m_panel->date());
    m_screen->setChannels(m_panel->checkedChannels());
    for (VyWidget* w : {static_cast<VyWidget*>(m_screen), static_cast<VyWidget*>(m_timeBar),
                        static_cast<VyWidget*>(m_panel), static_cast<VyWidget*>(m_speed)})
        w->show();
    for (VyPushButton* b : m_controls)
        b->show();
}

PlaybackWindow::~PlaybackWindow() {
    m_session->setReady(false);
}

void PlaybackWindow::present() {
    if (VyApplication* app = VyApplication::instance()) {
        if (VyScreen* screen = app->screen())
            setGeometry(0, 0, screen->width(), screen->height());
    }
    m_session->setReady(true);
    if (UiManager* manager = UiManager::instance())
        manager->setPlaybackReceivers(m_session, nullptr);
    if (VyKeyManager* keys = VyKeyManager::liveInstance())
        keys->setKeyTarget(VyKeyTarget::PlaybackWindow, this);
    show();
    raise();
}

void PlaybackWindow::open() {
    present();
    m_session->searchMonth(m_panel->date(), m_panel->checkedChannels());
}

void PlaybackWindow::openSearch() {
    present();
    search();
}

void PlaybackWindow::openAt(int channel, const VyDateTime& from) {
    present();
    for (int c = 0; c < PlaybackSearchPanel::kMaxChannels; ++c)
        m_panel->setChannelChecked(c, c == channel);
    m_panel->setDate(from.date());
    search();
    m_timeBar->setCursorTime(from);
    playFrom(from);
}

void PlaybackWindow::closeWindow() {
    if (m_session->isPlaying())
        m_session->stop();
    if (m_session->isPlayingPictures())
        m_session->stopPictures();
    m_session->setReady(false);
    m_screen->setVideoShown(false);
    m_motion->setPicture(VyBitmap());
    if (VyKeyManager* keys = VyKeyManager::liveInstance()) {
        if (keys->keyTarget(VyKeyTarget::PlaybackWindow) == this)
            keys->setKeyTarget(VyKeyTarget::PlaybackWindow, nullptr);
    }
    hide();
    emitSignal(this, &closed);
}

void PlaybackWindow::instantPlayback(int channel, const VyDateTime& now) {
    const VyDateTime from = now.addSecs(-kInstantSeconds);
    for (int c = 0; c < PlaybackSearchPanel::kMaxChannels; ++c)
        m_panel->setChannelChecked(c, c == channel);
    m_panel->setDate(from.date());
    search();
    playFrom(from, now);
}

void PlaybackWindow::search() {
    const std::vector<int> channels = m_panel->checkedChannels();
    m_timeBar->setDateRange(m_panel->date());
    m_screen->setChannels(channels);
    m_audio.assign(m_screen->cellRects().size(), false);
    m_session->searchDay(m_panel->date(), channels);
    m_session->searchMonth(m_panel->date(), channels);
}

std::vector<PlaybackSession::Cell> PlaybackWindow::cellsOnScreen() const {
    std::vector<PlaybackSession::Cell> cells;
    const std::vector<int>& channels = m_screen->channels();
    const std::vector<VyRect> rects = m_screen->cellRects();
    for (size_t i = 0; i < rects.size(); ++i) {
        PlaybackSession::Cell cell;
        cell.channel = i < channels.size() ? channels[i] : -1;
        const VyPoint at = m_screen->mapToGlobal(VyPoint(rects[i].left, rects[i].top));
        cell.rect = VyRect(at.x, at.y, rects[i].width(), rects[i].height());
        cells.push_back(cell);
    }
    return cells;
}

void PlaybackWindow::playFrom(const VyDateTime& time, const VyDateTime& to) {
    const std::vector<PlaybackSession::Cell> cells = cellsOnScreen();
    const std::vector<int>& channels = m_screen->channels();
    if (m_session->play(cells, time, uint32_t(PlaybackSplit::layoutIdFor(int(channels.size()))),
                        to)) {
        m_controls[Play]->setIcon(VyStyle::instance()->image("images/playback-pause.png"));
        m_screen->setVideoShown(true);
        m_screen->setTime(time);
    }
    updateSpeedText();
}

void PlaybackWindow::togglePlay() {
    VyStyle* style = VyStyle::instance();
    if (!m_session->isPlaying()) {
        playFrom(m_timeBar->cursorTime());
    } else if (m_session->isPaused()) {
        m_session->resume();
        m_controls[Play]->setIcon(style->image("images/playback-pause.png"));
    } else {
        m_session->pause();
        m_controls[Play]->setIcon(style->image("images/playback-play.png"));
    }
}

void PlaybackWindow::changeDay(int days) {
    m_session->stop();
    m_screen->setVideoShown(false);
    m_panel->setDate(m_panel->date().addDays(days));
    search();
}

void PlaybackWindow::onControlClicked(VyObject* sender) {
    int which = -1;
    for (int c = 0; c < ControlCount; ++c) {
        if (m_controls[c] == sender)
            which = c;
    }
    switch (which) {
    case Play:
        togglePlay();
        break;
    case Stop:
        m_session->stop();
        m_screen->setVideoShown(false);
        m_controls[Play]->setIcon(VyStyle::instance()->image("images/playback-play.png"));
        break;
    case Slower:
        m_session->setSpeed(m_session->speed() - 1);
        break;
    case Faster:
        m_session->setSpeed(m_session->speed() + 1);
        break;
    case FrameStep:
        m_session->frameStep();
        break;
    case Back30:
        m_session->jump(-PlaybackSession::kJumpSeconds);
        break;
    case Forward30:
        m_session->jump(PlaybackSession::kJumpSeconds);
        break;
    case PreviousDay:
        changeDay(-1);
        break;
    case NextDay:
        changeDay(1);
        break;
    case FullScreen:
        m_fullScreen = !m_fullScreen;
        layoutChildren();
        update();
        break;
    case Audio: {
        const int cell = m_screen->selectedCell();
        if (cell >= 0 && cell < int(m_audio.size())) {
            m_audio[size_t(cell)] = !m_audio[size_t(cell)];
            m_session->setAudio(cell, m_audio[size_t(cell)]);
            m_controls[Audio]->setIcon(VyStyle::instance()->image(
                m_audio[size_t(cell)] ? "images/playback-audio.png" : "images/playback-mute.png"));
        }
        break;
    }
    case Snapshot: {
        const int cell = m_screen->selectedCell();
        const auto rects = m_screen->cellRects();
        const auto& channels = m_screen->channels();
        if (cell < 0 || cell >= int(rects.size()) || cell >= int(channels.size()))
            break;
        VyApplication* app = VyApplication::instance();
        const VyPoint at =
            m_screen->mapToGlobal(VyPoint(rects[size_t(cell)].left, rects[size_t(cell)].top));
        const VyRect area(at.x, at.y, rects[size_t(cell)].width(), rects[size_t(cell)].height());
        const VyBitmap picture = PlaybackSnapshot::grab(app ? app->screen() : nullptr, area);
        m_lastSnapshot =
            PlaybackSnapshot::save(picture, channels[size_t(cell)],
                                   m_session->playbackTime().isValid() ? m_session->playbackTime()
                                                                       : m_timeBar->cursorTime(),
                                   m_snapshotDirectory);
        break;
    }
    case Clip:
        m_timeBar->setClipMode(m_controls[Clip]->isChecked());
        onClipChanged();
        layoutChildren();
        break;
    case MotionSearch: {
        m_controls[Tags]->setChecked(false);
        const int cell = m_screen->selectedCell();
        const auto& channels = m_screen->channels();
        if (m_controls[MotionSearch]->isChecked() && cell >= 0 && cell < int(channels.size())) {
            const auto rects = m_screen->cellRects();
            const VyPoint at =
                m_screen->mapToGlobal(VyPoint(rects[size_t(cell)].left, rects[size_t(cell)].top));
            VyApplication* app = VyApplication::instance();
            m_motion->setChannel(channels[size_t(cell)]);
            m_motion->setPicture(PlaybackSnapshot::grab(
                app ? app->screen() : nullptr,
                VyRect(at.x, at.y, rects[size_t(cell)].width(), rects[size_t(cell)].height())));
        } else {
            m_controls[MotionSearch]->setChecked(false);
            // A whole cell's picture: megabytes the window, which is kept, must not hold on to.
            m_motion->setPicture(VyBitmap());
        }
        layoutChildren();
        break;
    }
    case Thumbnails:
        layoutChildren();
        refreshThumbnails();
        break;
    case Tags:
        if (m_controls[Tags]->isChecked() && m_controls[MotionSearch]->isChecked())
            m_controls[MotionSearch]->setChecked(false);
        layoutChildren();
        break;
    case PicturePlay:
        if (m_controls[PicturePlay]->isChecked()) {
            if (m_session->isPlaying())
                m_session->stop();
            m_screen->setVideoShown(false);
            if (!m_session->playPictures(cellsOnScreen(), m_panel->date(), width(), height()))
                m_controls[PicturePlay]->setChecked(false);
        } else {
            m_session->stopPictures();
        }
        break;
    case Backup: {
        const VyDateTime from = m_timeBar->clipStart(), to = m_timeBar->clipEnd();
        if (!from.isValid() || !to.isValid() || !(from < to))
            break;
        const std::vector<int> channels = m_screen->channels();
        const std::string name = std::string(from.toString("yyyyMMdd_hhmmss").c_str()) + "-" +
                                 to.toString("hhmmss").c_str();
        m_session->exportClip(from, to, channels, name);
        break;
    }
    default:
        break;
    }
    updateSpeedText();
}

bool PlaybackWindow::keyAction(uint32_t deviceKey) {
    if (UserAccess* users = UserAccess::instance();
        users != nullptr && !users->ensure(UserRights::kPlayback))
        return true; // taken, and refused
    return handleDeviceKey(int(deviceKey));
}

bool PlaybackWindow::handleDeviceKey(int keyValue) {
    struct KeyControl {
        int key;
        Control control;
    };
    static constexpr KeyControl kKeys[] = {
        {39, Play},      {40, Stop},      {41, Slower},      {42, Faster},  {43, Back30},
        {44, Forward30}, {79, FrameStep}, {80, PreviousDay}, {81, NextDay}, {82, Snapshot},
    };
    for (const KeyControl& k : kKeys) {
        if (k.key == keyValue) {
            onControlClicked(m_controls[k.control]);
            return true;
        }
    }
    return false;
}

void PlaybackWindow::updateSpeedText() {
    m_speed->setText(speedText(m_session->speed()));
}

void PlaybackWindow::onPositionChosen() {
    // In clip mode a press marks the clip; it does not move the playback.
    if (m_timeBar->clipMode()) {
        onClipChanged();
        return;
    }
    if (m_session->isPlaying() && m_session->seek(m_timeBar->cursorTime()))
        m_screen->setTime(m_timeBar->cursorTime());
    else if (!m_session->isPlaying())
        playFrom(m_timeBar->cursorTime());
}

void PlaybackWindow::onDaySearched() {
    const int row = std::max(0, m_timeBar->selectedRow());
    m_timeBar->setChannels(m_session->results());
    if (row < int(m_session->results().size()))
        m_timeBar->selectChannel(m_session->results()[size_t(row)].channel);
    onRowSelected();
}

void PlaybackWindow::onRowSelected() {
    const int row = m_timeBar->selectedRow();
    const auto& channels = m_timeBar->channels();
    m_details->setChannel(row >= 0 && row < int(channels.size()) ? channels[size_t(row)]
                                                                 : RecordChannel());
    refreshThumbnails();
}

void PlaybackWindow::onSegmentChosen() {
    const RecordSegment* s = m_details->selectedSegment();
    if (s == nullptr)
        return;
    m_timeBar->setCursorTime(s->start);
    if (m_session->isPlaying())
        m_session->seek(s->start);
    else
        playFrom(s->start);
}

void PlaybackWindow::onMonthSearched() {
    m_panel->setMarkedDays(m_session->markedMonth(), m_session->markedDays());
}

void PlaybackWindow::onProgressed() {
    m_timeBar->setCursorTime(m_session->playbackTime());
    m_screen->setTime(m_session->playbackTime());
}

void PlaybackWindow::onExportChanged() {
    switch (m_session->exportState()) {
    case PlaybackSession::ExportState::Running:
        showStatus(TextId::Playback::Exporting, m_session->exportPercent());
        break;
    case PlaybackSession::ExportState::Done:
        showStatus(TextId::Playback::Exported);
        break;
    case PlaybackSession::ExportState::Failed: {
        const uint32_t why = m_session->exportFailure();
        showStatus(why == PlaybackStatus::kNoDevice  ? TextId::Playback::NoUsbDevice
                   : why == PlaybackStatus::kNoSpace ? TextId::Playback::UsbFull
                                                     : TextId::Playback::ExportCancelled);
        break;
    }
    case PlaybackSession::ExportState::Idle:
        break;
    }
    layoutChildren();
}

void PlaybackWindow::onClipChanged() {
    m_backupBar->setClip(m_timeBar->clipStart(), m_timeBar->clipEnd());
}

void PlaybackWindow::onMonthShown() {
    m_session->searchMonth(m_panel->shownMonth(), m_panel->checkedChannels());
}

void PlaybackWindow::showStatus(uint32_t textId, int percent) {
    m_statusId = textId;
    m_statusPercent = percent;
    const VyString text = VyTranslation::tr(textId);
    const bool running = m_session->exportState() == PlaybackSession::ExportState::Running;
    m_backupBar->setExport(running, std::max(0, m_session->exportPercent()),
                           percent >= 0 ? text.arg(percent) : text);
}

void PlaybackWindow::retranslate() {
    if (m_statusId != 0)
        showStatus(m_statusId, m_statusPercent);
    m_zoom[0]->setText(VyTranslation::tr(TextId::Playback::HoursSpan).arg(24));
    m_zoom[1]->setText(VyTranslation::tr(TextId::Playback::HoursSpan).arg(2));
    m_zoom[2]->setText(VyTranslation::tr(TextId::Playback::HoursSpan).arg(1));
    m_zoom[3]->setText(VyTranslation::tr(TextId::Playback::MinutesSpan).arg(30));
}

uint32_t PlaybackWindow::zoomSpan() const {
    for (int i = 3; i >= 0; --i) {
        if (m_zoom[i]->isChecked())
            return RecordTimeBar::kSpans[i];
    }
    return 0;
}

void PlaybackWindow::onZoomClicked() {
    const uint32_t span = zoomSpan();
    if (span != 0)
        m_timeBar->setSpan(span);
    refreshThumbnails();
}

void PlaybackWindow::onWheelZoomed() {
    for (int i = 0; i < 4; ++i)
        m_zoom[i]->setChecked(RecordTimeBar::kSpans[i] == m_timeBar->span());
    refreshThumbnails();
}

void PlaybackWindow::onTypeFilterChanged() {
    m_timeBar->setTypeFilter(m_panel->typeFilter());
}

void PlaybackWindow::onMotionSearch() {
    m_session->searchMotion(m_motion->channel(), m_panel->date(), m_motion->areaFlags());
}

void PlaybackWindow::onCancelExport() {
    m_session->cancelExport();
}

void PlaybackWindow::onCellSelected() {
    const int cell = m_screen->selectedCell();
    const auto& channels = m_screen->channels();
    if (cell >= 0 && cell < int(channels.size()))
        m_timeBar->selectChannel(channels[size_t(cell)]);
}

void PlaybackWindow::keyPressEvent(VyKeyEvent* e) {
    if (e->key() == VyKeyEvent::KeyEscape) {
        e->accept();
        closeWindow();
        return;
    }
    e->ignore();
}

void PlaybackWindow::resizeEvent(VyResizeEvent*) {
    layoutChildren();
}

void PlaybackWindow::layoutChildren() {
    const int panel = m_fullScreen ? 0 : UiLook::scaledX(kPanelWidthDesign);
    const int bar = m_fullScreen ? 0 : UiLook::scaledY(kTimeBarHeightDesign);
    const int controls = UiLook::scaledY(kControlBarDesign);
    const bool thumbnails = !m_fullScreen && m_controls[Thumbnails]->isChecked();
    const int strip = thumbnails ? UiLook::scaledY(ThumbnailBar::kHeightDesign) : 0;
    const int videoWidth = width() - panel;
    const int videoHeight = std::max(0, height() - bar - controls - strip);
    m_screen->setGeometry(0, 0, videoWidth, videoHeight);
    m_thumbnailBar->setGeometry(0, videoHeight + controls, videoWidth, strip);
    m_thumbnailBar->setVisible(thumbnails);
    const bool motion = m_controls[MotionSearch]->isChecked();
    const bool tags = m_controls[Tags]->isChecked();
    m_tags->setGeometry(videoWidth, 0, panel, height());
    m_tags->setVisible(!m_fullScreen && tags);
    m_panel->setVisible(!m_fullScreen && !motion && !tags);
    m_motion->setGeometry(videoWidth, 0, panel, panel * 9 / 16 + UiLook::scaledY(80));
    m_motion->setVisible(!m_fullScreen && motion);
    const int top = motion ? m_motion->height() : std::min(height(), m_panel->contentHeight());
    m_panel->setGeometry(videoWidth, 0, panel, top);
    m_details->setGeometry(videoWidth, top, panel, std::max(0, height() - top));
    m_details->setVisible(!m_fullScreen && !tags);
    // The backup tool bar takes the top of the time bar's place in clip mode and while an
    // export runs.
    const bool backup =
        !m_fullScreen && (m_timeBar->clipMode() ||
                          m_session->exportState() == PlaybackSession::ExportState::Running);
    const int backupStrip = backup ? UiLook::scaledY(kBackupBarDesign) : 0;
    m_backupBar->setGeometry(0, height() - bar, videoWidth, backupStrip);
    m_backupBar->setVisible(backup);
    m_timeBar->setGeometry(0, height() - bar + backupStrip, videoWidth, bar - backupStrip);
    m_timeBar->setVisible(!m_fullScreen);
    const int button = UiLook::scaledY(kButtonDesign);
    const int gap = UiLook::scaledX(6);
    const int y = videoHeight + (controls - button) / 2;
    int x = gap;
    for (int c = 0; c < ControlCount; ++c) {
        if (c == Backup) // on the backup tool bar
            continue;
        m_controls[c]->setGeometry(x, y, button, button);
        x += button + gap;
    }
    m_speed->setGeometry(x, y, UiLook::scaledX(70), button);
    const int zoomWidth = UiLook::scaledX(130);
    for (int i = 0; i < 4; ++i)
        m_zoom[i]->setGeometry(videoWidth - (4 - i) * (zoomWidth + gap), y, zoomWidth, button);
    // App draws the playing pictures where the cells were: tell it where they are now.
    m_session->moveCells(cellsOnScreen(),
                         uint32_t(PlaybackSplit::layoutIdFor(int(m_screen->channels().size()))));
}

void PlaybackWindow::paintEvent(VyPaintEvent*) {
    VyCanvas* c = canvas();
    // The video area is the screen's to paint: its cells may be see-through.
    for (const VyRect& r : VyRegion(rect()).subtracted(m_screen->geometry()).rects())
        c->fillRect(r, m_background);
    const VyRect bar(0, m_screen->height(), m_screen->width(), UiLook::scaledY(kControlBarDesign));
    c->fillRect(bar, m_controlBar);
    c->drawLine(bar.left, bar.top, bar.right, bar.top, m_controlBorder);
}

VyProgressBar* PlaybackWindow::exportProgress() const {
    return m_backupBar->progress();
}

VyPushButton* PlaybackWindow::cancelButton() const {
    return m_backupBar->cancelButton();
}

VyLabel* PlaybackWindow::statusLabel() const {
    return m_backupBar->statusLabel();
}
