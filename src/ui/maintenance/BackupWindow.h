#pragma once
// The backup window of the start menu: find recordings by day, time of day, channels and
// record type, see each file with its times and size, and copy the chosen ones to the USB
// stick, whose free room is shown. The search and the copying are the playback screen's
// (PlaybackSession); here the files are copied one after the other under one progress
// dialog with Cancel, and a stick that is full or pulled out stops the job with a message.
#include "runtime/VyDateTime.h"
#include "toolkit/core/VyPointer.h"
#include "toolkit/widgets/VyDialog.h"
#include "ui/maintenance/ProgressDialog.h"

#include <cstdint>
#include <map>
#include <vector>

class BitMaskChecks;
class PlaybackSession;
class VyCheckBox;
class VyDateEdit;
class VyLabel;
class VyPushButton;
class VyTableWidget;
class VyTimeEdit;

class BackupWindow : public VyDialog {
    VY_OBJECT(BackupWindow, VyDialog)
public:
    struct Item {
        int channel = 0;
        VyDateTime start;
        VyDateTime end;
        uint32_t typeBits = 0;
        uint64_t bytes = 0; // estimated from the channel's recording bit rate
    };
    enum class ExportState { Idle, Running, Done, Failed, Cancelled };
    // The record types offered, each a check box: continuous, motion, alarm.
    static constexpr int kTypeCount = 3;

    explicit BackupWindow(int channelCount);
    ~BackupWindow() override;

    // Shows the window, takes App's playback answers and reads the USB stick's room.
    void open();
    // Searches the day shown for the channels ticked; the list fills as App answers.
    bool search();
    const std::vector<Item>& items() const { return m_items; }
    // The rows chosen in the list (every row when none is).
    std::vector<int> chosenRows() const;
    uint64_t chosenBytes() const;
    // Copies the chosen files; false (and a message) when there is nothing to copy, no
    // stick, or not enough room on it.
    bool exportChosen();
    void cancelExport();
    ExportState exportState() const { return m_state; }
    // Of the whole job, 0..100.
    int exportPercent() const { return m_percent; }
    int filesExported() const { return m_next; }
    // The last outcome or warning, as the window shows it under the list.
    VyString statusText() const;
    bool usbPresent() const { return m_usbPresent; }
    uint32_t usbFreeMiB() const { return m_usbFreeMiB; }

    BitMaskChecks* channelChecks() const { return m_channels; }
    VyDateEdit* dateEdit() const { return m_date; }
    VyTimeEdit* fromEdit() const { return m_from; }
    VyTimeEdit* toEdit() const { return m_to; }
    VyCheckBox* typeBox(int i) const { return m_types[i]; }
    VyTableWidget* table() const { return m_table; }
    VyPushButton* exportButton() const { return m_export; }
    ProgressDialog* progressDialog() const { return m_progress.data(); }
    PlaybackSession* session() const { return m_session; }

protected:
    void resizeEvent(VyResizeEvent* e) override;

private:
    void onDaySearched();
    void onExportChanged();
    void onCancelRequested();
    void searchClicked() { search(); }
    void exportClicked() { exportChosen(); }
    // False when the window went while App was answering (the wait runs the event loop).
    bool readUsb();
    void rebuildItems();
    bool startNext();
    void endJob(ExportState state, uint32_t textId);
    void setStatus(const VyString& text);
    uint32_t typeMask() const;
    // As asked when the search began; an estimate for a channel App did not answer for.
    uint64_t bytesPerSecond(int channel) const;

    PlaybackSession* m_session; // child
    BitMaskChecks* m_channels;
    VyDateEdit* m_date;
    VyTimeEdit* m_from;
    VyTimeEdit* m_to;
    VyCheckBox* m_types[kTypeCount];
    VyPushButton* m_search;
    VyTableWidget* m_table;
    VyLabel* m_usb;
    VyLabel* m_status;
    VyPushButton* m_export;
    VyPushButton* m_close;
    std::vector<VyLabel*> m_captions;

    std::vector<Item> m_items;
    std::map<int, uint64_t> m_rates; // bytes per second by channel, asked once per search
    VyDateTime m_rangeStart;
    VyDateTime m_rangeEnd;
    bool m_usbPresent = false;
    uint32_t m_usbFreeMiB = 0;
    uint32_t m_usbTotalMiB = 0;

    std::vector<Item> m_job; // the files being copied, in order
    int m_next = 0;          // files of the job done
    ExportState m_state = ExportState::Idle;
    int m_percent = 0;
    VyPointer<ProgressDialog> m_progress; // child window while a job runs
};
