#pragma once
// The clip and backup tool bar over the time bar, shown in clip mode and while an export
// runs: the marked clip's times, the backup button, the export's progress with its cancel
// button, and the export's last status.
#include "runtime/VyDateTime.h"
#include "toolkit/core/VyWidget.h"

class VyLabel;
class VyProgressBar;
class VyPushButton;

class BackupToolBar : public VyWidget {
    VY_OBJECT(BackupToolBar, VyWidget)
public:
    static constexpr const char* kStyleFile = "style/backuptoolbar.ini";

    explicit BackupToolBar(VyWidget* parent = nullptr);

    void setClip(const VyDateTime& start, const VyDateTime& end);
    // Shows the progress bar and cancel button while `running`, the status text otherwise.
    void setExport(bool running, int percent, const VyString& status);
    // The backup button, a child of this bar that the window counts among its controls.
    void setBackupButton(VyPushButton* button);
    VyProgressBar* progress() const { return m_progress; }
    VyPushButton* cancelButton() const { return m_cancel; }
    VyLabel* statusLabel() const { return m_status; }
    VyLabel* clipLabel() const { return m_clip; }

    VySignal cancelRequested;

protected:
    void paintEvent(VyPaintEvent* e) override;
    void resizeEvent(VyResizeEvent* e) override;

private:
    void retranslate();
    void onCancel();

    VyLabel* m_clip = nullptr;
    VyPushButton* m_backup = nullptr;
    VyProgressBar* m_progress = nullptr;
    VyPushButton* m_cancel = nullptr;
    VyLabel* m_status = nullptr;
    bool m_running = false;
    vyargb m_background = 0xFF1C1E22;
    vyargb m_border = 0xFF3C3F45;
    vyargb m_marker = 0xFFFFC800;
};
