#include "ui/analytics/AnalyticsWindow.h"

#include "model/DeviceProfile.h"
#include "model/RecorderLink.h"
#include "protocol/AnalyticsCap.h"
#include "runtime/VyIniSettings.h"
#include "runtime/VyLog.h"
#include "runtime/VyResources.h"
#include "toolkit/core/VySingleShotTimer.h"
#include "toolkit/events/VyKeyEvent.h"
#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/widgets/VyLabel.h"
#include "toolkit/widgets/VyTabBar.h"
#include "ui/UiLook.h"

namespace {

// Pixels at 1920x1080.
constexpr int kTitleHeightDesign = 64;
constexpr int kTabHeightDesign = 56;
constexpr int kGapDesign = 24;

} // namespace

AnalyticsWindow::AnalyticsWindow(const DeviceProfile& profile)
    : CWidget(nullptr, Window)
    , m_cap(profile.aiAnalyzeCap)
    , m_channels(AnalyticsCap::channelMask(profile.aiAnalyzeChannels, profile.channelCount)) {
    const VyIniSettings ini(VyResources::path(kStyleFile));
    m_background = UiLook::colourOr(ini, "AnalyticsWindow/Background", 0xFF1C1E22);
    m_border = UiLook::colourOr(ini, "AnalyticsWindow/Border", 0xFF464A52);
    m_pageBackground = UiLook::colourOr(ini, "AnalyticsWindow/Page/Background", 0xFF24262B);

    m_title = new VyLabel(this);
    m_title->setTextId(TextId::Analytics::Title);
    m_title->show();
    m_empty = new VyLabel(this);
    m_empty->setTextId(TextId::Analytics::NothingOffered);
    m_empty->setAlignment(VyCanvas::AlignCenter);
    m_empty->show();
    m_tabs = new VyTabBar(this);
    m_tabs->show();
    VyObject::connect(m_tabs, &m_tabs->currentChanged, this, VY_SLOT(AnalyticsWindow, tabChosen));
    // A recorder that analyses no channel has nothing to show in any application.
    if (m_channels == 0)
        m_cap = 0;
}

AnalyticsWindow::~AnalyticsWindow() = default;

bool AnalyticsWindow::addApplication(const AnalyticsApplication& application) {
    if (!application.make) {
        VY_GUI_LOG("analytics application %u has no page\n", application.titleId);
        return false;
    }
    if (application.capBit != 0 && (m_cap & application.capBit) == 0) {
        VY_GUI_LOG("analytics application %u is not offered on this model\n", application.titleId);
        return false;
    }
    m_applications.push_back(application);
    m_empty->hide();
    m_tabs->addTab(VyTranslation::tr(application.titleId));
    if (m_current < 0)
        showApplication(0);
    return true;
}

uint32_t AnalyticsWindow::applicationTitle(int index) const {
    return index >= 0 && index < applicationCount() ? m_applications[size_t(index)].titleId : 0;
}

VyRect AnalyticsWindow::pageArea() const {
    const int top = UiLook::scaledY(kTitleHeightDesign + kTabHeightDesign);
    return VyRect(0, top, width(), height() - top);
}

bool AnalyticsWindow::showApplication(int index) {
    if (index < 0 || index >= applicationCount())
        return false;
    if (index == m_current && m_page)
        return true;
    if (pageIsWaiting()) {
        // The open page is waiting for App below this call: it stays until the answer is in.
        VY_GUI_LOG("analytics tab %d not opened: App has not answered yet\n", index);
        if (m_tabs->currentIndex() != m_current && m_current >= 0)
            m_tabs->setCurrentIndex(m_current);
        return false;
    }
    if (VyWidget* old = m_page.data()) {
        // Later, not now: this may run inside a handler of the old page.
        old->hide();
        old->deleteLater();
    }
    m_page.reset();
    m_current = index;
    // Requests are nested loops, last in first out: whatever waits above this count once
    // the page exists was asked by the page (or under it).
    m_waitingBeforePage = RecorderLink::requestsWaiting();
    m_making = true; // a page's constructor may wait for App
    VyWidget* p = m_applications[size_t(index)].make(this, m_channels);
    m_making = false;
    if (p != nullptr) {
        p->setGeometry(pageArea());
        p->show();
        m_page.reset(p);
    }
    if (m_tabs->currentIndex() != index)
        m_tabs->setCurrentIndex(index);
    update();
    return true;
}

bool AnalyticsWindow::pageIsWaiting() const {
    return m_making || (m_page && RecorderLink::requestsWaiting() > m_waitingBeforePage);
}

void AnalyticsWindow::tabChosen() {
    showApplication(m_tabs->currentIndex());
}

void AnalyticsWindow::keyPressEvent(VyKeyEvent* e) {
    if (e->key() != VyKeyEvent::KeyEscape) {
        CWidget::keyPressEvent(e);
        return;
    }
    e->accept();
    m_closing = true;
    closeWhenIdle();
}

void AnalyticsWindow::closeWhenIdle() {
    if (!m_closing)
        return;
    if (!pageIsWaiting()) {
        close();
        return;
    }
    if (isVisible()) {
        hide();
        VY_GUI_LOG("analytics window hidden, closed once App has answered\n");
    }
    VySingleShotTimer::singleShot(kCloseRetryMs, this, VY_SLOT(AnalyticsWindow, closeWhenIdle));
}

void AnalyticsWindow::showAgain() {
    m_closing = false;
    show();
    raise();
}

void AnalyticsWindow::closeEvent(VyCloseEvent*) {
    deleteLater();
}

void AnalyticsWindow::resizeEvent(VyResizeEvent*) {
    layoutChildren();
}

void AnalyticsWindow::layoutChildren() {
    const int gap = UiLook::scaledX(kGapDesign);
    const int titleBottom = UiLook::scaledY(kTitleHeightDesign);
    m_title->setGeometry(gap, 0, width() - 2 * gap, titleBottom);
    m_tabs->setGeometry(gap, titleBottom + 1, width() - 2 * gap,
                        UiLook::scaledY(kTabHeightDesign) - 1);
    m_empty->setGeometry(pageArea());
    if (m_page)
        m_page->setGeometry(pageArea());
}

void AnalyticsWindow::paintEvent(VyPaintEvent*) {
    VyCanvas* c = canvas();
    c->fillRect(rect(), m_background);
    const int titleBottom = UiLook::scaledY(kTitleHeightDesign);
    c->drawLine(0, titleBottom, width() - 1, titleBottom, m_border);
    c->fillRect(pageArea(), m_pageBackground);
    c->drawRect(rect(), m_border);
}
