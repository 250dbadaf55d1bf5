#include "ui/WizardWindow.h"

#include "model/DeviceProfile.h"
#include "model/ParamAccess.h"
#include "model/SettingsBlockSet.h"
#include "protocol/GeneralSettingsBlock.h"
#include "runtime/VyIniSettings.h"
#include "runtime/VyLog.h"
#include "runtime/VyResources.h"
#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/style/VyTextLayout.h"
#include "toolkit/widgets/VyCheckBox.h"
#include "toolkit/widgets/VyMessageBox.h"
#include "toolkit/widgets/VyPushButton.h"
#include "ui/UiLook.h"
#include "ui/settings/CameraPage.h"
#include "ui/settings/DateTimePage.h"
#include "ui/settings/GeneralPage.h"
#include "ui/settings/NetworkPage.h"
#include "ui/settings/RecordParamPage.h"
#include "ui/settings/SettingsManager.h"
#include "ui/settings/StoragePage.h"
#include "ui/users/AdminPasswordPage.h"

#include <algorithm>
#include <cstring>

namespace {

// Pixels at 1920x1080.
constexpr int kDesignWidth = 1100;
constexpr int kDesignHeight = 800;
constexpr int kStepStripDesign = 48;
constexpr int kFooterDesign = 72;
constexpr int kButtonWidthDesign = 210;
constexpr int kButtonHeightDesign = 44;
constexpr int kCheckWidthDesign = 320;
constexpr int kGapDesign = 16;
constexpr int kStepGapDesign = 4;

template <typename Page>
SettingsPage* makePage(VyWidget* parent) {
    return new Page(parent);
}

} // namespace

std::vector<WizardWindow::Step> WizardWindow::steps(const DeviceProfile& profile) {
    std::vector<Step> s;
    s.push_back({TextId::Settings::Language, &makePage<GeneralPage>});
    s.push_back({TextId::User::AdminPassword, &makePage<AdminPasswordPage>});
    s.push_back({TextId::Settings::DateTime, &makePage<DateTimePage>});
    s.push_back({TextId::Settings::Network, &makePage<NetworkPage>});
    // A disk may need formatting before anything records; the storage page asks first.
    if (profile.maxDiskNum > 0)
        s.push_back({TextId::Settings::Storage, &makePage<StoragePage>});
    if (profile.channelCount > 0) {
        s.push_back({TextId::Settings::Camera, &makePage<CameraPage>});
        s.push_back({TextId::Settings::Record, &makePage<RecordParamPage>});
    }
    return s;
}

WizardWindow::WizardWindow()
    : m_steps(steps(DeviceProfile::current())) {
    setTitleId(TextId::Wizard::Title);
    const VyIniSettings ini(VyResources::path(kStyleFile));
    m_background = UiLook::colourOr(ini, "Wizard/Background", backgroundColour());
    m_border = UiLook::colourOr(ini, "Wizard/Border", borderColour());
    m_footer = UiLook::colourOr(ini, "Wizard/Footer/Background", m_background);
    m_stepDone = UiLook::colourOr(ini, "Wizard/Step/Done", 0xFF0096DC);
    m_stepCurrent = UiLook::colourOr(ini, "Wizard/Step/Current", 0xFFFFFFFF);
    m_stepTodo = UiLook::colourOr(ini, "Wizard/Step/Todo", 0xFF5A606A);

    m_doNotShow = new VyCheckBox(this);
    auto button = [&](VySlot slot) {
        auto* b = new VyPushButton(this);
        connect(b, &b->clicked, this, slot);
        return b;
    };
    m_back = button(VY_SLOT(WizardWindow, back));
    m_skip = button(VY_SLOT(WizardWindow, skip));
    m_next = button(VY_SLOT(WizardWindow, nextClicked));
    m_finish = button(VY_SLOT(WizardWindow, finishClicked));
    for (VyWidget* w : {static_cast<VyWidget*>(m_doNotShow), static_cast<VyWidget*>(m_back),
                        static_cast<VyWidget*>(m_skip), static_cast<VyWidget*>(m_next),
                        static_cast<VyWidget*>(m_finish)})
        w->show();
    retranslate();
    place(kDesignWidth, kDesignHeight);
    syncButtons();
}

WizardWindow::~WizardWindow() {
    if (SettingsManager* settings = SettingsManager::instance();
        settings != nullptr && m_host.page() && settings->currentPage() == m_host.page())
        settings->setCurrentPage(nullptr);
}

WizardWindow* WizardWindow::create() {
    auto* w = new WizardWindow;
    connect(w, &w->finished, w, VY_SLOT(VyObject, deleteLater));
    w->show();
    return w;
}

WizardWindow* WizardWindow::open() {
    VyPointer<WizardWindow> w(create());
    w->start();
    return w.data();
}

void WizardWindow::start() {
    VyPointer<WizardWindow> self(this);
    // On the stack, not in the wizard: the wait runs the event loop, and the wizard may be
    // closed and deleted before App answers.
    SettingsBlockSet general;
    const int slot = general.declare<GeneralSettingsBlock>();
    general.fetchAll();
    if (!self || isFinished())
        return;
    m_generalRead = true;
    m_general = general.savedAs<GeneralSettingsBlock>(slot);
    m_doNotShow->setChecked(m_general.wizardEnabled == 0);
    showStep(0);
}

SettingsPage* WizardWindow::page() const {
    return m_host.page();
}

void WizardWindow::retranslate() {
    VyDialog::retranslate();
    m_doNotShow->setText(VyTranslation::tr(TextId::Wizard::DoNotShowAgain));
    m_back->setText(VyTranslation::tr(TextId::Wizard::Back));
    m_skip->setText(VyTranslation::tr(TextId::Wizard::Skip));
    m_next->setText(VyTranslation::tr(TextId::Wizard::Next));
    m_finish->setText(VyTranslation::tr(TextId::Wizard::Finish));
}

void WizardWindow::dropPage() {
    SettingsPage* p = m_host.page();
    if (SettingsManager* settings = SettingsManager::instance();
        settings != nullptr && p != nullptr && settings->currentPage() == p)
        settings->setCurrentPage(nullptr);
    m_host.drop();
}

bool WizardWindow::showStep(int index) {
    if (index < 0 || index >= stepCount() || isFinished())
        return false;
    dropPage();
    m_index = index;
    syncButtons();
    update();
    SettingsPage* p = m_steps[size_t(index)].make(this);
    p->setGeometry(pageArea());
    p->show();
    // Not handed App's "parameter changed" as the settings window's page is: a refresh waits
    // for App, and a wizard closed meanwhile would delete the page under that wait.
    VY_GUI_LOG("wizard step %d of %d\n", index + 1, stepCount());
    const SettingsPageHost::OpenResult opened = m_host.open(p, this);
    if (opened == SettingsPageHost::OwnerGone)
        return false;
    if (m_closeAfterOpen) {
        m_closeAfterOpen = false;
        done(m_closeResult);
        return false;
    }
    if (opened == SettingsPageHost::Left)
        return false;
    p->setFocus();
    return true;
}

bool WizardWindow::next() {
    SettingsPage* p = m_host.page();
    if (p == nullptr || m_host.isOpening() || !applyPage(p))
        return false;
    if (m_index + 1 >= stepCount()) {
        done(Accepted);
        return true;
    }
    return showStep(m_index + 1);
}

void WizardWindow::skip() {
    if (m_host.isOpening())
        return;
    if (m_index + 1 >= stepCount())
        done(Accepted);
    else
        showStep(m_index + 1);
}

void WizardWindow::back() {
    if (!m_host.isOpening() && m_index > 0)
        showStep(m_index - 1);
}

bool WizardWindow::finish() {
    SettingsPage* p = m_host.page();
    if (p != nullptr && !m_host.isOpening() && !applyPage(p))
        return false;
    done(Accepted);
    return true;
}

bool WizardWindow::applyPage(SettingsPage* page) {
    if (!page->isOpened())
        return true;
    // A page's own requests wait for App: the wizard or the page may be gone after.
    VyPointer<WizardWindow> self(this);
    VyPointer<SettingsPage> alive(page);
    const int sent = page->apply();
    if (!self || !alive || isFinished())
        return false;
    if (sent == SettingsPage::kInvalid)
        VyMessageBox::warning(VyTranslation::tr(TextId::Settings::InvalidValue));
    if (sent < 0)
        return false;
    keepGeneralCopy(page);
    return true;
}

void WizardWindow::done(int result) {
    if (isFinished())
        return;
    if (m_host.isOpening()) {
        // The step's page still waits for App inside its open(): neither it nor the wizard
        // that owns it may be deleted under that wait. Out of sight now, closed right after.
        m_closeAfterOpen = true;
        m_closeResult = result;
        if (SettingsPage* p = m_host.page())
            p->abandon();
        hide();
        return;
    }
    dropPage();
    // A one-way set of the copy held: nothing here may wait for App, since closing is
    // handled inside a key or a click that must not find the wizard gone when it returns.
    const uint8_t enabled = m_doNotShow->isChecked() ? 0 : 1;
    if (m_generalRead && m_general.wizardEnabled != enabled) {
        m_general.wizardEnabled = enabled;
        ParamAccess::setParam(GeneralSettingsBlock::kBlockNumber, &m_general, sizeof m_general);
        VY_GUI_LOG("start-up wizard %s at start\n", enabled ? "shown" : "not shown");
    }
    VY_GUI_LOG("start-up wizard closed at step %d of %d\n", m_index + 1, stepCount());
    VyDialog::done(result);
}

void WizardWindow::keepGeneralCopy(SettingsPage* page) {
    // The language step writes block 21 as well: the switch goes out with what it wrote.
    SettingsBlockSet& set = page->blocks();
    for (int i = 0; i < set.count(); ++i) {
        const SettingsBlockSet::Block& b = set.block(i);
        if (b.number == GeneralSettingsBlock::kBlockNumber && b.edit.size() == sizeof m_general)
            std::memcpy(&m_general, b.edit.data(), sizeof m_general);
    }
}

void WizardWindow::syncButtons() {
    const bool last = m_index + 1 >= stepCount();
    m_back->setEnabled(m_index > 0);
    m_next->setVisible(!last);
    m_finish->setVisible(last);
}

VyRect WizardWindow::stepStripRect() const {
    const VyRect c = contentRect();
    return VyRect(c.x(), c.y(), c.width(), UiLook::scaledY(kStepStripDesign));
}

VyRect WizardWindow::footerRect() const {
    const VyRect c = contentRect();
    const int h = UiLook::scaledY(kFooterDesign);
    return VyRect(c.x(), c.y() + c.height() - h, c.width(), h);
}

VyRect WizardWindow::pageArea() const {
    const VyRect strip = stepStripRect();
    const int top = strip.y() + strip.height();
    return VyRect(strip.x(), top, strip.width(), footerRect().y() - top);
}

void WizardWindow::resizeEvent(VyResizeEvent* e) {
    VyDialog::resizeEvent(e);
    const VyRect f = footerRect();
    const int gap = UiLook::scaledX(kGapDesign);
    const int bw = UiLook::scaledX(kButtonWidthDesign), bh = UiLook::scaledY(kButtonHeightDesign);
    const int y = f.y() + (f.height() - bh) / 2;
    m_doNotShow->setGeometry(f.x() + gap, y, UiLook::scaledX(kCheckWidthDesign), bh);
    // Next and Finish share the right-most place: only one of them is shown.
    int x = f.x() + f.width() - gap - bw;
    m_next->setGeometry(x, y, bw, bh);
    m_finish->setGeometry(x, y, bw, bh);
    for (VyPushButton* b : {m_skip, m_back}) {
        x -= bw + gap;
        b->setGeometry(x, y, bw, bh);
    }
    if (SettingsPage* p = m_host.page())
        p->setGeometry(pageArea());
}

void WizardWindow::paintEvent(VyPaintEvent* e) {
    VyDialog::paintEvent(e);
    VyCanvas* c = canvas();
    const VyRect content = contentRect();
    c->fillRect(content, m_background);
    c->fillRect(footerRect(), m_footer);
    const VyRect strip = stepStripRect();
    c->drawLine(strip.x(), strip.y() + strip.height() - 1, strip.x() + strip.width() - 1,
                strip.y() + strip.height() - 1, m_border);
    if (m_steps.empty())
        return;
    // One cell per step, numbered; done steps, the current one and those ahead in their colours.
    const int n = stepCount();
    const int cell = strip.width() / n;
    const int font = UiLook::instance().fontPixelSize();
    for (int i = 0; i < n; ++i) {
        const vyargb colour = i < m_index ? m_stepDone : i == m_index ? m_stepCurrent : m_stepTodo;
        // Seven steps share the strip: a long title (or translation) is cut short, not
        // drawn over its neighbours.
        const int gap = UiLook::scaledX(kStepGapDesign);
        const VyString text = VyTextLayout::elided(
            VyString::number(i + 1) + ". " + VyTranslation::tr(m_steps[size_t(i)].titleId), font,
            cell - 2 * gap);
        c->drawText(VyRect(strip.x() + i * cell + gap, strip.y(), cell - 2 * gap, strip.height()),
                    VyCanvas::AlignCenter, text, font, colour);
    }
}
