#pragma once
// The row numbers beside a table (1 for the first row), one uniform section per row.
#include "toolkit/widgets/VyHeaderView.h"

class VyTableWidgetVHeader : public VyHeaderView {
    VY_OBJECT(VyTableWidgetVHeader, VyHeaderView)
public:
    explicit VyTableWidgetVHeader(VyWidget* parent = nullptr)
        : VyHeaderView(Vertical, parent) {
        setResizable(false);
    }
    VyString sectionText(int section) const override { return VyString::number(section + 1); }
};
