#pragma once
// What the screen keeps of a top-level window: where it lies on the screen, whether it
// takes part in composition, and the off-screen pixels the window paints into. The screen
// owns every surface; the widget that owns the window is only named (owner).
#include <memory>

#include "runtime/VyGlobal.h"
#include "runtime/VyRect.h"
#include "toolkit/graphics/VyFbCanvas.h"

class VyObject;

class VyWindowSurface {
public:
    VyWindowSurface(VyObject* owner, const VyRect& rect);
    ~VyWindowSurface();
    VY_DISABLE_COPY_MOVE(VyWindowSurface)

    VyObject* owner() const { return m_owner; }
    // In screen pixels.
    const VyRect& rect() const { return m_rect; }
    // Window-sized, in window pixels; (0, 0) is the window's top-left corner.
    VyFbCanvas* canvas() const { return m_canvas.get(); }

    bool isVisible() const { return m_visible; }
    // The widget attribute that hides a window without unmapping it (5).
    bool isHiddenAttribute() const { return m_hiddenAttribute; }
    // The widget attribute that keeps a window out of composition (14).
    bool isExcluded() const { return m_excluded; }
    // Visible and not hidden: such a window covers what lies beneath it.
    bool isShown() const { return m_visible && !m_hiddenAttribute; }
    bool composes() const { return isShown() && !m_excluded; }

private:
    // Changed through the screen, which marks what the change uncovers or covers.
    friend class VyScreen;
    void setRect(const VyRect& rect);

    VyObject* m_owner;
    VyRect m_rect;
    std::unique_ptr<VyFbCanvas> m_canvas;
    bool m_visible = false;
    bool m_hiddenAttribute = false;
    bool m_excluded = false;
};
