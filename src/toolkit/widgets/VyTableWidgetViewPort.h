#pragma once
// The cell area of a table. It draws the rows in view through its table and leaves the mouse
// to the table (its events climb to the parent), so a press on the cells is a press on the
// table.
#include "toolkit/core/VyWidget.h"

class VyTableWidget;

class VyTableWidgetViewPort : public VyWidget {
    VY_OBJECT(VyTableWidgetViewPort, VyWidget)
public:
    explicit VyTableWidgetViewPort(VyTableWidget* table);

protected:
    void paintEvent(VyPaintEvent* e) override;

private:
    VyTableWidget* m_table; // the parent
};
