#pragma once
// Attendance: for the days chosen, each person's first and last recognition per day as
// check-in and check-out, in a table, and the same table written to the USB stick as CSV.
#include "model/AttendanceReport.h"
#include "model/FaceLibraryModel.h"
#include "toolkit/core/VyWidget.h"

#include <cstdint>

#include <vector>

class VyDateEdit;
class VyLabel;
class VyPushButton;
class VySpinBox;
class VyTableWidget;

class AttendancePage : public VyWidget {
    VY_OBJECT(AttendancePage, VyWidget)
public:
    // The report's columns.
    enum Column { NameColumn, DateColumn, CheckInColumn, CheckOutColumn, ColumnCount };

    AttendancePage(FaceLibraryModel* library, int channelCount, VyWidget* parent = nullptr);
    ~AttendancePage() override;

    // The page's name in the analytics window's page list.
    static uint32_t titleTextId();

    // Fetches the recognitions of the chosen days and builds the table.
    void search();
    // Writes the table to the stick as "attendance_<from>_<to>.csv".
    void exportCsv();

    const std::vector<AttendanceReport::Row>& rows() const { return m_rows; }
    VyDateEdit* fromEdit() const { return m_from; }
    VyDateEdit* toEdit() const { return m_to; }
    // The hour a working day starts (a night shift stays one day when it starts at noon).
    VySpinBox* dayStartBox() const { return m_dayStart; }
    VyTableWidget* table() const { return m_table; }
    VyString message() const;

protected:
    void paintEvent(VyPaintEvent* e) override;
    void resizeEvent(VyResizeEvent* e) override;

private:
    FaceLibraryModel* m_library;
    AttendanceReport::Options m_options;
    std::vector<AttendanceReport::Row> m_rows;
    VyLabel* m_fromLabel;     // child
    VyDateEdit* m_from;       // child
    VyLabel* m_toLabel;       // child
    VyDateEdit* m_to;         // child
    VyLabel* m_dayStartLabel; // child
    VySpinBox* m_dayStart;    // child
    VyPushButton* m_search;   // child
    VyPushButton* m_export;   // child
    VyLabel* m_message;       // child
    VyTableWidget* m_table;   // child
    vyargb m_background = 0xFF1E2024;
};
