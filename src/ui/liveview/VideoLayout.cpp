#include "ui/liveview/VideoLayout.h"

#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "ui/liveview/Video.h"

#include <algorithm>
#include <cmath>

namespace {

int roundDown(int v, int unit) {
    return v >= 0 ? v / unit * unit : -((-v + unit - 1) / unit * unit);
}

int roundUp(int v, int unit) {
    return -roundDown(-v, unit);
}

// Halves go up, for negative values too: floor(v + 0.5).
int roundHalfUp(double v) {
    return int(std::floor(v + 0.5));
}

} // namespace

VideoLayout::VideoLayout(VyObject* parent)
    : VyObject(parent) {
    VyApplication* app = VyApplication::instance();
    VyScreen* screen = app ? app->screen() : nullptr;
    if (screen && screen->width() > 0 && screen->height() > 0) {
        setOutputSize(screen->width(), screen->height());
        setInterfaceSize(screen->width(), screen->height());
    }
}

void VideoLayout::setMargins(int left, int top, int right, int bottom) {
    m_marginLeft = left;
    m_marginTop = top;
    m_marginRight = right;
    m_marginBottom = bottom;
}

void VideoLayout::setOutputSize(int width, int height) {
    m_outputWidth = std::max(1, width);
    m_outputHeight = std::max(1, height);
}

void VideoLayout::setInterfaceSize(int width, int height) {
    m_interfaceWidth = std::max(1, width);
    m_interfaceHeight = std::max(1, height);
}

void VideoLayout::setAlignment(int coarse, int fine) {
    m_coarse = std::max(1, coarse);
    m_fine = std::max(1, fine);
}

void VideoLayout::addCell(Video* cell, int row, int column, int size) {
    m_items.push_back({cell, uint8_t(row), uint8_t(column), uint8_t(size)});
}

std::vector<int> VideoLayout::outputEdges(int origin, double extent, int count, int coarse,
                                          int fine) {
    coarse = std::max(1, coarse);
    fine = std::max(1, fine);
    const int half = std::max(1, coarse / 2);
    const double unit = extent / count;
    std::vector<int> e(size_t(count) + 1);
    e[0] = origin;
    for (int i = 1; i <= count; ++i)
        e[size_t(i)] = roundDown(int(origin + i * unit), half);
    for (int i = 0; i <= count; ++i) {
        int& v = e[size_t(i)];
        if (v % fine == 0)
            continue;
        v = i < count ? roundUp(v, fine) : roundDown(v, coarse);
    }
    return e;
}

void VideoLayout::activate() {
    const int x0 = m_content.left + m_marginLeft;
    const int y0 = m_content.top + m_marginTop;
    const int width = m_content.right - m_marginRight - x0 + 1;
    const int height = m_content.bottom - m_marginBottom - y0 + 1;
    const double sx = double(m_interfaceWidth) / m_outputWidth;
    const double sy = double(m_interfaceHeight) / m_outputHeight;

    int rows = 1;
    int columns = 1;
    for (const Item& item : m_items) {
        if (!item.cell->isVisible())
            continue;
        rows = std::max(rows, item.row + item.size);
        columns = std::max(columns, item.column + item.size);
    }

    const int outX0 = int(x0 / sx);
    const int outY0 = int(y0 / sy);
    const std::vector<int> ex =
        outputEdges(outX0, double(int(width / sx)), columns, m_coarse, m_fine);
    const std::vector<int> ey =
        outputEdges(outY0, double(int(height / sy)), rows, m_coarse, m_fine);
    std::vector<int> EX(ex.size());
    std::vector<int> EY(ey.size());
    for (size_t i = 0; i < ex.size(); ++i)
        EX[i] = roundHalfUp(ex[i] * sx - x0);
    for (size_t i = 0; i < ey.size(); ++i)
        EY[i] = roundHalfUp(ey[i] * sy - y0);

    for (const Item& item : m_items) {
        if (!item.cell->isVisible())
            continue;
        const size_t c = item.column;
        const size_t r = item.row;
        const size_t s = item.size;
        item.cell->setGeometry(EX[c], EY[r], EX[c + s] - EX[c], EY[r + s] - EY[r]);
        item.cell->setVideoRect(VyRect::fromEdges(ex[c], ey[r], ex[c + s] - 1, ey[r + s] - 1));
    }
}

Video* VideoLayout::cellAt(VyPoint point) const {
    for (const Item& item : m_items) {
        if (item.cell->isVisible() && item.cell->geometry().contains(point))
            return item.cell;
    }
    return nullptr;
}
