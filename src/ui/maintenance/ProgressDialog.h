#pragma once
// The progress of a long job on the recorder (an export to the USB stick, an upgrade): a
// text, a bar and, for a job that can be stopped, Cancel. Cancel and Escape only ask the
// owner to stop (cancelRequested): the dialog stays until the owner, told by App that the job
// ended, calls finish().
#include "toolkit/widgets/VyDialog.h"

class VyLabel;
class VyProgressBar;
class VyPushButton;

class ProgressDialog : public VyDialog {
    VY_OBJECT(ProgressDialog, VyDialog)
public:
    ProgressDialog(uint32_t titleId, bool cancellable, VyWidget* parent = nullptr);

    void setText(const VyString& text);
    void setPercent(int percent);
    int percent() const;
    VyPushButton* cancelButton() const { return m_cancel; }
    VyLabel* label() const { return m_label; }
    // Closes the dialog: the job is over.
    void finish();

    VySignal cancelRequested;

    void done(int result) override;

protected:
    void resizeEvent(VyResizeEvent* e) override;

private:
    void cancelClicked();

    VyLabel* m_label;
    VyProgressBar* m_bar;
    VyPushButton* m_cancel; // null when the job cannot be stopped
    bool m_finishing = false;
};
