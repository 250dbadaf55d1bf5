// The application's side of the cursor: which shape shows, and the overrides that win over
// the widget under the pointer.
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VyScreenCursor.h"
#include "toolkit/core/VyWidget.h"

void VyApplication::setOverrideCursor(int shape) {
    m_overrideCursors.push_back(shape);
    updateCursorShape();
}

void VyApplication::restoreOverrideCursor() {
    if (m_overrideCursors.empty())
        return;
    m_overrideCursors.pop_back();
    updateCursorShape();
}

void VyApplication::updateCursorShape(bool force) {
    VyScreenCursor* cursor = m_screen ? m_screen->cursor() : nullptr;
    // A drag draws its own image until it ends.
    if (!cursor || m_drag)
        return;
    int shape = VyScreenCursor::Arrow;
    if (!m_overrideCursors.empty())
        shape = m_overrideCursors.back();
    else if (m_hoverWidget)
        shape = m_hoverWidget->cursorShape();
    if (force || cursor->shape() != shape)
        cursor->setShape(shape);
}
