#pragma once
// What a layout knows of one row, column or box item along one axis.
#include "toolkit/core/VyWidget.h"

struct VyLayoutSlot {
    int minimum = 0;
    int hint = 0;
    int maximum = VyWidget::kMaxSize;
    int stretch = 0;
};
