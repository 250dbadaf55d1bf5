#include "ui/liveview/VideoToolBar.h"

#include "model/UserAccess.h"

#include "protocol/ChannelStateNotice.h"
#include "toolkit/events/VyPaintEvent.h"
#include "toolkit/graphics/VyCanvas.h"
#include "ui/UiLook.h"
#include "ui/liveview/ImageButton.h"
#include "ui/liveview/LiveViewLook.h"
#include "ui/liveview/MainViewVideo.h"

#include <algorithm>

namespace {

constexpr int kDesignButtonPx = 32;
constexpr int kPaddingPx = 4;

const char* const kImages[VideoToolBar::ActionCount] = {
    "images/record.png",   "images/snap.png",       "images/playback.png",
    "images/ptz.png",      "images/zoom.png",       "images/color.png",
    "images/hd.png",       "images/fisheye.png",    "images/binocular.png",
    "images/pairing3.png", "images/light.png",      "images/speaker.png",
    "images/talkback.png", "images/custom-tag.png", "images/ai-statistics.png",
    "images/volume.png",   "images/alarm.png",      "images/close.png",
};

// Offered on every camera channel; the rest only by cameras that have the feature.
bool always(VideoToolBar::Action a) {
    switch (a) {
    case VideoToolBar::Record:
    case VideoToolBar::Snapshot:
    case VideoToolBar::Playback:
    case VideoToolBar::Ptz:
    case VideoToolBar::Zoom:
    case VideoToolBar::Colour:
    case VideoToolBar::Stream:
    case VideoToolBar::TalkBack:
    case VideoToolBar::Volume:
    case VideoToolBar::Close:
        return true;
    default:
        return false;
    }
}

} // namespace

VideoToolBar::VideoToolBar(VyWidget* parent)
    : VyWidget(parent) {
    for (int a = 0; a < ActionCount; ++a) {
        auto* b = new ImageButton(VyString(kImages[a]), this);
        connect(b, &b->clicked, this, &VideoToolBar::clickedSlot);
        m_buttons.push_back(b);
    }
    button(Playback)->setEnabled(kPlaybackAvailable);
}

void VideoToolBar::clickedSlot(VyObject* sender, VyObject* receiver) {
    static_cast<VideoToolBar*>(receiver)->onClicked(sender);
}

void VideoToolBar::onClicked(VyObject* sender) {
    for (size_t i = 0; i < m_buttons.size(); ++i) {
        if (m_buttons[i] == sender) {
            m_lastAction = Action(i);
            emitSignal(this, &actionTriggered);
            return;
        }
    }
}

int VideoToolBar::buttonSize() {
    return UiLook::scaledY(kDesignButtonPx);
}

void VideoToolBar::setRecording(bool on) {
    button(Record)->setImages(VyString(on ? "images/record-on.png" : "images/record.png"));
}

void VideoToolBar::setMainStream(bool on) {
    button(Stream)->setImages(VyString(on ? "images/hd.png" : "images/sd.png"));
}

void VideoToolBar::setMuted(bool muted) {
    button(Volume)->setImages(VyString(muted ? "images/mute.png" : "images/volume.png"));
}

void VideoToolBar::setTalkChannel(int channel) {
    m_talkChannel = channel;
    showTalking();
}

void VideoToolBar::showTalking() {
    const MainViewVideo* cell = m_cell.data();
    m_talking = m_talkChannel >= 0 && cell != nullptr && cell->channel() == m_talkChannel;
    button(TalkBack)->setImages(
        VyString(m_talking ? "images/talkback-on.png" : "images/talkback.png"));
}

void VideoToolBar::attachTo(MainViewVideo* cell) {
    m_cell.reset(cell);
    if (cell == nullptr)
        return;
    const ChannelState& s = cell->channelState();
    for (int a = 0; a < ActionCount; ++a) {
        bool offered = always(Action(a));
        if (Action(a) == Fisheye)
            offered = s.kind == ChannelStateNotice::kKindFisheye;
        m_buttons[size_t(a)]->setVisible(offered);
    }
    setRecording(s.has(ChannelStateNotice::kManualRecord));
    if (const UserAccess* users = UserAccess::instance()) {
        const int ch = cell->channel();
        button(Ptz)->setEnabled(users->offers(UserRights::kPtz, ch));
        button(Playback)->setEnabled(kPlaybackAvailable &&
                                     users->offers(UserRights::kPlayback, ch));
    }
    showTalking();
    arrange();
}

void VideoToolBar::arrange() {
    const int size = buttonSize();
    const int pad = UiLook::scaledX(kPaddingPx);
    int x = pad;
    for (ImageButton* b : m_buttons) {
        if (!b->isVisible())
            continue;
        b->setGeometry(x, pad, size, size);
        x += size;
    }
    const int w = x + pad;
    const int h = size + 2 * pad;
    MainViewVideo* cell = m_cell.data();
    VyWidget* p = parentWidget();
    if (cell == nullptr || p == nullptr)
        return;
    // The cell's rectangle in the bar's parent.
    VyRect g = cell->geometry();
    for (VyWidget* up = cell->parentWidget(); up != nullptr && up != p; up = up->parentWidget())
        g = g.translated(up->geometry().topLeft());
    // Along the lower part of the cell, centred on it, kept inside the screen.
    int left = g.left + (g.width() - w) / 2;
    int top = g.bottom - h - UiLook::scaledY(2 * kPaddingPx) - UiLook::scaledY(24);
    if (top < g.top + h)
        top = g.top + (g.height() - h) / 2;
    left = std::clamp(left, 0, std::max(0, p->width() - w));
    top = std::clamp(top, 0, std::max(0, p->height() - m_bottomReserve - h));
    setGeometry(left, top, w, h);
}

void VideoToolBar::paintEvent(VyPaintEvent*) {
    VyCanvas* c = canvas();
    if (c == nullptr)
        return;
    const LiveViewLook& look = LiveViewLook::instance();
    c->fillRect(rect(), LiveViewLook::opaque(look.toolBarBackground));
    c->setPenWidth(1);
    c->drawRect(rect(), LiveViewLook::opaque(look.toolBarBorder));
}
