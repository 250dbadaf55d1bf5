#pragma once
// The settings window: a start page of category tiles, and for the category chosen its
// pages one at a time with Default, Apply, Save and Cancel below them. Colours from
// "style/settingswindow.ini".
//
// Only the page on screen exists: showing a page makes it and fetches its blocks, leaving it
// deletes it. Leaving a page with unsaved changes asks first (save, discard or stay).
// Escape goes back one level: from a page to the tiles, from the tiles out of the window;
// it works while a page waits for App, because the wait runs the event loop.
#include "ui/settings/SettingsManager.h"
#include "ui/settings/SettingsPageHost.h"

#include "toolkit/widgets/CWidget.h"

#include <functional>
#include <vector>

class SettingsPage;
class SettingsTile;
class VyLabel;
class VyPushButton;
class VyTabBar;

class SettingsWindow : public CWidget {
    VY_OBJECT(SettingsWindow, CWidget)
public:
    static constexpr const char* kStyleFile = "style/settingswindow.ini";

    enum UnsavedAnswer { SaveChanges, DiscardChanges, StayOnPage };
    using UnsavedQuestion = std::function<UnsavedAnswer()>;

    // Top-level. `manager` hands App's changes to the page on screen; it must outlive the
    // window.
    explicit SettingsWindow(SettingsManager* manager);
    ~SettingsWindow() override;

    // What to ask before unsaved changes are left behind.
    void setUnsavedQuestion(UnsavedQuestion question) { m_ask = std::move(question); }

    // Opens a category on its first page; false for a category this model does not offer.
    bool openCategory(int category);
    // Shows page `index` of the open category; false when the user chose to stay.
    bool showPage(int index);
    // Back to the tiles; false when the user chose to stay.
    bool leaveCategory();

    int category() const { return m_category; }
    int pageIndex() const { return m_pageIndex; }
    int pageCount() const { return int(m_entries.size()); }
    SettingsPage* page() const;
    const std::vector<SettingsTile*>& tiles() const { return m_tiles; }
    VyPushButton* applyButton() const { return m_apply; }
    VyPushButton* saveButton() const { return m_save; }
    VyPushButton* cancelButton() const { return m_cancel; }
    VyPushButton* defaultButton() const { return m_default; }
    VyTabBar* tabBar() const { return m_tabs; }

    // False (and a message) when the page holds a value that cannot be sent.
    bool apply();
    void save();
    void cancelEdits();
    void restoreDefaults();

protected:
    void paintEvent(VyPaintEvent* e) override;
    void resizeEvent(VyResizeEvent* e) override;
    void keyPressEvent(VyKeyEvent* e) override;
    void closeEvent(VyCloseEvent* e) override;

    // Where the page of a category goes; the tab bar lies above it.
    VyRect pageArea() const;

private:
    void tileClicked(VyObject* sender);
    // Greys the tiles of the categories the user logged in may not open.
    void followAccess();
    void applyClicked() { apply(); }
    void tabChosen();
    void pagesChanged();
    void syncTab();
    // The question asked when no other was set: a message box with Save, Don't save and
    // Cancel.
    static UnsavedAnswer askWithMessageBox();
    bool confirmLeavingPage();
    void dropPage();
    void showHome(bool home);
    void layoutButtons();

    SettingsManager* m_manager;
    UnsavedQuestion m_ask;
    std::vector<SettingsTile*> m_tiles; // children
    VyLabel* m_title;
    VyTabBar* m_tabs;
    VyPushButton* m_default;
    VyPushButton* m_apply;
    VyPushButton* m_save;
    VyPushButton* m_cancel;

    int m_category = -1; // -1: the tiles
    std::vector<SettingsManager::PageEntry> m_entries;
    int m_pageIndex = -1;
    SettingsPageHost m_host;

    vyargb m_background = 0, m_border = 0, m_pageBackground = 0, m_separator = 0;
};
