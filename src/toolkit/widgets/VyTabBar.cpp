#include "toolkit/widgets/VyTabBar.h"

#include <algorithm>

#include "runtime/VyLog.h"
#include "toolkit/events/VyKeyEvent.h"
#include "toolkit/events/VyMouseEvent.h"
#include "toolkit/style/VyStyle.h"
#include "toolkit/style/VyTextLayout.h"

VyTabBar::VyTabBar(VyWidget* parent)
    : CWidget(parent) {
    setFocusPolicy(StrongFocus);
    setAttribute(MouseTracking);
}

VyTabBar::~VyTabBar() = default;

int VyTabBar::addTab(const VyString& text) {
    m_tabs.append(text);
    if (m_current < 0)
        setCurrentIndex(0);
    update();
    return count() - 1;
}

void VyTabBar::setTabText(int index, const VyString& text) {
    if (index < 0 || index >= count())
        return;
    m_tabs[index] = text;
    update();
}

VyString VyTabBar::tabText(int index) const {
    return index >= 0 && index < count() ? m_tabs.at(index) : VyString();
}

void VyTabBar::removeTab(int index) {
    if (index < 0 || index >= count())
        return;
    m_tabs.removeAt(index);
    m_first = std::max(0, std::min(m_first, count() - 1));
    if (m_current >= count() || index < m_current) {
        m_current = count() == 0 ? -1 : std::max(0, m_current - 1);
        emitSignal(this, &currentChanged);
    } else if (index == m_current) {
        emitSignal(this, &currentChanged);
    }
    update();
}

bool VyTabBar::setCurrentIndex(int index) {
    if (index < 0 || index >= count()) {
        if (index != -1 || count() > 0) {
            vyFrameworkLog("VyTabBar: tab %d out of range (%d tabs) !!!\n", index, count());
            return false;
        }
    }
    if (index == m_current)
        return true;
    m_current = index;
    keepCurrentInView();
    update();
    emitSignal(this, &currentChanged);
    return true;
}

int VyTabBar::tabWidth(int index) const {
    const VyStyle* style = VyStyle::instance();
    const int px = VyStyle::fontSize(style->option().get<VyPushButtonOption>().font, 0);
    return std::max(style->scaled(kMinimumTabDesign),
                    VyTextLayout::width(m_tabs.at(index), px) +
                        4 * style->scaled(VyStyle::kFieldPaddingDesign));
}

void VyTabBar::keepCurrentInView() {
    if (m_current < 0 || width() <= 0)
        return;
    if (m_current < m_first) {
        m_first = m_current;
        return;
    }
    // Move the first tab on until the current one ends inside the bar.
    for (;;) {
        int x = 0;
        for (int i = m_first; i <= m_current; ++i)
            x += tabWidth(i);
        if (x <= width() || m_first == m_current)
            return;
        ++m_first;
    }
}

VyRect VyTabBar::tabRect(int index) const {
    if (index < m_first || index >= count())
        return VyRect();
    int x = 0;
    for (int i = m_first; i < index; ++i)
        x += tabWidth(i);
    const int w = std::min(tabWidth(index), width() - x);
    return w > 0 ? VyRect(x, 0, w, height()) : VyRect();
}

int VyTabBar::tabAt(VyPoint pos) const {
    for (int i = m_first; i < count(); ++i)
        if (tabRect(i).contains(pos))
            return i;
    return -1;
}

bool VyTabBar::keyLeftRight(int key) {
    const int next = m_current + (key == VyKeyEvent::KeyRight ? 1 : -1);
    if (next < 0 || next >= count())
        return false;
    setCurrentIndex(next);
    return true;
}

VySize VyTabBar::sizeHint() const {
    int w = 0;
    for (int i = 0; i < count(); ++i)
        w += tabWidth(i);
    return VySize(w, VyStyle::instance()->itemHeight() + VyStyle::instance()->scaledHeight(8));
}

void VyTabBar::paintEvent(VyPaintEvent*) {
    VyStyle* style = VyStyle::instance();
    VyCanvas* c = canvas();
    style->drawTabBarBase(c, rect());
    for (int i = m_first; i < count(); ++i) {
        const VyRect r = tabRect(i);
        if (r.isEmpty())
            break;
        style->drawTab(c, r, m_tabs.at(i), i == m_current, hasFocus(), i == m_hovered, isEnabled());
    }
}

void VyTabBar::mousePressEvent(VyMouseEvent* e) {
    if (e->button() != VyMouseEvent::LeftButton || !isEnabled()) {
        e->ignore();
        return;
    }
    e->accept();
    const int index = tabAt(e->pos());
    if (index >= 0)
        setCurrentIndex(index);
}

void VyTabBar::mouseMoveEvent(VyMouseEvent* e) {
    e->accept();
    const int index = tabAt(e->pos());
    if (index != m_hovered) {
        m_hovered = index;
        update();
    }
}

void VyTabBar::hoverLeaveEvent(VyHoverEvent*) {
    m_hovered = -1;
    update();
}

void VyTabBar::focusInEvent(VyFocusEvent*) {
    update();
}

void VyTabBar::focusOutEvent(VyFocusEvent*) {
    update();
}

void VyTabBar::resizeEvent(VyResizeEvent*) {
    keepCurrentInView();
}
