#pragma once
// The analytics window: a title, one tab per application this recorder offers (the device
// profile's AIAnalyzeCap) and the page of the chosen tab below them. Escape closes it, and
// a closed window deletes itself.
// Colours from "style/analytics.ini".
//
// Applications join through addApplication, from AnalyticsCatalogue::applications() when
// the window layer opens the window, or directly (tests, a page that adds a sub-application).
#include "ui/analytics/AnalyticsApplication.h"

#include "toolkit/core/VyPointer.h"
#include "toolkit/widgets/CWidget.h"

#include <vector>

struct DeviceProfile;
class VyLabel;
class VyTabBar;

class AnalyticsWindow : public CWidget {
    VY_OBJECT(AnalyticsWindow, CWidget)
public:
    static constexpr const char* kStyleFile = "style/analytics.ini";

    // Top-level; the offer is fixed from `profile` now.
    explicit AnalyticsWindow(const DeviceProfile& profile);
    ~AnalyticsWindow() override;

    // Adds a tab for the application when the recorder offers it; false (and a log line)
    // when it does not or the application has no page factory.
    bool addApplication(const AnalyticsApplication& application);
    int applicationCount() const { return int(m_applications.size()); }
    // Shows the page of tab `index`; false for an index out of range.
    bool showApplication(int index);
    int currentApplication() const { return m_current; }
    uint32_t applicationTitle(int index) const;
    VyWidget* page() const { return m_page.data(); }
    VyTabBar* tabBar() const { return m_tabs; }
    // The analysed channels the pages may offer (bit n = channel n).
    uint64_t channels() const { return m_channels; }
    uint32_t offeredCap() const { return m_cap; }

    // Where a page goes, below the title and the tabs.
    VyRect pageArea() const;

    // Escape's close. A page may be waiting for App below this call (its pictures come one
    // request at a time), and closing deletes the page: the window then leaves the screen
    // at once and is closed as soon as nothing of it waits. showAgain() takes it back.
    void closeWhenIdle();
    void showAgain();
    bool isClosing() const { return m_closing; }

protected:
    void paintEvent(VyPaintEvent* e) override;
    void resizeEvent(VyResizeEvent* e) override;
    void keyPressEvent(VyKeyEvent* e) override;
    void closeEvent(VyCloseEvent* e) override;

private:
    void tabChosen();
    void layoutChildren();

    uint32_t m_cap;
    uint64_t m_channels;
    std::vector<AnalyticsApplication> m_applications;
    int m_current = -1;
    int m_waitingBeforePage = 0; // requests waiting for App when the page was made
    bool m_making = false;       // inside a page's constructor
    bool m_closing = false;      // hidden by Escape, closed once no request of it waits
    static constexpr int kCloseRetryMs = 100;
    bool pageIsWaiting() const;
    VyLabel* m_title;
    VyLabel* m_empty; // shown while no application is offered
    VyTabBar* m_tabs;
    VyPointer<VyWidget> m_page;
    vyargb m_background = 0, m_border = 0, m_pageBackground = 0;
};
