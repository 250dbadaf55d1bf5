// The live screen's pointer hooks: selection and the tool bar on release, the right click,
// single view on a double click, press and hold, and dragging a cell onto another.
#include "ui/liveview/VyVideoScreen.h"

#include "model/MainViewManager.h"
#include "protocol/ChannelStateNotice.h"
#include "runtime/VyByteArray.h"
#include "toolkit/core/VyDrag.h"
#include "toolkit/events/VyDragEnterEvent.h"
#include "toolkit/events/VyDragMoveEvent.h"
#include "toolkit/events/VyDropEvent.h"
#include "toolkit/events/VyMimeData.h"
#include "toolkit/events/VyMouseEvent.h"
#include "toolkit/events/VyTimerEvent.h"
#include "toolkit/style/VyStyle.h"
#include "ui/UiLook.h"
#include "ui/liveview/MainViewVideo.h"
#include "ui/liveview/VideoLayout.h"
#include "ui/liveview/VideoToolBar.h"

#include <cstdlib>

namespace {

bool keepsToolBar(const ChannelState& s) {
    return s.kind == ChannelStateNotice::kKindFisheye &&
           (s.subMode == ChannelStateNotice::kSubModeDewarp ||
            s.subMode == ChannelStateNotice::kSubModePanorama);
}

} // namespace

void VyVideoScreen::stopHold() {
    if (m_holdTimer != 0)
        killTimer(m_holdTimer);
    m_holdTimer = 0;
    m_holdTicks = 0;
    m_held.reset();
}

void VyVideoScreen::cellPressed(int button, Video* cell, VyPoint pos) {
    m_pressPos = cell->geometry().topLeft() + pos;
    m_dragging = false;
    stopHold();
    if (button == VyMouseEvent::LeftButton && (m_flags & kPressAndHold) != 0) {
        m_held.reset(static_cast<MainViewVideo*>(cell));
        m_holdTimer = startTimer(kHoldTickMs);
    }
}

void VyVideoScreen::cellMoved(int buttons, Video* cell, VyPoint pos) {
    if ((buttons & VyMouseEvent::LeftButton) == 0 || m_dragging)
        return;
    const VyPoint at = cell->geometry().topLeft() + pos;
    const int distance = std::abs(at.x - m_pressPos.x) + std::abs(at.y - m_pressPos.y);
    if (distance < UiLook::scaledX(kDragDistancePx))
        return;
    auto* mcell = static_cast<MainViewVideo*>(cell);
    if (isSingleView() || mcell->channel() == Video::kNoChannel || mcell->isExclusive())
        return;
    stopHold();
    startDrag(mcell);
}

void VyVideoScreen::startDrag(MainViewVideo* cell) {
    // A drag is a plain object, which a deferred delete leaves alone: the screen keeps the
    // last one until the next begins or the screen goes, so at most one is ever held.
    m_drag.reset();
    m_dragging = true;
    m_drag = std::make_unique<VyDrag>();
    const VyString position = VyString::number(positionOf(cell));
    m_drag->setMimeData(
        VyMimeData(VyString(kDragType), VyByteArray(position.c_str(), int(position.size()))));
    m_drag->setImage(VyStyle::instance()->image(VyString(kDragImage)));
    if (!m_drag->start(VyDropEvent::MoveAction))
        m_drag.reset();
}

void VyVideoScreen::dragEnterEvent(VyDragEnterEvent* e) {
    if (e->mimeData() && e->mimeData()->hasType(VyString(kDragType)))
        e->accept();
    else
        e->ignore();
}

void VyVideoScreen::dragMoveEvent(VyDragMoveEvent* e) {
    if (cellAt(e->pos()) != nullptr)
        e->accept();
    else
        e->ignore();
}

void VyVideoScreen::dropEvent(VyDropEvent* e) {
    m_dragging = false;
    if (!e->mimeData() || !e->mimeData()->hasType(VyString(kDragType)))
        return;
    const VyByteArray& bytes = e->mimeData()->data();
    const int from = std::atoi(VyString(bytes.constData(), bytes.size()).c_str());
    Video* target = cellAt(e->pos());
    const int to = positionOf(target);
    if (target == nullptr || to < 0 || from == to)
        return;
    e->accept();
    swapChannels(from, to);
}

void VyVideoScreen::cellReleased(int button, Video* cell, VyPoint) {
    auto* mcell = static_cast<MainViewVideo*>(cell);
    const bool wasHeldEnlarged = !m_holdEnlarged.isNull() && m_holdEnlarged.data() == mcell;
    stopHold();
    if (wasHeldEnlarged) {
        // The hold showed the cell alone; letting go brings the chosen layout back.
        m_holdEnlarged.reset();
        toggleSingleView();
        return;
    }
    m_holdEnlarged.reset();
    MainViewManager* manager = MainViewManager::instance();
    const bool pickMode = manager != nullptr && manager->isPickMode();
    if (button == VyMouseEvent::RightButton) {
        if (pickMode)
            manager->pickChannel(mcell->channel());
        m_rightClicked.reset(mcell);
        emitSignal(this, &rightClicked);
        return;
    }
    if (pickMode || selectedIsExclusive())
        return;
    if (mcell != m_selected.data()) {
        selectCell(mcell);
        if (mcell == m_selected.data())
            showToolBar(mcell);
        return;
    }
    // A fisheye view keeps the bar; otherwise it needs a known camera channel that has one.
    const ChannelState& s = mcell->channelState();
    const bool hide =
        !keepsToolBar(s) && (!mcell->hasChannelInfo() ||
                             s.kind != ChannelStateNotice::kKindCamera || mcell->noToolBar());
    if (hide)
        hideToolBar();
    else
        showToolBar(mcell);
}

void VyVideoScreen::cellDoubleClicked(int button, Video* cell, VyPoint) {
    if (button == VyMouseEvent::RightButton)
        return;
    auto* mcell = static_cast<MainViewVideo*>(cell);
    if (!mcell->hasCamera() && !isSingleView())
        return;
    if (mcell->noToolBar())
        return;
    hideToolBar();
    if (selectedIsExclusive())
        return;
    selectCell(mcell);
    toggleSingleView();
    if (m_inFront)
        showToolBar(m_selected.data());
}

void VyVideoScreen::timerEvent(VyTimerEvent* e) {
    if (e->timerId() != m_holdTimer || m_holdTimer == 0) {
        VideoScreenBase::timerEvent(e);
        return;
    }
    if (++m_holdTicks < kHoldEnlargeTicks)
        return;
    MainViewVideo* held = m_held.data();
    stopHold();
    if (held == nullptr || isSingleView() || !held->hasCamera() || selectedIsExclusive())
        return;
    selectCell(held);
    toggleSingleView();
    m_holdEnlarged.reset(held);
}

bool VyVideoScreen::keyAction(uint32_t deviceKey) {
    const auto& items = videoLayout()->items();
    switch (deviceKey) {
    case KeyPreviousPage:
        previousPage();
        return true;
    case KeyNextPage:
        nextPage();
        return true;
    case KeyPreviousCell:
    case KeyNextCell: {
        if (items.empty())
            return false;
        int at = 0;
        for (size_t i = 0; i < items.size(); ++i)
            if (items[i].cell == m_selected.data())
                at = int(i);
        const int n = int(items.size());
        at = (at + (deviceKey == KeyNextCell ? 1 : n - 1)) % n;
        selectCell(static_cast<MainViewVideo*>(items[size_t(at)].cell));
        if (m_toolBar->isVisible())
            showToolBar(m_selected.data());
        return true;
    }
    case KeyEnlarge:
        toggleSingleView();
        return true;
    case KeyToolBar:
        if (m_toolBar->isVisible())
            hideToolBar();
        else
            showToolBar(m_selected.data());
        return true;
    default:
        return false;
    }
}
