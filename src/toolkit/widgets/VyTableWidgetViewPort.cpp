#include "toolkit/widgets/VyTableWidgetViewPort.h"

#include "toolkit/widgets/VyTableWidget.h"

VyTableWidgetViewPort::VyTableWidgetViewPort(VyTableWidget* table)
    : VyWidget(table)
    , m_table(table) {}

void VyTableWidgetViewPort::paintEvent(VyPaintEvent*) {
    m_table->paintCells(canvas());
}
