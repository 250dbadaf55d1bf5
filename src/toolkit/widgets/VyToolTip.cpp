#include "toolkit/widgets/VyToolTip.h"

#include <algorithm>

#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/events/VyEvent.h"
#include "toolkit/events/VyTimerEvent.h"
#include "toolkit/style/VyStyle.h"

VyToolTip::VyToolTip()
    : VyWidget(nullptr, Window) {
    setObjectName("VyToolTip");
    // The tip lies over whatever is under the pointer; it must not become the hover widget
    // itself, or showing it would hide it again.
    setAttribute(TransparentForMouse);
    setFocusPolicy(NoFocus);
}

VyToolTip::~VyToolTip() {
    if (m_timer)
        killTimer(m_timer);
    for (auto& entry : m_texts) {
        entry.first->removeEventFilter(this);
        disconnect(entry.first, &entry.first->destroyed, this,
                   VY_SLOT(VyToolTip, watchedDestroyed));
    }
}

void VyToolTip::setToolTip(VyWidget* widget, const VyString& text) {
    if (!widget)
        return;
    auto it = m_texts.find(widget);
    if (text.isEmpty()) {
        if (it == m_texts.end())
            return;
        widget->removeEventFilter(this);
        disconnect(widget, &widget->destroyed, this, VY_SLOT(VyToolTip, watchedDestroyed));
        m_texts.erase(it);
        if (m_current == widget)
            hideTip();
        return;
    }
    if (it == m_texts.end()) {
        widget->installEventFilter(this);
        connect(widget, &widget->destroyed, this, VY_SLOT(VyToolTip, watchedDestroyed));
    }
    m_texts[widget] = Entry{text, widget};
}

VyString VyToolTip::toolTip(VyWidget* widget) const {
    auto it = m_texts.find(widget);
    return it == m_texts.end() ? VyString() : it->second.text;
}

void VyToolTip::watchedDestroyed(VyObject* sender) {
    // The sender is being destroyed and is no VyWidget any more: compare addresses only.
    for (auto it = m_texts.begin(); it != m_texts.end(); ++it) {
        if (it->second.object != sender)
            continue;
        const bool current = m_current == it->first;
        m_texts.erase(it);
        if (current)
            hideTip();
        return;
    }
}

bool VyToolTip::eventFilter(VyObject* watched, VyEvent* e) {
    auto* widget = static_cast<VyWidget*>(watched);
    switch (e->type()) {
    case VyEvent::HoverEnter:
        if (m_texts.count(widget)) {
            hideTip();
            m_current = widget;
            m_timer = startTimer(kShowDelayMs);
        }
        break;
    case VyEvent::HoverLeave:
    case VyEvent::Leave:
    case VyEvent::MouseButtonPress:
    case VyEvent::Wheel:
    case VyEvent::KeyPress:
    case VyEvent::Hide:
        if (m_current == widget)
            hideTip();
        break;
    default:
        break;
    }
    return false; // the widget still gets every event
}

void VyToolTip::timerEvent(VyTimerEvent* e) {
    if (!m_timer || e->timerId() != m_timer)
        return;
    killTimer(m_timer);
    m_timer = 0;
    showTip();
}

void VyToolTip::showTip() {
    VyApplication* app = VyApplication::instance();
    if (!m_current || !app || !m_current->isVisibleOnScreen())
        return;
    VyStyle* style = VyStyle::instance();
    m_lines = VyStringList();
    m_lines.append(toolTip(m_current));
    VySize size = style->toolTipSize(m_lines);
    const VyScreen* screen = app->screen();
    const int screenW = screen ? screen->width() : size.width;
    const int screenH = screen ? screen->height() : size.height;
    size.width = std::min(size.width, screenW);
    // Below and right of the pointer, moved back onto the screen when it would leave it, and
    // above the pointer when there is no room below.
    const VyPoint at = app->lastMousePos();
    const int gap = style->scaledHeight(kPointerGapDesign);
    int x = std::min(at.x, screenW - size.width);
    int y = at.y + gap;
    if (y + size.height > screenH)
        y = at.y - size.height - gap / 4;
    setGeometry(std::max(0, x), std::max(0, y), size.width, size.height);
    show();
    raise();
    update();
}

void VyToolTip::hideTip() {
    if (m_timer) {
        killTimer(m_timer);
        m_timer = 0;
    }
    m_current = nullptr;
    if (isVisible())
        hide();
}

void VyToolTip::paintEvent(VyPaintEvent*) {
    VyStyle::instance()->drawToolTip(canvas(), rect(), m_lines);
}
