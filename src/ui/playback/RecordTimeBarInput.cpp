#include "ui/playback/RecordTimeBar.h"

#include "runtime/VyBitmap.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VyScreenCursor.h"
#include "toolkit/events/VyKeyEvent.h"
#include "toolkit/events/VyMouseEvent.h"
#include "toolkit/events/VyWheelEvent.h"
#include "toolkit/style/VyStyle.h"

#include <algorithm>
#include <chrono>

namespace {

VyScreenCursor* screenCursor() {
    VyApplication* app = VyApplication::instance();
    VyScreen* screen = app != nullptr ? app->screen() : nullptr;
    return screen != nullptr ? screen->cursor() : nullptr;
}

long long monotonicMs() {
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

} // namespace

void RecordTimeBar::mousePressEvent(VyMouseEvent* e) {
    if (e->button() != VyMouseEvent::LeftButton) {
        e->ignore();
        return;
    }
    e->accept();
    m_pressPos = e->pos();
    m_pressMs = monotonicMs();
    const int x = e->x();
    const int y = e->y();

    if (m_navVisible) {
        if (previousButtonRect().contains(x, y)) {
            showPrevious();
            return;
        }
        if (nextButtonRect().contains(x, y)) {
            showNext();
            return;
        }
    }
    if (m_clipMode && m_clipStart.isValid() && m_clipEnd.isValid()) {
        if (clipGrabBox(timeToX(m_clipEnd)).contains(x, y)) {
            m_movingClipEnd = true;
            beginDrag(Drag::ClipEnd);
            return;
        }
        if (clipGrabBox(timeToX(m_clipStart)).contains(x, y)) {
            m_movingClipStart = true;
            beginDrag(Drag::ClipStart);
            return;
        }
    }
    if (m_channels.empty())
        return;
    const int pageRow = rowAt(y);
    if (pageRow < 0)
        return;
    const VyRect track = rowTrack(pageRow);
    if (x >= track.left && x <= track.right && y >= track.top && y <= track.bottom) {
        m_cursor = clampToRange(xToTime(x));
        if (m_clipMode) {
            m_pendingClipTime = m_cursor;
            m_pressedRow = m_firstRow + pageRow;
            // Without the tool bar's buttons, two presses mark a clip: start, then end.
            if (!m_clipStart.isValid()) {
                m_clipStart = m_cursor;
            } else if (!m_clipEnd.isValid()) {
                setClipRange(m_clipStart, m_cursor);
                emitSignal(this, &clipChanged);
            }
        }
        emitSignal(this, &positionChosen);
        beginDrag(Drag::Cursor);
        update();
        return;
    }
    if (x < m_leftMargin && m_channels.size() > 1) {
        const int row = m_firstRow + pageRow;
        if (row == m_selectedRow)
            return;
        if (m_features.busyCheck && m_busyProbe && m_busyProbe())
            return;
        m_selectedRow = row;
        emitSignal(this, &channelSelected);
        update();
    }
}

void RecordTimeBar::beginDrag(Drag drag) {
    m_drag = drag;
}

void RecordTimeBar::dragTo(int x) {
    const VyRect track = trackRect();
    const int clampedX = std::max(track.left, std::min(x, track.left + track.width() - 1));
    const VyDateTime t = clampToRange(xToTime(clampedX));
    switch (m_drag) {
    case Drag::Cursor:
        m_cursor = t;
        break;
    case Drag::ClipStart:
        m_clipStart = t > m_clipEnd ? m_clipEnd : t;
        break;
    case Drag::ClipEnd:
        m_clipEnd = t < m_clipStart ? m_clipStart : t;
        break;
    case Drag::None:
        return;
    }
    update();
}

void RecordTimeBar::mouseMoveEvent(VyMouseEvent* e) {
    if (m_drag == Drag::None) {
        e->ignore();
        return;
    }
    e->accept();
    if (e->pos() == m_pressPos)
        return;
    if (VyScreenCursor* cursor = screenCursor()) {
        const VyBitmap drop = VyStyle::instance()->image(kDropCursorImage);
        if (!drop.isNull())
            cursor->setImage(drop, VyPoint(0, 0));
    }
    dragTo(e->x());
}

void RecordTimeBar::endDrag() {
    if (VyScreenCursor* cursor = screenCursor())
        cursor->setShape(cursorShape());
    m_drag = Drag::None;
    m_movingClipStart = false;
    m_movingClipEnd = false;
}

void RecordTimeBar::mouseReleaseEvent(VyMouseEvent* e) {
    if (e->button() != VyMouseEvent::LeftButton || m_drag == Drag::None) {
        e->ignore();
        return;
    }
    e->accept();
    const Drag drag = m_drag;
    const bool moved = e->pos() != m_pressPos;
    if (moved)
        dragTo(e->x());
    endDrag();
    if (!moved)
        return;
    if (drag == Drag::Cursor)
        emitSignal(this, &positionChosen);
    else
        emitSignal(this, &clipChanged);
}

void RecordTimeBar::wheelEvent(VyWheelEvent* e) {
    e->accept();
    int level = 0;
    while (level < 3 && kSpans[level] > m_span)
        ++level;
    const int next = std::max(0, std::min(3, level + (e->delta() > 0 ? 1 : -1)));
    if (kSpans[next] == m_span)
        return;
    // The time under the pointer stays under it.
    const VyRect track = trackRect();
    const int x = std::max(track.left, std::min(e->pos().x, track.left + track.width() - 1));
    const VyDateTime anchor = xToTime(x);
    setSpan(kSpans[next]);
    m_recentrePending = false;
    setOriginClamped(anchor.addSecs(-(long long)(float(x - track.left) * m_secondsPerPixel)));
    emitSignal(this, &spanChanged);
    update();
}

void RecordTimeBar::moveCursorBy(long long seconds) {
    m_cursor = clampToRange(m_cursor.addSecs(seconds));
    if (m_cursor < m_origin || m_cursor >= viewEnd())
        setOriginClamped(m_cursor.addSecs(-(long long)(m_span / 2)));
    emitSignal(this, &positionChosen);
    update();
}

void RecordTimeBar::changeRow(int delta) {
    if (m_channels.empty())
        return;
    const int row = std::max(0, std::min(int(m_channels.size()) - 1, m_selectedRow + delta));
    if (row == m_selectedRow)
        return;
    if (m_features.busyCheck && m_busyProbe && m_busyProbe())
        return;
    m_selectedRow = row;
    scrollToRow(row);
    emitSignal(this, &channelSelected);
    update();
}

void RecordTimeBar::keyPressEvent(VyKeyEvent* e) {
    switch (e->key()) {
    case VyKeyEvent::KeyLeft:
        moveCursorBy(-(long long)m_secsPerMinor);
        break;
    case VyKeyEvent::KeyRight:
        moveCursorBy(m_secsPerMinor);
        break;
    case VyKeyEvent::KeyUp:
        changeRow(-1);
        break;
    case VyKeyEvent::KeyDown:
        changeRow(1);
        break;
    case VyKeyEvent::KeyOk:
        emitSignal(this, &playRequested);
        break;
    default:
        e->ignore();
        return;
    }
    e->accept();
}
