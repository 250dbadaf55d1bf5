// The window list and the marking of dirty regions.
#include <algorithm>
#include <utility>

#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/events/VyEvent.h"
#include "toolkit/graphics/VyWindowSurface.h"

namespace {

// Updates collected before they are folded into the dirty region.
constexpr size_t kMaxDirtyParts = 256;

} // namespace

const VyRegion& VyScreen::dirtyRegion() const {
    foldDirtyParts();
    return m_dirtyRegion;
}

void VyScreen::foldDirtyParts() const {
    if (m_dirtyParts.empty())
        return;
    for (size_t step = 1; step < m_dirtyParts.size(); step *= 2) {
        for (size_t i = 0; i + step < m_dirtyParts.size(); i += 2 * step)
            m_dirtyParts[i].unite(m_dirtyParts[i + step]);
    }
    m_dirtyRegion.unite(m_dirtyParts[0]);
    m_dirtyParts.clear();
}

int VyScreen::indexOf(const VyWindowSurface* window) const {
    for (size_t i = 0; i < m_windows.size(); ++i) {
        if (m_windows[i].get() == window)
            return static_cast<int>(i);
    }
    return -1;
}

VyWindowSurface* VyScreen::windowAt(int index) const {
    if (index < 0 || index >= windowCount())
        return nullptr;
    return m_windows[index].get();
}

VyWindowSurface* VyScreen::windowOf(const VyObject* owner) const {
    for (const auto& w : m_windows) {
        if (w->owner() == owner)
            return w.get();
    }
    return nullptr;
}

VyWindowSurface* VyScreen::createWindow(VyObject* owner, const VyRect& rect) {
    m_windows.push_back(std::make_unique<VyWindowSurface>(owner, rect));
    return m_windows.back().get();
}

void VyScreen::removeWindow(VyWindowSurface* window) {
    const int index = indexOf(window);
    if (index < 0)
        return;
    markDirty(index, VyRegion(window->rect()));
    m_windows.erase(m_windows.begin() + index);
}

void VyScreen::raiseWindow(VyWindowSurface* window) {
    const int index = indexOf(window);
    if (index < 0 || index == windowCount() - 1)
        return;
    std::unique_ptr<VyWindowSurface> moved = std::move(m_windows[index]);
    m_windows.erase(m_windows.begin() + index);
    m_windows.push_back(std::move(moved));
    update(window);
}

void VyScreen::lowerWindow(VyWindowSurface* window) {
    const int index = indexOf(window);
    if (index <= 0)
        return;
    // What the window covered now shows the windows that were beneath it.
    markDirty(index, VyRegion(window->rect()));
    std::unique_ptr<VyWindowSurface> moved = std::move(m_windows[index]);
    m_windows.erase(m_windows.begin() + index);
    m_windows.insert(m_windows.begin(), std::move(moved));
}

void VyScreen::setWindowGeometry(VyWindowSurface* window, const VyRect& rect) {
    const int index = indexOf(window);
    if (index < 0 || rect == window->rect())
        return;
    markDirty(index, VyRegion(window->rect()));
    window->setRect(rect);
    update(window);
}

void VyScreen::setWindowVisible(VyWindowSurface* window, bool visible) {
    const int index = indexOf(window);
    if (index < 0 || window->m_visible == visible)
        return;
    window->m_visible = visible;
    markDirty(index, VyRegion(window->rect()));
}

void VyScreen::setWindowHiddenAttribute(VyWindowSurface* window, bool hidden) {
    const int index = indexOf(window);
    if (index < 0 || window->m_hiddenAttribute == hidden)
        return;
    window->m_hiddenAttribute = hidden;
    markDirty(index, VyRegion(window->rect()));
}

void VyScreen::setWindowExcluded(VyWindowSurface* window, bool excluded) {
    const int index = indexOf(window);
    if (index < 0 || window->m_excluded == excluded)
        return;
    window->m_excluded = excluded;
    markDirty(index, VyRegion(window->rect()));
}

void VyScreen::update(VyWindowSurface* window, const VyRegion& region) {
    const int index = indexOf(window);
    if (index < 0)
        return;
    markDirty(index, region);
}

void VyScreen::update(VyWindowSurface* window) {
    if (window)
        update(window, VyRegion(window->rect()));
}

// index: the window the region belongs to; windows above it that are shown cover it.
void VyScreen::markDirty(int index, const VyRegion& region) {
    if (!isOpen())
        return;
    VyRegion dirty = region.intersected(VyRect(0, 0, m_width, m_height));
    for (int i = index + 1; i < windowCount() && !dirty.isEmpty(); ++i) {
        const VyWindowSurface* above = m_windows[i].get();
        if (above->isShown() && !above->isExcluded())
            dirty.subtract(above->rect());
    }
    if (dirty.isEmpty())
        return;
    m_dirtyParts.push_back(std::move(dirty));
    if (m_dirtyParts.size() >= kMaxDirtyParts)
        foldDirtyParts();
    if (m_updatePending)
        return;
    m_updatePending = true;
    // Without an application (a screen used on its own) the owner calls flush() itself.
    if (VyApplication::instance())
        VyApplication::postEvent(this, std::make_unique<VyEvent>(VyEvent::UpdateRequest));
}
