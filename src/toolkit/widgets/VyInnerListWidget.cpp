#include "toolkit/widgets/VyInnerListWidget.h"

#include <algorithm>

#include "toolkit/events/VyCloseEvent.h"
#include "toolkit/events/VyKeyEvent.h"
#include "toolkit/events/VyMouseEvent.h"
#include "toolkit/events/VyWheelEvent.h"
#include "toolkit/style/VyStyle.h"
#include "toolkit/widgets/VyScrollBar.h"

namespace {
constexpr int kWheelRows = 3;
} // namespace

VyInnerListWidget::VyInnerListWidget(VyWidget* parent)
    : VyWidget(parent, Popup)
    , m_scrollBar(new VyScrollBar(VyAbstractSlider::Vertical, this)) {
    setFocusPolicy(StrongFocus);
    setAttribute(MouseTracking);
    connect(m_scrollBar, &m_scrollBar->valueChanged, this,
            VY_SLOT(VyInnerListWidget, scrollBarMoved));
}

VyInnerListWidget::~VyInnerListWidget() = default;

void VyInnerListWidget::setItems(const VyStringList& items) {
    m_items = items;
    m_top = 0;
    setCurrentRow(m_current);
    syncScrollBar();
    update();
}

void VyInnerListWidget::setCurrentRow(int row) {
    row = m_items.isEmpty() ? -1 : std::max(0, std::min(row, m_items.size() - 1));
    if (row == m_current)
        return;
    if (m_current >= 0)
        update(rowRect(m_current));
    m_current = row;
    if (row < 0)
        return;
    if (row < m_top)
        setTop(row);
    else if (row >= m_top + visibleRowCount())
        setTop(row - visibleRowCount() + 1);
    update(rowRect(row));
}

int VyInnerListWidget::rowHeight() const {
    return std::max(1, VyStyle::instance()->itemHeight());
}

VyRect VyInnerListWidget::viewRect() const {
    const int bw = VyStyle::instance()->comboPopupBorderWidth();
    const int right =
        m_scrollBar->isVisible() ? m_scrollBar->geometry().left - 1 : width() - 1 - bw;
    return VyRect::fromEdges(bw, bw, right, height() - 1 - bw);
}

int VyInnerListWidget::visibleRowCount() const {
    return std::max(1, viewRect().height() / rowHeight());
}

VyRect VyInnerListWidget::rowRect(int row) const {
    const VyRect view = viewRect();
    return VyRect(view.left, view.top + (row - m_top) * rowHeight(), view.width(), rowHeight());
}

int VyInnerListWidget::rowAt(VyPoint pos) const {
    const VyRect view = viewRect();
    if (!view.contains(pos))
        return -1;
    const int row = m_top + (pos.y - view.top) / rowHeight();
    return row < m_items.size() ? row : -1;
}

void VyInnerListWidget::placeUnder(const VyRect& field, const VyRect& screen) {
    const int bw = VyStyle::instance()->comboPopupBorderWidth();
    const int rows = std::max(1, std::min(m_items.size(), static_cast<int>(kMaxVisibleRows)));
    int h = rows * rowHeight() + 2 * bw;
    const int below = screen.bottom - field.bottom;
    const int above = field.top - screen.top;
    int y = field.bottom + 1;
    if (h > below && above > below) {
        h = std::min(h, above);
        y = field.top - h;
    } else {
        h = std::min(h, std::max(rowHeight() + 2 * bw, below));
    }
    const int w = std::min(screen.width(), field.width());
    const int x = std::max(screen.left, std::min(field.left, screen.right + 1 - w));
    setGeometry(x, y, w, h);
    syncScrollBar();
}

void VyInnerListWidget::syncScrollBar() {
    const int bw = VyStyle::instance()->comboPopupBorderWidth();
    const int thickness = std::max(1, VyStyle::instance()->scaled(VyScrollBar::kDesignThickness));
    const int rowsFit = std::max(1, (height() - 2 * bw) / rowHeight());
    const bool needed = m_items.size() > rowsFit;
    m_scrollBar->setGeometry(width() - bw - thickness, bw, thickness,
                             std::max(0, height() - 2 * bw));
    m_scrollBar->setVisible(needed);
    m_scrollBar->setRange(0, std::max(0, m_items.size() - visibleRowCount()));
    m_scrollBar->setPageStep(visibleRowCount());
    setTop(m_top);
}

void VyInnerListWidget::scrollBarMoved() {
    setTop(m_scrollBar->value());
}

void VyInnerListWidget::setTop(int row) {
    row = std::max(0, std::min(row, std::max(0, m_items.size() - visibleRowCount())));
    if (row == m_top)
        return;
    m_top = row;
    m_scrollBar->setValue(m_top);
    update();
}

void VyInnerListWidget::open() {
    m_chosen = -1;
    m_pressedInside = false;
    show();
    setFocus(4); // a popup's focus reason
    update();
}

void VyInnerListWidget::choose(int row) {
    if (row < 0 || row >= m_items.size())
        return;
    m_chosen = row;
    m_current = row;
    finish(true);
}

void VyInnerListWidget::cancel() {
    m_chosen = -1;
    finish(false);
}

void VyInnerListWidget::finish(bool accepted) {
    if (!isVisible())
        return;
    hide();
    emitSignal(this, accepted ? &chosen : &cancelled);
}

void VyInnerListWidget::paintEvent(VyPaintEvent*) {
    VyStyle* style = VyStyle::instance();
    VyCanvas* c = canvas();
    style->drawComboPopup(c, rect());
    const VyRect view = viewRect();
    const int last = std::min(m_items.size() - 1, m_top + visibleRowCount());
    for (int row = m_top; row <= last; ++row)
        style->drawComboPopupItem(c, rowRect(row).intersected(view), m_items.at(row),
                                  row == m_current);
}

void VyInnerListWidget::keyPressEvent(VyKeyEvent* e) {
    switch (e->key()) {
    case VyKeyEvent::KeyUp:
        setCurrentRow(m_current - 1);
        break;
    case VyKeyEvent::KeyDown:
        setCurrentRow(m_current + 1);
        break;
    case VyKeyEvent::KeyOk:
        if (m_current >= 0)
            choose(m_current);
        else
            cancel();
        break;
    case VyKeyEvent::KeyEscape:
        cancel();
        break;
    default:
        e->ignore();
        return;
    }
    e->accept();
}

void VyInnerListWidget::wheelEvent(VyWheelEvent* e) {
    e->accept();
    if (e->delta() == 0)
        return;
    const int notches = e->notches();
    setTop(m_top - notches * kWheelRows);
}

void VyInnerListWidget::mousePressEvent(VyMouseEvent* e) {
    e->accept();
    // The open popup takes every press on the screen: one outside it closes it.
    if (!rect().contains(e->pos())) {
        cancel();
        return;
    }
    m_pressedInside = true;
    const int row = rowAt(e->pos());
    if (row >= 0)
        setCurrentRow(row);
}

void VyInnerListWidget::mouseReleaseEvent(VyMouseEvent* e) {
    e->accept();
    if (!m_pressedInside || e->button() != VyMouseEvent::LeftButton)
        return;
    m_pressedInside = false;
    const int row = rowAt(e->pos());
    if (row >= 0)
        choose(row);
}

void VyInnerListWidget::mouseMoveEvent(VyMouseEvent* e) {
    e->accept();
    const int row = rowAt(e->pos());
    if (row >= 0)
        setCurrentRow(row);
}

void VyInnerListWidget::resizeEvent(VyResizeEvent*) {
    syncScrollBar();
}

void VyInnerListWidget::closeEvent(VyCloseEvent* e) {
    // Closed from outside (the window time-out manager): the same as Escape.
    e->accept();
    if (isVisible()) {
        m_chosen = -1;
        emitSignal(this, &cancelled);
    }
}
