#pragma once
// The title row of a table: one section per column, resizable, sortable when the table is.
#include "toolkit/widgets/VyHeaderView.h"

class VyTableWidgetHHeader : public VyHeaderView {
    VY_OBJECT(VyTableWidgetHHeader, VyHeaderView)
public:
    explicit VyTableWidgetHHeader(VyWidget* parent = nullptr)
        : VyHeaderView(Horizontal, parent) {}
};
