// Dirty marking and delivery of Paint events into the window surfaces.
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyPointer.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VyWidget.h"
#include "toolkit/events/VyPaintEvent.h"
#include "toolkit/graphics/VyFbCanvas.h"
#include "toolkit/graphics/VyWindowSurface.h"

namespace {

// The canvas of the window being painted; GUI thread only, set for the duration of one
// paintWindow call.
VyCanvas* g_paintCanvas = nullptr;

} // namespace

void VyWidget::update() {
    update(VyRegion(rect()));
}

void VyWidget::update(const VyRegion& region) {
    VyApplication* app = VyApplication::instance();
    if (!app || !app->screen() || region.isEmpty() || !isVisibleOnScreen())
        return;
    VyWidget* win = window();
    if (!win->m_surface)
        return;
    // Clipped to this widget and each ancestor, so that a child never dirties what its
    // parent does not show.
    VyRegion dirty = region.intersected(rect());
    VyPoint offset(0, 0);
    for (const VyWidget* w = this; w != win; w = w->parentWidget()) {
        offset = offset + w->m_geometry.topLeft();
        dirty.translate(w->m_geometry.topLeft());
        dirty.intersect(w->parentWidget()->rect());
    }
    if (dirty.isEmpty())
        return;
    app->screen()->update(win->m_surface, dirty.translated(win->m_geometry.topLeft()));
}

VyCanvas* VyWidget::canvas() const {
    return g_paintCanvas;
}

void VyWidget::paintWindow(VyWindowSurface* surface, const VyRegion& region) {
    if (!surface || !surface->owner() || !surface->owner()->isWidgetType())
        return;
    auto* win = static_cast<VyWidget*>(surface->owner());
    if (!win->isVisible() || !surface->canvas())
        return;
    VyCanvas* previous = g_paintCanvas;
    g_paintCanvas = surface->canvas();
    win->paintTree(g_paintCanvas, region.intersected(win->rect()), VyPoint(0, 0), win->rect());
    g_paintCanvas->setOrigin(VyPoint(0, 0));
    g_paintCanvas->resetClip();
    g_paintCanvas = previous;
}

// region: what to repaint, in window coordinates; offset: this widget's top-left in the
// window; clip: the part of the window this widget may draw in (its rectangle cut by its
// ancestors').
void VyWidget::paintTree(VyCanvas* canvas, const VyRegion& region, VyPoint offset,
                         const VyRect& clip) {
    VyRegion mine = region.intersected(clip);
    if (mine.isEmpty())
        return;
    VyPointer<VyWidget> self(this);
    canvas->setOrigin(offset);
    canvas->setClipRect(mine.boundingRect());
    VyPaintEvent paint(mine.translated(-offset.x, -offset.y));
    VyApplication::sendEvent(this, &paint);
    if (!self)
        return; // deleted by its own paint handler
    // Later children lie on top: painted after their elder siblings. A copy of the list,
    // as painting must not but might change the tree.
    VyList<VyObject*> kids = children();
    for (VyObject* o : kids) {
        if (!o->isWidgetType() || !children().contains(o))
            continue;
        auto* c = static_cast<VyWidget*>(o);
        if (c->isWindow() || !c->isVisible())
            continue;
        VyPoint childOffset = offset + c->m_geometry.topLeft();
        VyRect childClip = clip.intersected(VyRect(childOffset, c->m_size));
        if (childClip.isEmpty())
            continue;
        c->paintTree(canvas, mine, childOffset, childClip);
        if (!self)
            return;
    }
}
