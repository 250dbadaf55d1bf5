#include "ui/playback/ThumbnailBar.h"

#include "runtime/VyIniSettings.h"
#include "runtime/VyResources.h"
#include "toolkit/events/VyMouseEvent.h"
#include "toolkit/graphics/VyCanvas.h"
#include "ui/UiLook.h"

#include <algorithm>

namespace {

constexpr int kGapDesign = 6;
constexpr int kTextDesign = 22; // the time line under each picture

} // namespace

ThumbnailBar::ThumbnailBar(VyWidget* parent)
    : VyWidget(parent) {
    const VyIniSettings ini(VyResources::path(kStyleFile));
    const VyString s = className() + "/";
    m_background = UiLook::colourOr(ini, s + "Background", m_background);
    m_border = UiLook::colourOr(ini, s + "Border", m_border);
    m_itemBorder = UiLook::colourOr(ini, s + "Item/Border/Normal", m_itemBorder);
    m_itemSelected = UiLook::colourOr(ini, s + "Item/Border/Selected", m_itemSelected);
    m_text = UiLook::colourOr(ini, s + "Text/Foreground", m_text);
}

int ThumbnailBar::pictureHeight() const {
    const int gap = UiLook::scaledY(kGapDesign);
    return std::max(1, height() - 2 * gap - UiLook::scaledY(kTextDesign));
}

int ThumbnailBar::slotWidth() const {
    return std::max(1, pictureHeight() * 16 / 9);
}

int ThumbnailBar::slotCount() const {
    const int gap = UiLook::scaledX(kGapDesign);
    const int fits = (width() - gap) / (slotWidth() + gap);
    return std::max(1, std::min(kMaxSlots, fits));
}

VyRect ThumbnailBar::slotRect(int slot) const {
    const int n = slotCount();
    if (slot < 0 || slot >= n)
        return VyRect();
    // The slots share the width evenly, so their left edges line up with the times they show.
    const int gap = UiLook::scaledX(kGapDesign);
    const int pitch = (width() - gap) / n;
    return VyRect(gap + slot * pitch, UiLook::scaledY(kGapDesign), pitch - gap,
                  pictureHeight() + UiLook::scaledY(kTextDesign));
}

void ThumbnailBar::setThumbnails(const std::vector<RecordThumbnail>& thumbnails) {
    m_thumbnails = thumbnails;
    m_chosen = -1;
    update();
}

VyDateTime ThumbnailBar::chosenTime() const {
    if (m_chosen < 0 || m_chosen >= int(m_thumbnails.size()))
        return VyDateTime();
    return m_thumbnails[size_t(m_chosen)].time;
}

void ThumbnailBar::paintEvent(VyPaintEvent*) {
    VyCanvas* c = canvas();
    c->fillRect(rect(), m_background);
    c->drawRect(rect(), m_border);
    const int font = UiLook::instance().fontPixelSize();
    const int n = std::min(slotCount(), int(m_thumbnails.size()));
    for (int i = 0; i < n; ++i) {
        const RecordThumbnail& t = m_thumbnails[size_t(i)];
        const VyRect slot = slotRect(i);
        const VyRect picture(slot.left, slot.top, slot.width(), pictureHeight());
        if (t.time.isValid() && !t.picture.isNull())
            c->drawImage(picture, t.picture);
        c->drawRect(picture, i == m_chosen ? m_itemSelected : m_itemBorder);
        if (t.time.isValid())
            c->drawText(VyRect(slot.left, picture.bottom + 1, slot.width(),
                               slot.height() - picture.height()),
                        VyCanvas::AlignCenter, t.time.toString("hh:mm:ss"), font, m_text);
    }
}

void ThumbnailBar::mousePressEvent(VyMouseEvent* e) {
    if (e->button() != VyMouseEvent::LeftButton) {
        e->ignore();
        return;
    }
    e->accept();
    const int n = std::min(slotCount(), int(m_thumbnails.size()));
    for (int i = 0; i < n; ++i) {
        if (slotRect(i).contains(e->pos()) && m_thumbnails[size_t(i)].time.isValid()) {
            m_chosen = i;
            update();
            emitSignal(this, &thumbnailChosen);
            return;
        }
    }
}
