#include "toolkit/graphics/VyWindowSurface.h"

VyWindowSurface::VyWindowSurface(VyObject* owner, const VyRect& rect)
    : m_owner(owner)
    , m_rect(rect)
    , m_canvas(
          std::make_unique<VyFbCanvas>(std::max(rect.width(), 0), std::max(rect.height(), 0))) {}

VyWindowSurface::~VyWindowSurface() = default;

void VyWindowSurface::setRect(const VyRect& rect) {
    const bool resized = rect.size() != m_rect.size();
    m_rect = rect;
    // A new size starts from cleared pixels; the owner repaints the whole window anyway.
    if (resized)
        m_canvas =
            std::make_unique<VyFbCanvas>(std::max(rect.width(), 0), std::max(rect.height(), 0));
}
