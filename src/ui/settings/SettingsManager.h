#pragma once
// The settings window's catalogue and its link to App. Which categories and pages exist
// follows the device profile (a model without alarm inputs has no alarm-input page, one
// without FTP no FTP page, ...). While a page is open the manager holds the UiManager's
// "parameter changed" slot (event 1028) and hands each change to that page, so a page open
// here follows what another client (or another page) wrote.
#include "model/ChangeCoalescer.h"
#include "toolkit/core/VyObject.h"
#include "toolkit/core/VyPointer.h"

#include <cstdint>
#include <vector>

struct DeviceProfile;
class SettingsPage;
class SettingsWindow;
class VyWidget;

class SettingsManager : public VyObject {
    VY_OBJECT(SettingsManager, VyObject)
public:
    enum Category { Camera, Record, Alarm, Network, Storage, System, CategoryCount };

    struct PageEntry {
        uint32_t titleId;
        SettingsPage* (*make)(VyWidget* parent);
    };

    explicit SettingsManager(VyObject* parent = nullptr);
    ~SettingsManager() override;
    // The live manager (the window layer's), or null.
    static SettingsManager* instance();

    // Opens the settings window on its tiles, full screen, or answers the one open.
    SettingsWindow* openWindow();
    SettingsWindow* window() const;
    // Slot for the main view's task bar: its start button opens the settings window.
    void taskBarClicked(VyObject* taskBar);

    // The text ID of a category's tile.
    static uint32_t categoryTitle(int category);
    // The pages a category offers on this model, in tab order; empty: no tile.
    static std::vector<PageEntry> pagesOf(int category, const DeviceProfile& profile);

    // The page that receives App's changes; null when none is open. Registers for event
    // 1028 with the UiManager (when there is one) while a page is set.
    void setCurrentPage(SettingsPage* page);
    SettingsPage* currentPage() const;
    // Changes handed to a page since the manager was made.
    int refreshCount() const { return m_refreshes; }

protected:
    void customEvent(VyEvent* e) override;

private:
    // Whether the open page shows block `number`.
    bool pageHolds(uint32_t number) const;

    VyPointer<SettingsPage> m_page;
    ChangeCoalescer m_changes;          // a page refreshes one changed block at a time
    VyPointer<SettingsWindow> m_window; // top-level, deletes itself when closed
    int m_refreshes = 0;
};
