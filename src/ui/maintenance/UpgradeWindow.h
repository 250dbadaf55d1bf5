#pragma once
// Firmware upgrade from the USB stick: the files App found there with their versions beside
// the running one, those for another model or damaged marked and refused, a confirmation,
// the progress (it cannot be stopped once begun), and the notice before the restart or the
// reason it failed.
#include "protocol/UpgradeFile.h"
#include "toolkit/core/VyPointer.h"
#include "toolkit/widgets/VyDialog.h"
#include "ui/maintenance/ProgressDialog.h"

#include <cstdint>
#include <functional>
#include <vector>

class VyLabel;
class VyPushButton;
class VyTableWidget;
class VyTimer;

class UpgradeWindow : public VyDialog {
    VY_OBJECT(UpgradeWindow, VyDialog)
public:
    enum class State { Idle, Running, Done, Failed };
    // App is asked for the progress this often while an upgrade runs.
    static constexpr int kPollMs = 1000;
    // Asked before an upgrade starts, with the file's name; true goes ahead.
    using Confirmation = std::function<bool(const UpgradeFileEntry&)>;

    UpgradeWindow();

    void setConfirmation(Confirmation confirm) { m_confirm = std::move(confirm); }
    // Off: nothing asks App for the progress but poll() (tests drive it step by step).
    void setAutoPoll(bool on) { m_autoPoll = on; }
    // Asks App for the files on the stick.
    void refresh();
    const std::vector<UpgradeFileEntry>& files() const { return m_files; }
    // Upgrades from file `row`; false (and a message) for a file refused here, or when the
    // user did not confirm.
    bool upgrade(int row);
    // One look at App's progress (the timer's work; tests call it themselves).
    void poll();
    State state() const { return m_state; }
    VyString statusText() const;
    VyTableWidget* table() const { return m_table; }
    ProgressDialog* progressDialog() const { return m_progress.data(); }
    bool isPolling() const;

protected:
    void resizeEvent(VyResizeEvent* e) override;

private:
    static bool askWithMessageBox(const UpgradeFileEntry& file);
    void refreshClicked() { refresh(); }
    void upgradeClicked();
    void end(State state, uint32_t textId);

    Confirmation m_confirm;
    std::vector<UpgradeFileEntry> m_files;
    State m_state = State::Idle;
    bool m_autoPoll = true;
    VyLabel* m_running;
    VyTableWidget* m_table;
    VyLabel* m_status;
    VyPushButton* m_refresh;
    VyPushButton* m_upgrade;
    VyPushButton* m_close;
    VyTimer* m_timer; // child
    VyPointer<ProgressDialog> m_progress;
};
