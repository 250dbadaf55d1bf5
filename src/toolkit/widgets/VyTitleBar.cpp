#include "toolkit/widgets/VyTitleBar.h"

#include <algorithm>

#include "runtime/VyIniSettings.h"
#include "runtime/VyResources.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/events/VyMouseEvent.h"
#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/style/VyStyle.h"

namespace {

vyargb colourOr(const VyIniSettings& ini, const char* key, vyargb fallback) {
    const VyColor c = ini.color(key);
    return c.isValid() && !ini.value(key).isEmpty() ? c.argb() : fallback;
}

} // namespace

VyTitleBar::VyTitleBar(VyWidget* parent)
    : VyWidget(parent) {
    setAttribute(MouseTracking);
    const VyIniSettings ini(VyResources::path(kStyleFile));
    m_background = colourOr(ini, "WndTitleBar/Background", m_background);
    m_foreground = colourOr(ini, "WndTitleBar/Foreground", m_foreground);
    m_border = colourOr(ini, "WndTitleBar/Border", m_border);
    m_closeHover = colourOr(ini, "WndTitleBar/CloseButton/Hover", m_closeHover);
    VyStyle* style = VyStyle::instance();
    m_closeImage = style->imageForScale("images/titlebar-close.png", style->horizontalScale());
}

VyTitleBar::~VyTitleBar() = default;

void VyTitleBar::setTitle(const VyString& title) {
    m_title = title;
    update();
}

void VyTitleBar::setCloseButtonVisible(bool visible) {
    m_closeVisible = visible;
    update();
}

VyRect VyTitleBar::closeButtonRect() const {
    if (!m_closeVisible)
        return VyRect();
    const int side = height();
    return VyRect(width() - side, 0, side, side);
}

VySize VyTitleBar::sizeHint() const {
    return VySize(VyStyle::instance()->scaled(300),
                  VyStyle::instance()->scaledHeight(kHeightDesign));
}

void VyTitleBar::paintEvent(VyPaintEvent*) {
    VyCanvas* c = canvas();
    const VyStyle* style = VyStyle::instance();
    c->fillRect(rect(), m_background);
    c->fillRect(VyRect(0, height() - 1, width(), 1), m_border);
    const int pad = style->scaled(24);
    const VyRect close = closeButtonRect();
    const int right = close.isEmpty() ? width() - pad : close.left - pad / 2;
    const int px = VyStyle::fontSize(style->option().get<VyLabelOption>().font, 0);
    if (!m_title.isEmpty())
        c->drawText(VyRect::fromEdges(pad, 0, right, height() - 2),
                    VyCanvas::AlignLeft | VyCanvas::AlignVCenter, m_title, px, m_foreground);
    if (close.isEmpty())
        return;
    if (m_closeHovered || m_closePressed)
        c->fillRect(VyRect::fromEdges(close.left, close.top, close.right, close.bottom - 1),
                    m_closeHover);
    if (!m_closeImage.isNull()) {
        c->drawImage(close.left + (close.width() - m_closeImage.width()) / 2,
                     close.top + (close.height() - m_closeImage.height()) / 2, m_closeImage);
    } else {
        // The image is missing: a drawn cross stands in.
        const int d = close.width() / 3;
        c->drawLine(close.left + d, close.top + d, close.right - d, close.bottom - d, m_foreground);
        c->drawLine(close.right - d, close.top + d, close.left + d, close.bottom - d, m_foreground);
    }
}

void VyTitleBar::mousePressEvent(VyMouseEvent* e) {
    if (e->button() != VyMouseEvent::LeftButton) {
        e->ignore();
        return;
    }
    e->accept();
    if (closeButtonRect().contains(e->pos())) {
        m_closePressed = true;
        update();
        return;
    }
    if (!m_movable || !window())
        return;
    m_dragging = true;
    m_dragFrom = e->globalPos();
    m_windowFrom = VyPoint(window()->geometry().left, window()->geometry().top);
}

void VyTitleBar::mouseMoveEvent(VyMouseEvent* e) {
    e->accept();
    const bool over = closeButtonRect().contains(e->pos());
    if (over != m_closeHovered) {
        m_closeHovered = over;
        update(closeButtonRect());
    }
    if (!m_dragging)
        return;
    VyWidget* win = window();
    VyApplication* app = VyApplication::instance();
    if (!win || !app || !app->screen())
        return;
    // The title bar stays on the screen, so the window can always be dragged back.
    const int x = std::max(0, std::min(m_windowFrom.x + e->globalPos().x - m_dragFrom.x,
                                       app->screen()->width() - win->width()));
    const int y = std::max(0, std::min(m_windowFrom.y + e->globalPos().y - m_dragFrom.y,
                                       app->screen()->height() - height()));
    win->move(x, y);
}

void VyTitleBar::mouseReleaseEvent(VyMouseEvent* e) {
    if (e->button() != VyMouseEvent::LeftButton) {
        e->ignore();
        return;
    }
    e->accept();
    m_dragging = false;
    if (!m_closePressed)
        return;
    m_closePressed = false;
    update();
    if (closeButtonRect().contains(e->pos()))
        emitSignal(this, &closeClicked);
}

void VyTitleBar::hoverLeaveEvent(VyHoverEvent*) {
    if (m_closeHovered) {
        m_closeHovered = false;
        update();
    }
}
