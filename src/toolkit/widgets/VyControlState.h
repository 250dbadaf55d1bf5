#pragma once
// The style slot a standard control draws with: Disabled over Focus over Hover over Normal.
#include "toolkit/core/VyWidget.h"
#include "toolkit/style/VyStyleSlot.h"

inline int vyControlStyleSlot(const VyWidget* widget, bool hovered) {
    if (!widget->isEnabled())
        return VyStyleDisabled;
    if (widget->hasFocus())
        return VyStyleFocus;
    return hovered ? VyStyleHover : VyStyleNormal;
}
