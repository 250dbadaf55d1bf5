#include "toolkit/widgets/VyDialog.h"

#include <algorithm>

#include "runtime/VyIniSettings.h"
#include "runtime/VyResources.h"
#include "toolkit/core/EventLoop.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/events/VyCloseEvent.h"
#include "toolkit/events/VyKeyEvent.h"
#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/style/VyStyle.h"
#include "toolkit/widgets/VyTitleBar.h"

namespace {

vyargb colourOr(const VyIniSettings& ini, const char* key, vyargb fallback) {
    const VyColor c = ini.color(key);
    return c.isValid() && !ini.value(key).isEmpty() ? c.argb() : fallback;
}

} // namespace

VyDialog::VyDialog(VyWidget* parent)
    : VyWidget(parent, Dialog)
    , m_titleBar(new VyTitleBar(this)) {
    setAttribute(Modal);
    const VyIniSettings ini(VyResources::path(kStyleFile));
    m_background = colourOr(ini, "Dialog/Background", m_background);
    m_border = colourOr(ini, "Dialog/Border", m_border);
    m_text = colourOr(ini, "Dialog/Text/Foreground", m_text);
    if (ini.intValue("Dialog/BorderWidth") > 0)
        m_borderDesign = ini.intValue("Dialog/BorderWidth");
    m_titleBar->show();
    connect(m_titleBar, &m_titleBar->closeClicked, this, VY_SLOT(VyDialog, closeClicked));
    VyTranslation* t = VyTranslation::instance();
    connect(t, &t->languageChanged, this, VY_SLOT(VyDialog, languageChanged));
}

VyDialog::~VyDialog() {
    if (m_loop)
        m_loop->quit();
}

void VyDialog::setTitle(const VyString& title) {
    m_titleId = 0;
    m_titleBar->setTitle(title);
}

void VyDialog::setTitleId(uint32_t textId) {
    m_titleId = textId;
    m_titleBar->setTitle(VyTranslation::tr(textId));
}

VyString VyDialog::title() const {
    return m_titleBar->title();
}

int VyDialog::borderWidth() const {
    return std::max(1, VyStyle::instance()->scaled(m_borderDesign));
}

VyRect VyDialog::contentRect() const {
    const int bw = borderWidth();
    return VyRect::fromEdges(bw, m_titleBar->geometry().bottom + 1, width() - 1 - bw,
                             height() - 1 - bw);
}

void VyDialog::place(int designWidth, int designHeight) {
    VyApplication* app = VyApplication::instance();
    VyScreen* screen = app ? app->screen() : nullptr;
    if (!screen)
        return;
    // The screen's own factors: a dialog may be placed before the style follows the screen.
    const int w =
        std::max(1, static_cast<int>(static_cast<float>(designWidth) * screen->horizontalScale()));
    const int h =
        std::max(1, static_cast<int>(static_cast<float>(designHeight) * screen->verticalScale()));
    const int sw = screen->width();
    const int sh = screen->height();
    setGeometry((sw - w) / 2, (sh - h) / 2, w, h);
}

int VyDialog::exec() {
    m_finished = false;
    VyPointer<VyDialog> self(this);
    show();
    EventLoop loop;
    m_loop = &loop;
    // done() may have run inside show(); the loop then must not start.
    if (self && !m_finished)
        loop.exec();
    // Deleted inside its own loop (its destructor ended the loop): nothing was chosen.
    if (!self)
        return Rejected;
    m_loop = nullptr;
    return m_result;
}

void VyDialog::done(int result) {
    if (m_finished)
        return;
    m_finished = true;
    m_result = result;
    hide();
    if (m_loop)
        m_loop->quit();
    emitSignal(this, &finished);
}

void VyDialog::accept() {
    if (m_finished)
        return;
    VyPointer<VyDialog> self(this);
    done(Accepted);
    if (self)
        emitSignal(this, &accepted);
}

void VyDialog::reject() {
    if (m_finished)
        return;
    VyPointer<VyDialog> self(this);
    done(rejectResult());
    if (self)
        emitSignal(this, &rejected);
}

void VyDialog::retranslate() {
    if (m_titleId != 0)
        m_titleBar->setTitle(VyTranslation::tr(m_titleId));
}

void VyDialog::languageChanged() {
    retranslate();
    update();
}

void VyDialog::closeClicked() {
    reject();
}

void VyDialog::paintEvent(VyPaintEvent*) {
    VyCanvas* c = canvas();
    c->fillRect(rect(), m_background);
    const int bw = borderWidth();
    c->setPenWidth(bw);
    c->drawRect(rect(), m_border);
    c->setPenWidth(1);
}

void VyDialog::keyPressEvent(VyKeyEvent* e) {
    if (e->key() != VyKeyEvent::KeyEscape) {
        e->ignore();
        return;
    }
    e->accept();
    reject();
}

void VyDialog::closeEvent(VyCloseEvent* e) {
    e->accept();
    if (!m_finished && isVisible())
        reject();
}

void VyDialog::resizeEvent(VyResizeEvent*) {
    const int bw = borderWidth();
    m_titleBar->setGeometry(bw, bw, std::max(0, width() - 2 * bw),
                            VyStyle::instance()->scaledHeight(VyTitleBar::kHeightDesign));
}

void VyDialog::showEvent(VyShowEvent*) {
    m_finished = false;
}
