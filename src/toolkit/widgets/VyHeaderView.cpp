#include "toolkit/widgets/VyHeaderView.h"

#include <algorithm>

#include "toolkit/events/VyMouseEvent.h"
#include "toolkit/style/VyStyle.h"

VyHeaderView::VyHeaderView(Orientation orientation, VyWidget* parent)
    : VyWidget(parent)
    , m_orientation(orientation)
    , m_defaultSize(VyStyle::instance()->scaled(kDefaultSectionDesign)) {
    setAttribute(MouseTracking);
}

VyHeaderView::~VyHeaderView() = default;

void VyHeaderView::setSectionCount(int count) {
    m_count = std::max(0, count);
    if (!m_sizes.empty())
        m_sizes.resize(m_count, m_defaultSize);
    if (m_sortSection >= m_count) {
        m_sortSection = -1;
        m_sortOrder = NoSort;
    }
    update();
}

void VyHeaderView::setDefaultSectionSize(int size) {
    m_defaultSize = std::max(0, size);
    update();
}

void VyHeaderView::setSectionSize(int section, int size) {
    if (section < 0 || section >= m_count)
        return;
    size = std::max(0, size);
    if (m_sizes.empty())
        m_sizes.assign(m_count, m_defaultSize);
    if (m_sizes[section] == size)
        return;
    m_sizes[section] = size;
    m_lastResized = section;
    update();
    emitSignal(this, &sectionResized);
}

int VyHeaderView::storedSize(int section) const {
    return m_sizes.empty() ? m_defaultSize : m_sizes[section];
}

int VyHeaderView::sectionSize(int section) const {
    if (section < 0 || section >= m_count)
        return 0;
    const int own = storedSize(section);
    if (!m_stretchLast || section != m_count - 1)
        return own;
    const int before = sectionPosition(section);
    return std::max(own, extent() - before);
}

int VyHeaderView::sectionPosition(int section) const {
    section = std::max(0, std::min(section, m_count));
    if (m_sizes.empty())
        return section * m_defaultSize;
    int pos = 0;
    for (int i = 0; i < section; ++i)
        pos += m_sizes[i];
    return pos;
}

int VyHeaderView::length() const {
    return m_count == 0 ? 0 : sectionPosition(m_count - 1) + sectionSize(m_count - 1);
}

void VyHeaderView::setStretchLastSection(bool on) {
    m_stretchLast = on;
    update();
}

int VyHeaderView::sectionAt(int position) const {
    const int p = position + m_offset;
    if (p < 0 || m_count == 0)
        return -1;
    if (m_sizes.empty() && !m_stretchLast) {
        const int s = m_defaultSize > 0 ? p / m_defaultSize : -1;
        return s >= 0 && s < m_count ? s : -1;
    }
    int pos = 0;
    for (int i = 0; i < m_count; ++i) {
        const int size = sectionSize(i);
        if (p < pos + size)
            return i;
        pos += size;
    }
    return -1;
}

int VyHeaderView::edgeAt(int position) const {
    const int grip = std::max(2, VyStyle::instance()->scaled(kResizeGripDesign));
    const int p = position + m_offset;
    int pos = 0;
    int found = -1;
    // The last edge under the pointer wins, so a section squeezed to 0 can be pulled open.
    for (int i = 0; i < m_count && pos <= p + grip; ++i) {
        pos += sectionSize(i);
        if (p >= pos - grip && p <= pos + grip)
            found = i;
    }
    return found;
}

void VyHeaderView::setLabels(const VyStringList& labels) {
    m_labels = labels;
    update();
}

VyString VyHeaderView::sectionText(int section) const {
    return section >= 0 && section < m_labels.size() ? m_labels.at(section) : VyString();
}

void VyHeaderView::setOffset(int offset) {
    offset = std::max(0, offset);
    if (offset == m_offset)
        return;
    m_offset = offset;
    update();
}

void VyHeaderView::setSortingEnabled(bool on) {
    m_sorting = on;
    if (!on)
        setSortIndicator(-1, NoSort);
    update();
}

void VyHeaderView::setSortIndicator(int section, SortOrder order) {
    if (section < 0 || section >= m_count || order == NoSort) {
        section = -1;
        order = NoSort;
    }
    if (section == m_sortSection && order == m_sortOrder)
        return;
    m_sortSection = section;
    m_sortOrder = order;
    update();
    emitSignal(this, &sortIndicatorChanged);
}

void VyHeaderView::paintEvent(VyPaintEvent*) {
    VyStyle* style = VyStyle::instance();
    VyCanvas* c = canvas();
    const bool horizontal = m_orientation == Horizontal;
    const int first = std::max(0, sectionAt(0));
    int pos = sectionPosition(first) - m_offset;
    // The part after the last section still shows the title-row background.
    style->drawHeaderSection(c, rect(), VyString(), NoSort, horizontal);
    for (int i = first; i < m_count && pos < extent(); ++i) {
        const int size = sectionSize(i);
        if (size > 0) {
            const VyRect r =
                horizontal ? VyRect(pos, 0, size, height()) : VyRect(0, pos, width(), size);
            style->drawHeaderSection(c, r.intersected(rect()), sectionText(i),
                                     i == m_sortSection ? m_sortOrder : NoSort, horizontal);
        }
        pos += size;
    }
}

void VyHeaderView::mousePressEvent(VyMouseEvent* e) {
    if (e->button() != VyMouseEvent::LeftButton || !isEnabled()) {
        e->ignore();
        return;
    }
    e->accept();
    m_pressedSection = -1;
    if (m_resizable && m_orientation == Horizontal) {
        m_resizing = edgeAt(along(e->pos()));
        if (m_resizing >= 0)
            return;
    }
    m_pressedSection = sectionAt(along(e->pos()));
}

void VyHeaderView::mouseMoveEvent(VyMouseEvent* e) {
    e->accept();
    if (m_resizing < 0 || !(e->buttons() & VyMouseEvent::LeftButton))
        return;
    const int minimum = VyStyle::instance()->scaled(kMinimumSectionDesign);
    const int start = sectionPosition(m_resizing) - m_offset;
    setSectionSize(m_resizing, std::max(minimum, along(e->pos()) - start));
}

void VyHeaderView::mouseReleaseEvent(VyMouseEvent* e) {
    if (e->button() != VyMouseEvent::LeftButton) {
        e->ignore();
        return;
    }
    e->accept();
    if (m_resizing >= 0) {
        m_resizing = -1;
        return;
    }
    const int section = sectionAt(along(e->pos()));
    if (section < 0 || section != m_pressedSection)
        return;
    m_pressedSection = -1;
    m_lastClicked = section;
    if (m_sorting)
        setSortIndicator(section, section == m_sortSection && m_sortOrder == Ascending ? Descending
                                                                                       : Ascending);
    emitSignal(this, &sectionClicked);
}
