// The live screen's channel list, dealing, paging, selection and preview record.
#include "ui/liveview/VyVideoScreen.h"

#include "protocol/PreviewRecord.h"
#include "runtime/VyLog.h"
#include "runtime/VyRegion.h"
#include "toolkit/core/VyDrag.h"
#include "toolkit/events/VyPaintEvent.h"
#include "toolkit/graphics/VyCanvas.h"
#include "ui/UiLook.h"
#include "ui/liveview/MainViewVideo.h"
#include "ui/liveview/VideoLayout.h"
#include "ui/liveview/VideoToolBar.h"
#include "ui/liveview/VyVideoScreenLayout.h"
#include "ui/liveview/VyVideoScreenLayoutManager.h"

#include <algorithm>

VyVideoScreen::VyVideoScreen(VyWidget* parent)
    : VideoScreenBase(parent) {
    VyVideoScreenLayoutManager* catalogue = VyVideoScreenLayoutManager::instance();
    m_single = catalogue->layoutAt(0);
    m_shown = m_single;
    m_chosen = m_single;
    setAttribute(AcceptDrops);
    // A sibling stacked after the screen (children paint in creation order, and cells are
    // made as dealing needs them), unless the screen stands alone.
    m_toolBar = new VideoToolBar(parent != nullptr ? parent : this);
    m_toolBar->hide();
}

VyVideoScreen::~VyVideoScreen() = default;

Video* VyVideoScreen::createCell() {
    auto* cell = new MainViewVideo(this);
    cell->hide();
    return cell;
}

MainViewVideo* VyVideoScreen::cellAtPosition(int position) {
    while (int(m_cells.size()) <= position) {
        auto* cell = static_cast<MainViewVideo*>(createCell());
        const int index = int(m_cells.size());
        cell->setChannel(index < m_channelCount ? index : Video::kNoChannel);
        m_cells.push_back(cell);
    }
    return m_cells[size_t(position)];
}

void VyVideoScreen::setChannelCount(int count) {
    m_channelCount = std::clamp(count, 0, PreviewRecord::kMaxCells);
    if (m_channelCount > 0)
        cellAtPosition(m_channelCount - 1);
    for (size_t i = 0; i < m_cells.size(); ++i) {
        MainViewVideo* cell = m_cells[i];
        if (cell->channel() >= m_channelCount)
            cell->setChannel(Video::kNoChannel);
    }
}

MainViewVideo* VyVideoScreen::cellOfChannel(int channel) const {
    for (MainViewVideo* cell : m_cells) {
        if (cell->channel() == channel)
            return cell;
    }
    return nullptr;
}

int VyVideoScreen::positionOf(const Video* cell) const {
    for (size_t i = 0; i < m_cells.size(); ++i) {
        if (m_cells[i] == cell)
            return int(i);
    }
    return -1;
}

std::vector<int> VyVideoScreen::channelOrder() const {
    std::vector<int> order;
    for (int p = 0; p < m_channelCount && p < int(m_cells.size()); ++p)
        order.push_back(m_cells[size_t(p)]->channel());
    return order;
}

bool VyVideoScreen::setChannelOrder(const std::vector<int>& order) {
    if (int(order.size()) != m_channelCount)
        return false;
    std::vector<MainViewVideo*> arranged;
    for (int channel : order) {
        MainViewVideo* cell = cellOfChannel(channel);
        if (cell == nullptr ||
            std::find(arranged.begin(), arranged.end(), cell) != arranged.end()) {
            VY_GUI_LOG("saved channel order refused: channel %d\n", channel + 1);
            return false;
        }
        arranged.push_back(cell);
    }
    std::copy(arranged.begin(), arranged.end(), m_cells.begin());
    if (m_dealt)
        redeal(m_pageStart);
    return true;
}

int VyVideoScreen::shownLayoutIndex() const {
    return VyVideoScreenLayoutManager::instance()->indexOf(m_shown);
}

int VyVideoScreen::chosenLayoutIndex() const {
    return VyVideoScreenLayoutManager::instance()->indexOf(m_chosen);
}

bool VyVideoScreen::isSingleView() const {
    return m_shown->cellCount() == 1;
}

int VyVideoScreen::pageCount() const {
    const int perPage = std::max(1, m_shown->cellCount());
    return std::max(1, (m_channelCount + perPage - 1) / perPage);
}

bool VyVideoScreen::isLastPage() const {
    return m_pageStart + m_shown->cellCount() >= m_channelCount;
}

bool VyVideoScreen::selectedIsExclusive() const {
    const MainViewVideo* s = m_selected.data();
    return s != nullptr && s->isExclusive();
}

void VyVideoScreen::redeal(int first) {
    first = std::max(0, first);
    for (MainViewVideo* cell : m_cells) {
        cell->setVideoVisible(false);
        cell->hide();
    }
    VideoLayout* engine = videoLayout();
    engine->clear();
    std::vector<MainViewVideo*> dealt;
    int position = first;
    for (int r = 0; r < m_shown->rows(); ++r) {
        for (int c = 0; c < m_shown->columns(); ++c) {
            const int span = m_shown->cellSpan(r, c);
            if (span == 0)
                continue;
            MainViewVideo* cell = cellAtPosition(position++);
            engine->addCell(cell, r, c, span);
            dealt.push_back(cell);
        }
    }
    const bool alone = m_shown->cellCount() == 1;
    for (MainViewVideo* cell : dealt) {
        cell->setEnlarged(alone);
        cell->setVideoVisible(true);
        cell->show();
    }
    m_pageStart = first;
    m_dealt = true;
    syncContentRect();
    engine->activate();
    m_toolBar->raise();
}

void VyVideoScreen::selectFirstOfPage() {
    if (!m_holdEnlarged.isNull())
        return;
    const auto& items = videoLayout()->items();
    if (!items.empty())
        selectCell(static_cast<MainViewVideo*>(items.front().cell));
}

void VyVideoScreen::afterChange() {
    MainViewVideo* selected = m_selected.data();
    if (m_toolBar->isVisible()) {
        if (selected != nullptr && selected->isVideoVisible())
            showToolBar(selected);
        else
            hideToolBar();
    }
    emitSignal(this, &layoutChanged);
    emitSignal(this, &previewChanged);
}

void VyVideoScreen::setLayout(int index) {
    if (selectedIsExclusive())
        return;
    VyVideoScreenLayout* layout = VyVideoScreenLayoutManager::instance()->layoutAt(index);
    if (m_dealt && m_shown == layout && m_chosen == layout && m_pageStart == 0)
        return;
    m_shown = layout;
    m_chosen = layout;
    redeal(0);
    MainViewVideo* selected = m_selected.data();
    if (selected == nullptr || !selected->isVideoVisible())
        selectFirstOfPage();
    afterChange();
}

void VyVideoScreen::nextPage() {
    if (selectedIsExclusive())
        return;
    const bool multi = (m_flags & kMultiCellPaging) != 0;
    if (!multi && m_shown->cellCount() > 1)
        return;
    int start = m_pageStart + m_shown->cellCount();
    if (!multi) {
        if (start >= m_chosen->cellCount())
            start = 0;
    } else if (start > (pageCount() - 1) * m_shown->cellCount()) {
        start = 0;
    }
    redeal(start);
    selectFirstOfPage();
    afterChange();
}

void VyVideoScreen::previousPage() {
    if (selectedIsExclusive())
        return;
    const bool multi = (m_flags & kMultiCellPaging) != 0;
    if (!multi && m_shown->cellCount() > 1)
        return;
    int start = m_pageStart - m_shown->cellCount();
    if (start < 0)
        start = multi ? m_shown->cellCount() * (pageCount() - 1) : m_chosen->cellCount() - 1;
    redeal(start);
    selectFirstOfPage();
    afterChange();
}

void VyVideoScreen::gotoPage(int page) {
    if (selectedIsExclusive())
        return;
    page = std::clamp(page, 0, pageCount() - 1);
    redeal(page * m_shown->cellCount());
    selectFirstOfPage();
    afterChange();
}

void VyVideoScreen::toggleSingleView() {
    if (selectedIsExclusive())
        return;
    MainViewVideo* selected = m_selected.data();
    if (m_shown != m_single) {
        if (m_shown->cellCount() <= 1)
            return;
        const int position = selected ? positionOf(selected) : m_pageStart;
        m_shown = m_single;
        redeal(position);
    } else {
        if (m_chosen == m_single)
            return;
        const int position = selected ? positionOf(selected) : m_pageStart;
        const int perPage = m_chosen->cellCount();
        m_shown = m_chosen;
        redeal(position / perPage * perPage);
    }
    if (selected == nullptr || !selected->isVideoVisible())
        selectFirstOfPage();
    afterChange();
}

void VyVideoScreen::swapChannels(int positionA, int positionB) {
    const int n = int(m_cells.size());
    if (positionA == positionB || positionA < 0 || positionB < 0 || positionA >= n ||
        positionB >= n)
        return;
    std::swap(m_cells[size_t(positionA)], m_cells[size_t(positionB)]);
    redeal(m_pageStart);
    emitSignal(this, &orderChanged);
    afterChange();
}

void VyVideoScreen::selectCell(MainViewVideo* cell) {
    MainViewVideo* old = m_selected.data();
    if (cell == nullptr) {
        if (old == nullptr)
            return;
        old->setSelected(false);
        m_selected.reset();
        emitSignal(this, &selectedChanged);
        return;
    }
    if (!cell->isSelectable() || cell == old)
        return;
    if (old != nullptr)
        old->setSelected(false);
    cell->setSelected(true);
    m_selected.reset(cell);
    emitSignal(this, &selectedChanged);
}

void VyVideoScreen::showToolBar(MainViewVideo* cell) {
    if (cell == nullptr || !cell->isVideoVisible()) {
        hideToolBar();
        return;
    }
    m_toolBar->attachTo(cell);
    m_toolBar->raise();
    m_toolBar->show();
}

void VyVideoScreen::hideToolBar() {
    m_toolBar->hide();
}

PreviewRecord VyVideoScreen::previewRecord() const {
    PreviewRecord record;
    const VideoLayout* engine = videoLayout();
    record.layoutId = uint8_t(std::max(0, shownLayoutIndex()));
    record.singleView = isSingleView() ? 1 : 0;
    record.outputWidth = uint16_t(engine->outputWidth());
    record.outputHeight = uint16_t(engine->outputHeight());
    record.pageStart = uint16_t(m_pageStart);
    int n = 0;
    for (const VideoLayout::Item& item : engine->items()) {
        if (n >= PreviewRecord::kMaxCells)
            break;
        const auto* cell = static_cast<const MainViewVideo*>(item.cell);
        PreviewCell& out = record.cells[n];
        const VyRect v = cell->videoRect();
        out.channel = cell->channel() == Video::kNoChannel ? PreviewCell::kNoChannel
                                                           : uint8_t(cell->channel());
        // One big picture is worth the main stream; many small ones are not.
        out.stream = isSingleView() || cell->prefersMainStream() ? PreviewCell::kMainStream
                                                                 : PreviewCell::kSubStream;
        out.flags = uint8_t((cell == m_selected.data() ? PreviewCell::kFlagSelected : 0) |
                            (cell->hasCamera() ? PreviewCell::kFlagCamera : 0));
        out.left = uint16_t(std::max(0, v.left));
        out.top = uint16_t(std::max(0, v.top));
        out.right = uint16_t(std::max(0, v.right));
        out.bottom = uint16_t(std::max(0, v.bottom));
        if (cell == m_selected.data())
            record.selectedCell = uint16_t(n);
        ++n;
    }
    record.cellCount = uint8_t(n);
    return record;
}

void VyVideoScreen::paintEvent(VyPaintEvent* e) {
    VyCanvas* c = canvas();
    if (c == nullptr)
        return;
    // Only the gaps the alignment leaves between cells: the cells paint themselves.
    VyRegion gaps = e->region();
    for (const VideoLayout::Item& item : videoLayout()->items()) {
        if (item.cell->isVisible())
            gaps.subtract(item.cell->geometry());
    }
    const vyargb background = UiLook::instance().mainViewBackground | 0xFF000000u;
    for (const VyRect& r : gaps.rects())
        c->fillRect(r, background);
}
