// The key focus: which widget the arrows and OK act on, how it is kept valid, how the
// arrows move it across the active window (a spatial search on a 15-pixel grid) and what OK
// does to each kind of control.
#include "toolkit/input/VyKeyManager.h"

#include "runtime/VyLog.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/events/VyFocusEvent.h"
#include "toolkit/events/VyKeyEvent.h"
#include "toolkit/graphics/VyWindowSurface.h"
#include "toolkit/widgets/CWidget.h"
#include "toolkit/widgets/ProxyButton.h"
#include "toolkit/widgets/VyAbstractButton.h"
#include "toolkit/widgets/VyAbstractSlider.h"
#include "toolkit/widgets/VyGroupBox.h"
#include "toolkit/widgets/VySpinBox.h"

#include <climits>
#include <cstdio>
#include <cstring>

namespace {

// Tested by class name, in this order: controls that land later in the toolkit (combo
// boxes, lists, tables, date edits) are focusable as soon as they exist.
const char* const kFocusableClasses[] = {
    // buttons group
    "VyAbstractButton", "VyComboBox", "VyInnerListWidget", "VyLineEdit", "VyGroupBox", "VyDateEdit",
    // scroll group
    "VyAbstractSlider", "VySpinBox", "VyHeaderView", "VyListWidget", "VyTableWidget",
    "VyTableWidgetViewPort"};

// Parts of a table that stand for the table.
const char* const kTableParts[] = {"VyTableWidgetViewPort", "VyTableWidgetHHeader",
                                   "VyTableWidgetVHeader"};

// Controls that keep Left/Right, and those that keep Up/Down, for themselves.
const char* const kKeepsLeftRight[] = {"VyTableWidget", "VyListWidget", "VyAbstractSlider"};
const char* const kKeepsUpDown[] = {"VyInnerListWidget", "VyAbstractSlider", "VySpinBox",
                                    "VyTableWidget", "VyListWidget"};

// Controls that take OK as a key event.
const char* const kOkAsKey[] = {"VyComboBox",        "VyLineEdit",    "VySpinBox",   "VyDateEdit",
                                "VyInnerListWidget", "VyTableWidget", "VyListWidget"};

template <size_t N>
bool inheritsAny(const VyWidget* w, const char* const (&names)[N]) {
    for (const char* name : names)
        if (w->inherits(name))
            return true;
    return false;
}

VyRect globalRect(const VyWidget* w) {
    const VyPoint g = w->mapToGlobal(VyPoint(0, 0));
    return VyRect(g.x, g.y, w->width(), w->height());
}

constexpr int kNoValue = INT_MIN;

// The value of a control that steps one (slider, spin box), kNoValue for others.
int valueOf(const VyWidget* w) {
    if (w->inherits("VyAbstractSlider"))
        return static_cast<const VyAbstractSlider*>(w)->value();
    if (w->inherits("VySpinBox"))
        return static_cast<const VySpinBox*>(w)->value();
    return kNoValue;
}

bool isHorizontal(int toolkitKey) {
    return toolkitKey == VyKeyEvent::KeyLeft || toolkitKey == VyKeyEvent::KeyRight;
}

} // namespace

VyWidget* VyKeyManager::activeWindow() {
    VyApplication* app = VyApplication::instance();
    if (app == nullptr)
        return nullptr;
    if (VyWidget* modal = app->activeModalWidget())
        return modal;
    VyScreen* screen = app->screen();
    if (screen == nullptr)
        return nullptr;
    for (int i = screen->windowCount() - 1; i >= 0; --i) {
        VyObject* owner = screen->windowAt(i)->owner();
        if (owner == nullptr || !owner->isWidgetType())
            continue;
        auto* w = static_cast<VyWidget*>(owner);
        if (w->isVisible() && !w->testAttribute(VyWidget::Hidden) &&
            !w->testAttribute(VyWidget::ExcludedFromScreen))
            return w;
    }
    return nullptr;
}

bool VyKeyManager::isFocusable(const VyWidget* w) {
    if (w == nullptr || !w->isVisibleOnScreen() || !w->isEnabled())
        return false;
    // A standard control that takes no focus (a group box without a check, a scroll bar)
    // could never show it: the navigation passes it by.
    if (inheritsAny(w, kFocusableClasses))
        return w->focusPolicy() != VyWidget::NoFocus;
    return w->inherits("CWidget") && static_cast<const CWidget*>(w)->acceptsKeyFocus();
}

VyWidget* VyKeyManager::focusableAt(VyWidget* window, VyPoint global) {
    VyWidget* hit = window->childAt(window->mapFromGlobal(global));
    if (hit == nullptr)
        return nullptr;
    if (inheritsAny(hit, kTableParts) && hit->parentWidget() != nullptr)
        hit = hit->parentWidget();
    if (hit->parentWidget() != nullptr && hit->parentWidget()->inherits("VyListWidget"))
        hit = hit->parentWidget();
    // A part of a control without focus of its own (a label in a composite) stands for the
    // nearest focusable widget around it.
    for (VyWidget* w = hit; w != nullptr; w = w->isWindow() ? nullptr : w->parentWidget())
        if (isFocusable(w))
            return w;
    return nullptr;
}

void VyKeyManager::recordPosition(VyWidget* widget) {
    const VyRect r = globalRect(widget);
    m_focusLeft = r.left;
    m_focusTop = r.top;
    m_searchX = r.left + r.width() / 2;
    m_searchY = r.top + r.height() / 2;
}

void VyKeyManager::giveKeyFocus(VyWidget* widget) {
    m_keyFocus.reset(widget);
    if (widget != nullptr) {
        widget->setFocus(VyFocusEvent::OtherFocusReason);
        recordPosition(widget);
    }
    recomputeCapture();
}

void VyKeyManager::setKeyFocusWidget(VyWidget* widget) {
    giveKeyFocus(widget);
}

void VyKeyManager::recomputeCapture() {
    const VyWidget* w = m_keyFocus.data();
    m_capturesArrows = w != nullptr && (inheritsAny(w, kKeepsLeftRight) ||
                                        inheritsAny(w, kKeepsUpDown) || w->inherits("CWidget"));
}

VyWidget* VyKeyManager::firstFocusable(VyWidget* window) const {
    // The downward scan from the top-left corner, row by row.
    const VyRect area = globalRect(window);
    for (int y = area.top; y <= area.bottom; y += kSearchStep)
        for (int x = area.left + kEdgeMargin; x <= area.right - kEdgeMargin; x += kSearchStep)
            if (VyWidget* w = focusableAt(window, VyPoint(x, y)))
                return w;
    return nullptr;
}

void VyKeyManager::maintainFocus() {
    VyWidget* window = activeWindow();
    VyWidget* focus = m_keyFocus.data();
    if (window == nullptr || (focus != nullptr && focus->window() == window))
        return;
    giveKeyFocus(firstFocusable(window));
}

VyRect VyKeyManager::searchArea(VyWidget* window, Direction direction) const {
    const VyWidget* focus = m_keyFocus.data();
    for (const VyWidget* w = focus; w != nullptr && w != window; w = w->parentWidget()) {
        if (w->inherits("VyPtzWidget")) {
            const VyRect r = globalRect(w);
            return VyRect::fromEdges(r.left - kPtzMargin, r.top - kPtzMargin, r.right + kPtzMargin,
                                     r.bottom + kPtzMargin);
        }
    }
    const VyWidget* area = nullptr;
    const VyWidget* fallback = nullptr;
    for (const VyWidget* w = focus ? focus->parentWidget() : nullptr; w != nullptr;
         w = w->isWindow() ? nullptr : w->parentWidget()) {
        if (w->widgetKind() == VyWidget::NavigationArea) {
            area = w;
            break;
        }
        if (fallback == nullptr && w->widgetKind() == VyWidget::DownLeftArea)
            fallback = w;
    }
    if (area == nullptr && (direction == Down || direction == Left))
        area = fallback;
    return globalRect(area != nullptr ? area : window);
}

VyWidget* VyKeyManager::probe(VyWidget* window, const VyRect& area, int x, int y) const {
    if (x < area.left + kEdgeMargin || x > area.right - kEdgeMargin)
        return nullptr;
    VyWidget* w = focusableAt(window, VyPoint(x, y));
    // The focus widget's own container (a checkable group box around it) is where the
    // search starts from, not where it goes.
    for (const VyWidget* f = m_keyFocus.data(); w != nullptr && f != nullptr; f = f->parentWidget())
        if (f == w)
            return nullptr;
    return w;
}

VyWidget* VyKeyManager::probeRow(VyWidget* window, const VyRect& area, int x, int y) const {
    if (VyWidget* w = probe(window, area, x, y))
        return w;
    for (int d = kSearchStep; x - d >= area.left || x + d <= area.right; d += kSearchStep) {
        if (VyWidget* w = probe(window, area, x - d, y))
            return w;
        if (VyWidget* w = probe(window, area, x + d, y))
            return w;
    }
    return nullptr;
}

bool VyKeyManager::moveFocus(Direction direction) {
    VyWidget* window = activeWindow();
    VyWidget* focus = m_keyFocus.data();
    if (window == nullptr || focus == nullptr)
        return false;
    const VyRect area = searchArea(window, direction);
    m_searchLeft = area.left;
    m_searchTop = area.top;
    m_searchRight = area.right;
    m_searchBottom = area.bottom;
    const VyRect self = globalRect(focus);
    // A widget that moved since it took the focus is searched from where it is now.
    if (self.left != m_focusLeft || self.top != m_focusTop)
        recordPosition(focus);
    const int x = m_searchX;
    const int y = m_searchY;
    VyWidget* found = nullptr;
    switch (direction) {
    case Up:
    case Down: {
        const int step = direction == Up ? -kSearchStep : kSearchStep;
        int row = direction == Up ? self.top + step : self.bottom + step;
        int wraps = 0;
        while (found == nullptr) {
            const bool passed =
                direction == Up ? row < area.top + kEdgeMargin : row > area.bottom - kEdgeMargin;
            if (passed) {
                if (++wraps > 1)
                    break;
                row = direction == Up ? area.bottom - kEdgeMargin : area.top + kEdgeMargin;
            }
            found = probeRow(window, area, x, row);
            row += step;
        }
        break;
    }
    case Left:
        for (int row = y, px = self.left - 5; found == nullptr && row >= area.top;
             row -= kSearchStep, px = area.right - kEdgeMargin) {
            for (; found == nullptr && px >= area.left; px -= kSearchStep)
                found = probe(window, area, px, row);
        }
        break;
    case Right:
        for (int row = y, px = self.right + 1 + 5; found == nullptr && row <= area.bottom;
             row += kSearchStep, px = area.left + 5) {
            for (; found == nullptr && px <= area.right; px += kSearchStep)
                found = probe(window, area, px, row);
        }
        break;
    }
    if (found == nullptr)
        return false;
    giveKeyFocus(found);
    return true;
}

bool VyKeyManager::giveArrow(int toolkitKey) {
    VyWidget* focus = m_keyFocus.data();
    if (focus == nullptr)
        return false;
    const bool horizontal = isHorizontal(toolkitKey);
    if (focus->inherits("CWidget")) {
        auto* composite = static_cast<CWidget*>(focus);
        const bool used =
            horizontal ? composite->keyLeftRight(toolkitKey) : composite->keyUpDown(toolkitKey);
        vySystemLine("keyProcessed: %d \n", used ? 1 : 0);
        return used;
    }
    const bool keeps =
        horizontal ? inheritsAny(focus, kKeepsLeftRight) : inheritsAny(focus, kKeepsUpDown);
    if (!keeps)
        return false;
    // A slider keeps the arrows along its groove only; the other two move the focus.
    if (focus->inherits("VyAbstractSlider") &&
        (static_cast<VyAbstractSlider*>(focus)->orientation() == VyAbstractSlider::Horizontal) !=
            horizontal)
        return false;
    const int before = valueOf(focus);
    const VyPointer<VyWidget> guard(focus);
    VyKeyEvent e(VyEvent::KeyPress, toolkitKey);
    VyApplication::sendEvent(focus, &e);
    // A control that did nothing with the key (a spin box or slider at the end of its range)
    // lets the focus move on, so that no control holds the arrows for good.
    if (!e.isAccepted() || guard.isNull())
        return guard.isNull();
    return before == kNoValue || valueOf(focus) != before;
}

void VyKeyManager::arrow(Direction direction, int toolkitKey) {
    if (m_capturesArrows && giveArrow(toolkitKey))
        return;
    moveFocus(direction);
}

void VyKeyManager::activate() {
    VyWidget* focus = m_keyFocus.data();
    if (focus == nullptr)
        return;
    if (focus->inherits("VyAbstractButton")) {
        if (focus->className() == "ProxyButton")
            static_cast<ProxyButton*>(focus)->runProxyAction();
        else
            static_cast<VyAbstractButton*>(focus)->animateClick(kPressAnimationMs);
    } else if (inheritsAny(focus, kOkAsKey)) {
        VyKeyEvent e(VyEvent::KeyPress, VyKeyEvent::KeyOk);
        VyApplication::sendEvent(focus, &e);
    } else if (focus->inherits("CWidget")) {
        static_cast<CWidget*>(focus)->keyActivate();
    } else if (focus->inherits("VyGroupBox")) {
        auto* box = static_cast<VyGroupBox*>(focus);
        if (box->isCheckable())
            box->setChecked(!box->isChecked());
    }
}
