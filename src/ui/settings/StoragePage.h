#pragma once
// The disks: each one's capacity and free space, state and health as App reports them, the
// overwrite policy, and formatting the disks ticked, after a confirmation, with its progress
// shown as App reports it. Holds block 49.
#include "ui/settings/SettingsPage.h"

#include <functional>
#include <vector>

class VyCheckBox;
class VyLabel;
class VyProgressBar;
class VyPushButton;

class StoragePage : public SettingsPage {
    VY_OBJECT(StoragePage, SettingsPage)
public:
    explicit StoragePage(VyWidget* parent = nullptr);

    struct DiskRow {
        VyCheckBox* select; // ticked: format this disk
        VyLabel* space;
        VyLabel* state;
        VyLabel* health;
        VyProgressBar* progress; // shown while the disk is formatted
    };
    int diskRowCount() const { return int(m_rows.size()); }
    const DiskRow& diskRow(int disk) const { return m_rows[size_t(disk)]; }
    VyCheckBox* overwriteBox() const { return m_overwrite; }
    VyPushButton* formatButton() const { return m_format; }

    // Asked before formatting; true goes ahead. The window puts its question dialog here.
    void setFormatConfirmation(std::function<bool()> confirm) { m_confirm = std::move(confirm); }
    // Formats the ticked disks after the confirmation: the request goes to App at once,
    // with the page's other changes. False when nothing was ticked or the user declined.
    bool formatSelected();

protected:
    void showValues() override;
    void collectValues() override;
    void opened() override;
    void resizeEvent(VyResizeEvent* e) override;

private:
    void formatClicked() { formatSelected(); }

    int m_slot;
    VyCheckBox* m_overwrite;
    VyPushButton* m_format;
    std::vector<DiskRow> m_rows;
    std::function<bool()> m_confirm;
};
