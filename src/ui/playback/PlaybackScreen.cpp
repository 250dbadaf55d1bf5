#include "ui/playback/PlaybackScreen.h"

#include "runtime/VyIniSettings.h"
#include "runtime/VyResources.h"
#include "toolkit/events/VyMouseEvent.h"
#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/graphics/VyFbCanvas.h"
#include "ui/UiLook.h"
#include "ui/playback/PlaybackSplit.h"

#include <algorithm>

PlaybackScreen::PlaybackScreen(VyWidget* parent)
    : VyWidget(parent) {
    const VyIniSettings ini(VyResources::path(kStyleFile));
    const VyString s = className() + "/";
    m_background = UiLook::colourOr(ini, s + "Background", m_background);
    m_border = UiLook::colourOr(ini, s + "Border/Normal", m_border);
    m_borderSelected = UiLook::colourOr(ini, s + "Border/Selected", m_borderSelected);
    m_noVideo = UiLook::colourOr(ini, s + "NoVideo/Foreground", m_noVideo);
    m_timeColour = UiLook::colourOr(ini, s + "Time/Foreground", m_timeColour);
}

void PlaybackScreen::setChannels(const std::vector<int>& channels) {
    m_channels = channels;
    if (m_selected >= int(cellRects().size()))
        m_selected = 0;
    update();
}

std::vector<VyRect> PlaybackScreen::cellRects() const {
    return PlaybackSplit::cellsFor(int(m_channels.size()), rect());
}

void PlaybackScreen::setTime(const VyDateTime& time) {
    if (time == m_time)
        return;
    m_time = time;
    update();
}

void PlaybackScreen::setSelectedCell(int cell) {
    if (cell < 0 || cell >= int(cellRects().size()) || cell == m_selected)
        return;
    m_selected = cell;
    emitSignal(this, &cellSelected);
    update();
}

namespace {

// The width of a text with a little room on either side.
int textBox(const VyString& text, int font) {
    return VyFbCanvas::textWidth(text, font) + font / 2;
}

} // namespace

void PlaybackScreen::setVideoShown(bool shown) {
    if (shown == m_videoShown)
        return;
    m_videoShown = shown;
    update();
}

void PlaybackScreen::paintEvent(VyPaintEvent*) {
    VyCanvas* c = canvas();
    const std::vector<VyRect> cells = cellRects();
    c->fillRect(rect(), m_background);
    if (m_videoShown) {
        for (const VyRect& r : cells)
            c->clearRect(r);
    }
    const int font = UiLook::instance().fontPixelSize();
    for (size_t i = 0; i < cells.size(); ++i) {
        const VyRect& r = cells[i];
        const bool selected = int(i) == m_selected;
        c->setPenWidth(selected ? 2 : 1);
        c->drawRect(r, selected ? m_borderSelected : m_border);
        c->setPenWidth(1);
        const int channel = i < m_channels.size() ? m_channels[i] : -1;
        if (channel < 0)
            continue;
        const int pad = UiLook::scaledX(8);
        // Over video the texts stand on a dark box: anti-aliased edges over a see-through
        // pixel would leave it see-through, and the text would vanish into the picture.
        const VyString number = VyString::number(channel + 1);
        const int numberWidth = std::min(r.width() - 2 * pad, textBox(number, font));
        const VyRect numberBox(r.left + pad, r.top + pad, numberWidth, font + 4);
        if (m_videoShown)
            c->fillRect(numberBox, m_background);
        c->drawText(numberBox, VyCanvas::AlignCenter, number, font, m_timeColour);
        // The picture's time stamp, as the recorder burnt it in.
        const VyString stamp = m_time.isValid() ? m_time.toString("yyyy/MM/dd hh:mm:ss") : "--";
        const int stampWidth = std::min(r.width() - 2 * pad, textBox(stamp, font));
        const VyRect stampBox(r.right - pad - stampWidth + 1, r.bottom - pad - font - 4, stampWidth,
                              font + 4);
        if (m_videoShown)
            c->fillRect(stampBox, m_background);
        c->drawText(stampBox, VyCanvas::AlignCenter, stamp, font,
                    m_time.isValid() ? m_timeColour : m_noVideo);
    }
}

void PlaybackScreen::mousePressEvent(VyMouseEvent* e) {
    if (e->button() != VyMouseEvent::LeftButton) {
        e->ignore();
        return;
    }
    e->accept();
    const std::vector<VyRect> cells = cellRects();
    for (size_t i = 0; i < cells.size(); ++i) {
        if (cells[i].contains(e->pos()))
            setSelectedCell(int(i));
    }
}

void PlaybackScreen::mouseDoubleClickEvent(VyMouseEvent* e) {
    e->accept();
    emitSignal(this, &fullScreenRequested);
}
