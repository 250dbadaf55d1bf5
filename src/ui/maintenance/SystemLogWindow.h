#pragma once
// The recorder's system log: search a time span for entry types, and read the matches in a
// table a page at a time. Only the page on screen is held; each page is one request to App,
// so a log of any length costs the same to page through. Export writes the whole search
// (every page, not only the one shown) as one CSV file onto the USB stick.
#include "model/MaintenanceReply.h"
#include "toolkit/widgets/VyDialog.h"

#include <cstdint>
#include <string>

class VyCheckBox;
class VyDateEdit;
class VyLabel;
class VyPushButton;
class VyTableWidget;
class VyTimeEdit;

class SystemLogWindow : public VyDialog {
    VY_OBJECT(SystemLogWindow, VyDialog)
public:
    static constexpr int kTypeCount = 5;
    static constexpr uint32_t kPageSize = LogSearchRequest::kMaxPage;

    SystemLogWindow();

    // Searches with the window's span and types and shows the first page; false when App's
    // answer was refused (the window says so).
    bool search();
    bool showPage(int index);
    int pageIndex() const { return m_page; }
    int pageCount() const;
    uint32_t total() const { return m_total; }
    const std::vector<LogEntry>& entries() const { return m_entries; }
    VyString pageText() const;
    VyString statusText() const;

    // The last search as a CSV file on the stick; false (the window says why) when App
    // refused a page or the file, or the file would pass UsbWriteRequest::kMaxBytes.
    bool exportToUsb();
    // The file's name for the search shown: "systemlog_<from>_<to>.csv", days as yyyyMMdd.
    VyString exportFileName() const;
    // A CSV line of the file ("\r\n" ends), the fields as the table shows them.
    static std::string csvLine(const LogEntry& entry);
    static constexpr const char* kCsvHeader = "Time,Type,Channel,Description\r\n";

    VyDateEdit* fromDate() const { return m_fromDate; }
    VyTimeEdit* fromTime() const { return m_fromTime; }
    VyDateEdit* toDate() const { return m_toDate; }
    VyTimeEdit* toTime() const { return m_toTime; }
    VyCheckBox* typeBox(int i) const { return m_types[i]; }
    VyTableWidget* table() const { return m_table; }
    VyPushButton* previousButton() const { return m_previous; }
    VyPushButton* nextButton() const { return m_next; }
    VyPushButton* exportButton() const { return m_export; }

    // The name of a type bit as the table shows it.
    static VyString typeName(uint32_t type);

protected:
    void resizeEvent(VyResizeEvent* e) override;

private:
    void searchClicked() { search(); }
    void previousClicked() { showPage(m_page - 1); }
    void nextClicked() { showPage(m_page + 1); }
    void exportClicked() { exportToUsb(); }
    void syncPager();

    VyDateEdit* m_fromDate;
    VyTimeEdit* m_fromTime;
    VyDateEdit* m_toDate;
    VyTimeEdit* m_toTime;
    VyCheckBox* m_types[kTypeCount];
    VyPushButton* m_search;
    VyTableWidget* m_table;
    VyPushButton* m_previous;
    VyLabel* m_pager;
    VyPushButton* m_next;
    VyPushButton* m_export;
    VyLabel* m_status;
    VyPushButton* m_close;

    LogSearchRequest m_request; // the search on screen, its `first` that of the page shown
    bool m_searched = false;
    uint32_t m_total = 0;
    int m_page = 0;
    std::vector<LogEntry> m_entries;
};
