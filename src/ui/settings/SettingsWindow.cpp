#include "ui/settings/SettingsWindow.h"

#include "model/DeviceProfile.h"
#include "model/UserAccess.h"
#include "runtime/VyIniSettings.h"
#include "runtime/VyLog.h"
#include "runtime/VyResources.h"
#include "toolkit/events/VyKeyEvent.h"
#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/widgets/VyLabel.h"
#include "toolkit/widgets/VyMessageBox.h"
#include "toolkit/widgets/VyPushButton.h"
#include "toolkit/widgets/VyTabBar.h"
#include "ui/UiLook.h"
#include "ui/settings/SettingsPage.h"
#include "ui/settings/SettingsTile.h"

namespace {

// Pixels at 1920x1080.
constexpr int kTitleHeightDesign = 64;
constexpr int kTabHeightDesign = 56;
constexpr int kButtonRowDesign = 80;
constexpr int kButtonWidthDesign = 180;
constexpr int kButtonHeightDesign = 48;
constexpr int kTileWidthDesign = 420;
constexpr int kTileHeightDesign = 260;
constexpr int kGapDesign = 24;
constexpr int kTileColumns = 3;

} // namespace

SettingsWindow::SettingsWindow(SettingsManager* manager)
    : CWidget(nullptr, Window)
    , m_manager(manager)
    , m_ask(&SettingsWindow::askWithMessageBox) {
    const VyIniSettings ini(VyResources::path(kStyleFile));
    auto colour = [&](const char* key) { return ini.color(VyString(key)).argb(); };
    m_background = colour("SettingsWindow/Background");
    m_border = colour("SettingsWindow/Border");
    m_pageBackground = colour("SettingsWindow/Page/Background");
    m_separator = colour("SettingsWindow/Separator");

    m_title = new VyLabel(this);
    m_title->setTextId(TextId::Settings::Title);
    m_title->show();
    m_tabs = new VyTabBar(this);
    VyObject::connect(m_tabs, &m_tabs->currentChanged, this, VY_SLOT(SettingsWindow, tabChosen));
    const DeviceProfile& profile = DeviceProfile::current();
    for (int c = 0; c < SettingsManager::CategoryCount; ++c) {
        if (SettingsManager::pagesOf(c, profile).empty())
            continue;
        auto* tile = new SettingsTile(c, SettingsManager::categoryTitle(c), this);
        VyObject::connect(tile, &tile->clicked, this, VY_SLOT(SettingsWindow, tileClicked));
        m_tiles.push_back(tile);
    }
    auto button = [&](uint32_t textId, VySlot slot) {
        auto* b = new VyPushButton(VyTranslation::tr(textId), this);
        VyObject::connect(b, &b->clicked, this, slot);
        return b;
    };
    m_default = button(TextId::Settings::Default, VY_SLOT(SettingsWindow, restoreDefaults));
    m_apply = button(TextId::Settings::Apply, VY_SLOT(SettingsWindow, applyClicked));
    m_save = button(TextId::Settings::Save, VY_SLOT(SettingsWindow, save));
    m_cancel = button(TextId::Settings::Cancel, VY_SLOT(SettingsWindow, cancelEdits));
    if (UserAccess* users = UserAccess::instance())
        VyObject::connect(users, &users->userChanged, this, VY_SLOT(SettingsWindow, followAccess));
    followAccess();
    showHome(true);
}

void SettingsWindow::followAccess() {
    const UserAccess* users = UserAccess::instance();
    for (SettingsTile* t : m_tiles)
        t->setEnabled(users == nullptr || users->offers(UserRights::settingsBit(t->category())));
}

SettingsWindow::~SettingsWindow() {
    if (m_manager != nullptr)
        m_manager->setCurrentPage(nullptr);
}

SettingsPage* SettingsWindow::page() const {
    return m_host.page();
}

VyRect SettingsWindow::pageArea() const {
    const int top = UiLook::scaledY(kTitleHeightDesign + kTabHeightDesign);
    const int bottom = height() - UiLook::scaledY(kButtonRowDesign);
    return VyRect(0, top, width(), bottom - top);
}

void SettingsWindow::showHome(bool home) {
    for (SettingsTile* t : m_tiles)
        t->setVisible(home);
    for (VyPushButton* b : {m_default, m_apply, m_save, m_cancel})
        b->setVisible(!home);
    m_tabs->setVisible(!home);
    m_title->setTextId(home ? TextId::Settings::Title : SettingsManager::categoryTitle(m_category));
    if (home && !m_tiles.empty())
        m_tiles.front()->setFocus();
    update();
}

void SettingsWindow::tileClicked(VyObject* sender) {
    for (SettingsTile* t : m_tiles)
        if (t == sender)
            openCategory(t->category());
}

bool SettingsWindow::openCategory(int category) {
    static_assert(SettingsManager::CategoryCount == UserRights::kSettingsCategories,
                  "a rights bit per settings category");
    if (UserAccess* users = UserAccess::instance();
        users != nullptr && !users->ensure(UserRights::settingsBit(category)))
        return false;
    const auto entries = SettingsManager::pagesOf(category, DeviceProfile::current());
    if (entries.empty()) {
        VY_GUI_LOG("settings category %d is not offered on this model\n", category);
        return false;
    }
    if (m_category >= 0 && !leaveCategory())
        return false;
    m_category = category;
    m_entries = entries;
    m_pageIndex = -1;
    showHome(false);
    pagesChanged();
    return showPage(0);
}

bool SettingsWindow::confirmLeavingPage() {
    SettingsPage* p = m_host.page();
    if (p == nullptr || m_host.isOpening() || !p->hasUnsavedChanges())
        return true;
    const UnsavedAnswer answer = m_ask ? m_ask() : DiscardChanges;
    if (answer == StayOnPage)
        return false;
    if (answer == SaveChanges)
        return apply();
    return true;
}

void SettingsWindow::dropPage() {
    m_manager->setCurrentPage(nullptr);
    m_pageIndex = -1;
    m_host.drop();
}

bool SettingsWindow::showPage(int index) {
    if (index < 0 || index >= pageCount())
        return false;
    if (index == m_pageIndex && m_host.page())
        return true;
    if (!confirmLeavingPage())
        return false;
    dropPage();
    SettingsPage* p = m_entries[size_t(index)].make(this);
    p->setGeometry(pageArea());
    p->show();
    m_pageIndex = index;
    m_manager->setCurrentPage(p);
    syncTab();
    if (m_host.open(p, this) != SettingsPageHost::Opened)
        return false;
    p->setFocus();
    return true;
}

bool SettingsWindow::leaveCategory() {
    if (m_category < 0)
        return true;
    if (!confirmLeavingPage())
        return false;
    dropPage();
    m_category = -1;
    m_entries.clear();
    showHome(true);
    pagesChanged();
    return true;
}

bool SettingsWindow::apply() {
    SettingsPage* p = m_host.page();
    if (p == nullptr || !p->isOpened())
        return true;
    const int sent = p->apply();
    if (sent >= 0)
        return true;
    // A request App refused is explained on the page itself.
    if (sent == SettingsPage::kInvalid)
        VyMessageBox::warning(VyTranslation::tr(TextId::Settings::InvalidValue));
    return false;
}

void SettingsWindow::save() {
    if (apply())
        leaveCategory();
}

void SettingsWindow::cancelEdits() {
    if (SettingsPage* p = m_host.page(); p != nullptr && p->isOpened())
        p->cancel();
    leaveCategory();
}

void SettingsWindow::restoreDefaults() {
    if (SettingsPage* p = m_host.page())
        p->restoreDefaults();
}

SettingsWindow::UnsavedAnswer SettingsWindow::askWithMessageBox() {
    VyMessageBox box(VyMessageBox::Question, VyString(), VyMessageBox::NoButton);
    box.setTextId(TextId::Settings::UnsavedQuestion);
    box.addButton(TextId::Settings::Save, SaveChanges);
    box.addButton(TextId::Settings::DontSave, DiscardChanges);
    box.addButton(TextId::Settings::Cancel, StayOnPage);
    box.setEscapeResult(StayOnPage);
    return UnsavedAnswer(box.exec());
}

void SettingsWindow::pagesChanged() {
    // The tabs of the open category, without handing the rebuild back to tabChosen.
    VyObject::disconnect(m_tabs, &m_tabs->currentChanged, this, VY_SLOT(SettingsWindow, tabChosen));
    while (m_tabs->count() > 0)
        m_tabs->removeTab(m_tabs->count() - 1);
    for (const SettingsManager::PageEntry& e : m_entries)
        m_tabs->addTab(VyTranslation::tr(e.titleId));
    if (m_pageIndex >= 0)
        m_tabs->setCurrentIndex(m_pageIndex);
    VyObject::connect(m_tabs, &m_tabs->currentChanged, this, VY_SLOT(SettingsWindow, tabChosen));
}

void SettingsWindow::syncTab() {
    if (m_pageIndex < 0 || m_tabs->currentIndex() == m_pageIndex)
        return;
    VyObject::disconnect(m_tabs, &m_tabs->currentChanged, this, VY_SLOT(SettingsWindow, tabChosen));
    m_tabs->setCurrentIndex(m_pageIndex);
    VyObject::connect(m_tabs, &m_tabs->currentChanged, this, VY_SLOT(SettingsWindow, tabChosen));
}

void SettingsWindow::tabChosen() {
    const int wanted = m_tabs->currentIndex();
    // Showing a page waits for App, and the window may be closed meanwhile.
    VyPointer<SettingsWindow> self(this);
    if (wanted != m_pageIndex && !showPage(wanted) && self)
        syncTab(); // stayed: the tab goes back to the page on screen
}

void SettingsWindow::closeEvent(VyCloseEvent*) {
    // Closing is leaving: unsaved changes are asked about like any other way out.
    if (m_category >= 0 && !leaveCategory())
        return;
    deleteLater();
}

void SettingsWindow::keyPressEvent(VyKeyEvent* e) {
    if (e->key() != VyKeyEvent::KeyEscape) {
        CWidget::keyPressEvent(e);
        return;
    }
    e->accept();
    if (m_category >= 0)
        leaveCategory();
    else
        close();
}

void SettingsWindow::resizeEvent(VyResizeEvent*) {
    const int gap = UiLook::scaledX(kGapDesign);
    m_title->setGeometry(gap, 0, width() - 2 * gap, UiLook::scaledY(kTitleHeightDesign));
    const int tw = UiLook::scaledX(kTileWidthDesign), th = UiLook::scaledY(kTileHeightDesign);
    const int columns = std::min<int>(kTileColumns, int(m_tiles.size()));
    const int rows = (int(m_tiles.size()) + kTileColumns - 1) / kTileColumns;
    const int left = (width() - columns * tw - (columns - 1) * gap) / 2;
    const int top = (height() - rows * th - (rows - 1) * gap) / 2;
    for (size_t i = 0; i < m_tiles.size(); ++i) {
        const int col = int(i) % kTileColumns, row = int(i) / kTileColumns;
        m_tiles[i]->setGeometry(left + col * (tw + gap), top + row * (th + gap), tw, th);
    }
    layoutButtons();
    if (SettingsPage* p = m_host.page())
        p->setGeometry(pageArea());
}

void SettingsWindow::layoutButtons() {
    const int titleBottom = UiLook::scaledY(kTitleHeightDesign);
    m_tabs->setGeometry(UiLook::scaledX(kGapDesign), titleBottom + 1,
                        width() - 2 * UiLook::scaledX(kGapDesign),
                        UiLook::scaledY(kTabHeightDesign) - 1);
    const int bw = UiLook::scaledX(kButtonWidthDesign), bh = UiLook::scaledY(kButtonHeightDesign);
    const int gap = UiLook::scaledX(kGapDesign);
    const int row = UiLook::scaledY(kButtonRowDesign);
    const int y = height() - row + (row - bh) / 2;
    m_default->setGeometry(gap, y, bw, bh);
    int x = width() - gap - bw;
    for (VyPushButton* b : {m_cancel, m_save, m_apply}) {
        b->setGeometry(x, y, bw, bh);
        x -= bw + gap;
    }
}

void SettingsWindow::paintEvent(VyPaintEvent*) {
    VyCanvas* c = canvas();
    c->fillRect(rect(), m_background);
    const int titleBottom = UiLook::scaledY(kTitleHeightDesign);
    c->drawLine(0, titleBottom, width() - 1, titleBottom, m_separator);
    if (m_category >= 0) {
        c->fillRect(pageArea(), m_pageBackground);
        const int y = height() - UiLook::scaledY(kButtonRowDesign);
        c->drawLine(0, y, width() - 1, y, m_separator);
    }
    c->drawRect(rect(), m_border);
}
