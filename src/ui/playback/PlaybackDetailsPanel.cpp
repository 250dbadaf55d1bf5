#include "ui/playback/PlaybackDetailsPanel.h"

#include "runtime/VyIniSettings.h"
#include "runtime/VyResources.h"
#include "toolkit/events/VyMouseEvent.h"
#include "toolkit/events/VyWheelEvent.h"
#include "toolkit/graphics/VyCanvas.h"
#include "ui/UiLook.h"
#include "ui/playback/RecordTimeBar.h"

#include <algorithm>

namespace {

// The colour a segment shows on the time bar under every filter: the last of its regions
// in the fill order.
vyargb segmentColour(uint32_t types) {
    vyargb colour = RecordTimeBar::regionColour(0);
    const bool mixed = __builtin_popcount(types & ~1u) >= 2 && (types & ~0xFC1u) != 0;
    for (int region : RecordTimeBar::fillOrder()) {
        if (region < 32 ? (types >> region & 1u) != 0
                        : region == RecordTimeBar::kMixedRegion && mixed)
            colour = RecordTimeBar::regionColour(region);
    }
    return colour;
}

} // namespace

PlaybackDetailsPanel::PlaybackDetailsPanel(VyWidget* parent)
    : VyWidget(parent) {
    const VyIniSettings ini(VyResources::path(kStyleFile));
    const VyString s = className() + "/";
    m_background = UiLook::colourOr(ini, s + "Background", m_background);
    m_border = UiLook::colourOr(ini, s + "Border", m_border);
    m_title = UiLook::colourOr(ini, s + "Title/Foreground", m_title);
    m_text = UiLook::colourOr(ini, s + "Text/Foreground", m_text);
    m_rowSelected = UiLook::colourOr(ini, s + "Row/Selected", m_rowSelected);
}

void PlaybackDetailsPanel::setChannel(const RecordChannel& channel) {
    m_channel = channel;
    m_first = 0;
    m_selected = -1;
    update();
}

int PlaybackDetailsPanel::rowHeight() const {
    return UiLook::scaledY(kRowDesign);
}

int PlaybackDetailsPanel::visibleRows() const {
    // The first row holds the channel's number.
    return std::max(0, height() / std::max(1, rowHeight()) - 1);
}

const RecordSegment* PlaybackDetailsPanel::selectedSegment() const {
    if (m_selected < 0 || m_selected >= int(m_channel.segments.size()))
        return nullptr;
    return &m_channel.segments[size_t(m_selected)];
}

VyRect PlaybackDetailsPanel::rowRect(int row) const {
    const int page = row - m_first;
    if (page < 0 || page >= visibleRows() || row >= int(m_channel.segments.size()))
        return VyRect();
    return VyRect(0, (page + 1) * rowHeight(), width(), rowHeight());
}

void PlaybackDetailsPanel::scrollTo(int first) {
    const int last = std::max(0, int(m_channel.segments.size()) - visibleRows());
    first = std::max(0, std::min(first, last));
    if (first == m_first)
        return;
    m_first = first;
    update();
}

void PlaybackDetailsPanel::paintEvent(VyPaintEvent*) {
    VyCanvas* c = canvas();
    c->fillRect(rect(), m_background);
    c->drawRect(rect(), m_border);
    const int font = UiLook::instance().fontPixelSize();
    const int pad = UiLook::scaledX(10);
    const int h = rowHeight();
    c->drawText(VyRect(pad, 0, width() - 2 * pad, h), VyCanvas::AlignLeft | VyCanvas::AlignVCenter,
                VyString::number(m_channel.channel + 1), font, m_title);
    const int count = int(m_channel.segments.size());
    for (int row = m_first; row < count && row < m_first + visibleRows(); ++row) {
        const VyRect r = rowRect(row);
        if (row == m_selected)
            c->fillRect(r, m_rowSelected);
        const RecordSegment& s = m_channel.segments[size_t(row)];
        const int swatch = h / 2;
        c->fillRect(VyRect(pad, r.top + (h - swatch) / 2, swatch, swatch),
                    segmentColour(s.typeBits));
        const VyString span = s.start.toString("hh:mm:ss") + " - " + s.end.toString("hh:mm:ss");
        c->drawText(VyRect(pad * 2 + swatch, r.top, width() - pad * 3 - swatch, h),
                    VyCanvas::AlignLeft | VyCanvas::AlignVCenter, span, font, m_text);
    }
}

void PlaybackDetailsPanel::mousePressEvent(VyMouseEvent* e) {
    if (e->button() != VyMouseEvent::LeftButton) {
        e->ignore();
        return;
    }
    e->accept();
    for (int row = m_first; row < m_first + visibleRows(); ++row) {
        if (rowRect(row).contains(e->pos())) {
            m_selected = row;
            update();
            emitSignal(this, &segmentChosen);
            return;
        }
    }
}

void PlaybackDetailsPanel::wheelEvent(VyWheelEvent* e) {
    e->accept();
    // Three rows a notch, as the list controls scroll.
    scrollTo(m_first - e->delta() / 120 * 3);
}
