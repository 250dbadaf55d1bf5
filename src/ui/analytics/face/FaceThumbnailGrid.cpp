#include "ui/analytics/face/FaceThumbnailGrid.h"

#include "runtime/VyIniSettings.h"
#include "runtime/VyResources.h"
#include "toolkit/events/VyKeyEvent.h"
#include "toolkit/events/VyMouseEvent.h"
#include "toolkit/events/VyWheelEvent.h"
#include "toolkit/graphics/VyCanvas.h"
#include "ui/UiLook.h"

#include <algorithm>

namespace {

constexpr const char* kStyleFile = "style/faceapps.ini";
constexpr int kTextLineDesign = 24; // pixels at 1920x1080, one line under the picture
constexpr int kBorderDesign = 3;

} // namespace

FaceThumbnailGrid::FaceThumbnailGrid(VyWidget* parent)
    : VyWidget(parent) {
    const VyIniSettings ini(VyResources::path(kStyleFile));
    m_background = UiLook::colourOr(ini, "FaceThumbnailGrid/Background", m_background);
    m_currentColour = UiLook::colourOr(ini, "FaceThumbnailGrid/Cell/Current", m_currentColour);
    m_foreground = UiLook::colourOr(ini, "FaceThumbnailGrid/Cell/Foreground", m_foreground);
    m_secondary = UiLook::colourOr(ini, "FaceThumbnailGrid/Cell/Secondary", m_secondary);
    m_missing = UiLook::colourOr(ini, "FaceThumbnailGrid/Cell/Missing", m_missing);
    setFocusPolicy(VyWidget::StrongFocus);
}

FaceThumbnailGrid::~FaceThumbnailGrid() = default;

void FaceThumbnailGrid::setSource(Source source) {
    m_source = std::move(source);
    update();
}

void FaceThumbnailGrid::setCount(int count) {
    m_count = std::max(0, count);
    m_current = m_count == 0 ? -1 : std::clamp(m_current, 0, m_count - 1);
    m_firstRow = std::clamp(m_firstRow, 0, maxFirstRow());
    update();
}

int FaceThumbnailGrid::columns() const {
    const int step = UiLook::scaledX(kCellDesignWidth + kGapDesign);
    return std::max(1, (width() - UiLook::scaledX(kGapDesign)) / step);
}

int FaceThumbnailGrid::visibleRows() const {
    const int step = UiLook::scaledY(kCellDesignHeight + kGapDesign);
    return std::max(1, (height() - UiLook::scaledY(kGapDesign)) / step);
}

int FaceThumbnailGrid::rowCount() const {
    return (m_count + columns() - 1) / columns();
}

int FaceThumbnailGrid::maxFirstRow() const {
    return std::max(0, rowCount() - visibleRows());
}

void FaceThumbnailGrid::setFirstRow(int row) {
    row = std::clamp(row, 0, maxFirstRow());
    if (row == m_firstRow)
        return;
    m_firstRow = row;
    update();
}

void FaceThumbnailGrid::pageDown() {
    if (m_count == 0)
        return;
    setFirstRow(m_firstRow + visibleRows());
    setCurrentIndex(std::min(m_count - 1, m_firstRow * columns()));
}

void FaceThumbnailGrid::pageUp() {
    if (m_count == 0)
        return;
    setFirstRow(m_firstRow - visibleRows());
    setCurrentIndex(m_firstRow * columns());
}

void FaceThumbnailGrid::setCurrentIndex(int index) {
    if (m_count == 0)
        return;
    index = std::clamp(index, 0, m_count - 1);
    const int row = index / columns();
    if (row < m_firstRow)
        setFirstRow(row);
    else if (row >= m_firstRow + visibleRows())
        setFirstRow(row - visibleRows() + 1);
    if (index == m_current)
        return;
    const int old = m_current;
    m_current = index;
    if (old >= 0)
        update(cellRect(old));
    update(cellRect(m_current));
    emitSignal(this, &currentChanged);
}

VyRect FaceThumbnailGrid::cellRect(int index) const {
    const int cols = columns();
    const int row = index / cols - m_firstRow, col = index % cols;
    const int gapX = UiLook::scaledX(kGapDesign), gapY = UiLook::scaledY(kGapDesign);
    return VyRect(gapX + col * UiLook::scaledX(kCellDesignWidth + kGapDesign),
                  gapY + row * UiLook::scaledY(kCellDesignHeight + kGapDesign),
                  UiLook::scaledX(kCellDesignWidth), UiLook::scaledY(kCellDesignHeight));
}

int FaceThumbnailGrid::indexAt(VyPoint pos) const {
    const int cols = columns();
    const int first = m_firstRow * cols;
    const int last = std::min(m_count, first + visibleRows() * cols);
    for (int i = first; i < last; ++i) {
        if (cellRect(i).contains(pos))
            return i;
    }
    return -1;
}

void FaceThumbnailGrid::activate(int index) {
    if (index < 0 || index >= m_count)
        return;
    setCurrentIndex(index);
    m_activated = index;
    emitSignal(this, &activated);
}

void FaceThumbnailGrid::setTextLines(int lines) {
    m_textLines = std::clamp(lines, 1, 3);
    update();
}

void FaceThumbnailGrid::paintEvent(VyPaintEvent*) {
    // The grid covers most of the screen: one fill of the whole widget is a single run at
    // the speed of memcpy, while backgrounds of their own per cell cost as much again as
    // the pictures. Cells are told apart by their pictures and texts alone.
    VyCanvas* c = canvas();
    c->fillRect(rect(), m_background);
    const int cols = columns();
    const int first = m_firstRow * cols;
    const int last = std::min(m_count, first + visibleRows() * cols);
    for (int i = first; i < last; ++i)
        paintCell(c, i);
}

void FaceThumbnailGrid::paintCell(VyCanvas* c, int index) {
    const VyRect r = cellRect(index);
    const int line = UiLook::scaledY(kTextLineDesign);
    const int border = UiLook::scaledX(kBorderDesign);
    const int textSize = UiLook::instance().fontPixelSize();
    const Cell cell = m_source ? m_source(index) : Cell();
    const VyRect frame(r.x() + border, r.y() + border, r.width() - 2 * border,
                       r.height() - m_textLines * line - 2 * border);
    VyRect picture = frame;
    if (!cell.picture.isNull() && frame.width() > 0 && frame.height() > 0) {
        // Never enlarged (App sends thumbnails at the size they are meant to be seen),
        // shrunk to the frame with its own aspect, centred.
        const int pw = cell.picture.width(), ph = cell.picture.height();
        int w = std::min(pw, frame.width()), h = w * ph / pw;
        if (h > frame.height()) {
            h = frame.height();
            w = h * pw / ph;
        }
        picture =
            VyRect(frame.x() + (frame.width() - w) / 2, frame.y() + (frame.height() - h) / 2, w, h);
    }
    if (cell.picture.isNull()) {
        c->setPenWidth(1);
        c->drawRect(picture, m_missing);
    } else {
        c->drawImage(picture, cell.picture);
    }
    const VyString* lines[] = {&cell.line1, &cell.line2, &cell.line3};
    const int textTop = r.y() + r.height() - m_textLines * line;
    for (int l = 0; l < m_textLines; ++l)
        c->drawText(VyRect(r.x(), textTop + l * line, r.width(), line), VyCanvas::AlignCenter,
                    *lines[l], textSize, l == 0 ? m_foreground : m_secondary);
    if (index == m_current) {
        c->setPenWidth(border);
        c->drawRect(r, m_currentColour);
        c->setPenWidth(1);
    }
}

void FaceThumbnailGrid::keyPressEvent(VyKeyEvent* e) {
    if (m_count == 0)
        return VyWidget::keyPressEvent(e);
    const int cols = columns();
    const int cur = std::max(0, m_current);
    switch (e->key()) {
    case VyKeyEvent::KeyLeft:
        if (cur % cols == 0)
            pageUp();
        else
            setCurrentIndex(cur - 1);
        break;
    case VyKeyEvent::KeyRight:
        if (cur % cols == cols - 1 || cur == m_count - 1)
            pageDown();
        else
            setCurrentIndex(cur + 1);
        break;
    case VyKeyEvent::KeyUp:
        if (cur < cols)
            return VyWidget::keyPressEvent(e); // out of the grid, to the controls above
        setCurrentIndex(cur - cols);
        break;
    case VyKeyEvent::KeyDown:
        setCurrentIndex(std::min(m_count - 1, cur + cols));
        break;
    case VyKeyEvent::KeyOk:
        activate(cur);
        break;
    default:
        return VyWidget::keyPressEvent(e);
    }
    e->accept();
}

void FaceThumbnailGrid::mousePressEvent(VyMouseEvent* e) {
    if (e->button() == 1)
        activate(indexAt(e->pos()));
}

void FaceThumbnailGrid::wheelEvent(VyWheelEvent* e) {
    setFirstRow(m_firstRow - e->delta() / VyWheelEvent::kNotch);
    e->accept();
}
