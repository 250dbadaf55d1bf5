#include "ui/settings/MotionAreaGrid.h"

#include "protocol/MotionBlock.h"
#include "toolkit/events/VyMouseEvent.h"
#include "toolkit/graphics/VyCanvas.h"

#include <algorithm>

namespace {

constexpr uint8_t kLeftButton = 1;
constexpr vyargb kPicture = 0xFF101418; // where the live picture would be
constexpr vyargb kWatched = 0xFFC83C3C; // a watched cell
constexpr vyargb kGridLine = 0xFF50545C;
constexpr vyargb kBand = 0xFFFFFFFF;

} // namespace

MotionAreaGrid::MotionAreaGrid(VyWidget* parent)
    : CWidget(parent) {}

int MotionAreaGrid::columnAt(int x) const {
    return std::clamp(x * MotionBlock::kColumns / std::max(1, width()), 0,
                      MotionBlock::kColumns - 1);
}

int MotionAreaGrid::rowAt(int y) const {
    return std::clamp(y * MotionBlock::kRows / std::max(1, height()), 0, MotionBlock::kRows - 1);
}

bool MotionAreaGrid::cell(int column, int row) const {
    if (m_area == nullptr)
        return false;
    const int i = row * MotionBlock::kColumns + column;
    return (m_area[i / 8] >> (i % 8)) & 1u;
}

void MotionAreaGrid::setCell(int column, int row, bool on) {
    const int i = row * MotionBlock::kColumns + column;
    if (on)
        m_area[i / 8] = uint8_t(m_area[i / 8] | (1u << (i % 8)));
    else
        m_area[i / 8] = uint8_t(m_area[i / 8] & ~(1u << (i % 8)));
}

void MotionAreaGrid::mousePressEvent(VyMouseEvent* e) {
    if (e->button() != kLeftButton || m_area == nullptr) {
        e->ignore();
        return;
    }
    m_dragging = true;
    m_press = m_current = e->pos();
    m_set = !cell(columnAt(e->x()), rowAt(e->y()));
    e->accept();
}

void MotionAreaGrid::mouseMoveEvent(VyMouseEvent* e) {
    if (!m_dragging) {
        e->ignore();
        return;
    }
    m_current = e->pos();
    update();
}

void MotionAreaGrid::mouseReleaseEvent(VyMouseEvent* e) {
    if (!m_dragging || e->button() != kLeftButton || m_area == nullptr) {
        e->ignore();
        return;
    }
    m_dragging = false;
    m_current = e->pos();
    const int c0 = columnAt(std::min(m_press.x, m_current.x)),
              c1 = columnAt(std::max(m_press.x, m_current.x));
    const int r0 = rowAt(std::min(m_press.y, m_current.y)),
              r1 = rowAt(std::max(m_press.y, m_current.y));
    for (int r = r0; r <= r1; ++r)
        for (int c = c0; c <= c1; ++c)
            setCell(c, r, m_set);
    update();
    emitSignal(this, &areaEdited);
}

void MotionAreaGrid::paintEvent(VyPaintEvent*) {
    VyCanvas* c = canvas();
    c->fillRect(rect(), kPicture);
    auto x = [&](int column) { return column * width() / MotionBlock::kColumns; };
    auto y = [&](int row) { return row * height() / MotionBlock::kRows; };
    for (int r = 0; r < MotionBlock::kRows; ++r)
        for (int col = 0; col < MotionBlock::kColumns; ++col)
            if (cell(col, r))
                c->fillRect(VyRect::fromEdges(x(col) + 1, y(r) + 1, x(col + 1) - 1, y(r + 1) - 1),
                            kWatched);
    for (int col = 0; col <= MotionBlock::kColumns; ++col)
        c->drawLine(std::min(x(col), width() - 1), 0, std::min(x(col), width() - 1), height() - 1,
                    kGridLine);
    for (int r = 0; r <= MotionBlock::kRows; ++r)
        c->drawLine(0, std::min(y(r), height() - 1), width() - 1, std::min(y(r), height() - 1),
                    kGridLine);
    if (m_dragging) {
        const int c0 = columnAt(std::min(m_press.x, m_current.x)),
                  c1 = columnAt(std::max(m_press.x, m_current.x));
        const int r0 = rowAt(std::min(m_press.y, m_current.y)),
                  r1 = rowAt(std::max(m_press.y, m_current.y));
        c->drawRect(VyRect::fromEdges(x(c0), y(r0), std::min(x(c1 + 1), width() - 1),
                                      std::min(y(r1 + 1), height() - 1)),
                    kBand);
    }
}
