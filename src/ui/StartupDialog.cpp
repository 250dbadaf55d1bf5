#include "ui/StartupDialog.h"

#include "toolkit/core/EventLoop.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/i18n/VyTranslation.h"
#include "ui/DialogButton.h"
#include "ui/UiLook.h"

namespace {
// Design metrics, pixels at 1920x1080.
constexpr int kTitleHeight = 44;
constexpr int kButtonWidth = 140;
constexpr int kButtonHeight = 40;
constexpr int kButtonGap = 20;
constexpr int kMargin = 24;
} // namespace

StartupDialog::StartupDialog(uint32_t titleId, uint32_t textId)
    : VyWidget(nullptr, Dialog)
    , m_titleId(titleId)
    , m_textId(textId) {
    setAttribute(Modal);
    VyTranslation* t = VyTranslation::instance();
    connect(t, &t->languageChanged, this, VY_SLOT(StartupDialog, languageChanged));
    m_title = VyTranslation::tr(m_titleId);
    if (m_textId != 0)
        m_text = VyTranslation::tr(m_textId);
}

void StartupDialog::retranslate() {
    m_title = VyTranslation::tr(m_titleId);
    if (m_textId != 0)
        m_text = VyTranslation::tr(m_textId);
    for (DialogButton* b : m_buttons)
        b->retranslate();
}

void StartupDialog::languageChanged() {
    retranslate();
    update();
}

StartupDialog::~StartupDialog() = default;

DialogButton* StartupDialog::addButton(uint32_t textId, int result) {
    auto* b = new DialogButton(textId, this);
    b->show(); // children start hidden
    m_buttons.push_back(b);
    m_results.push_back(result);
    connect(b, &b->clicked, this, VY_SLOT(StartupDialog, buttonClicked));
    layoutButtons();
    return b;
}

void StartupDialog::place(int designWidth, int designHeight) {
    VyScreen* screen = VyApplication::instance()->screen();
    const int w = UiLook::scaledX(designWidth);
    const int h = UiLook::scaledY(designHeight);
    setGeometry((screen->width() - w) / 2, (screen->height() - h) / 2, w, h);
}

void StartupDialog::setText(const VyString& text) {
    m_text = text;
    update();
}

int StartupDialog::exec() {
    m_finished = false;
    show();
    EventLoop loop;
    m_loop = &loop;
    // done() may have run inside show(); the loop then must not start.
    if (!m_finished)
        loop.exec();
    m_loop = nullptr;
    return m_result;
}

void StartupDialog::done(int result) {
    if (m_finished)
        return;
    m_finished = true;
    m_result = result;
    hide();
    if (m_loop != nullptr)
        m_loop->quit();
    emitSignal(this, &finished);
}

void StartupDialog::buttonClicked(VyObject* sender) {
    for (size_t i = 0; i < m_buttons.size(); ++i) {
        if (m_buttons[i] == sender) {
            done(m_results[i]);
            return;
        }
    }
}

void StartupDialog::resizeEvent(VyResizeEvent*) {
    layoutButtons();
}

void StartupDialog::showEvent(VyShowEvent*) {
    // The first button answers the OK key at once.
    if (!m_buttons.empty())
        m_buttons.front()->setFocus();
}

void StartupDialog::layoutButtons() {
    const int bw = UiLook::scaledX(kButtonWidth);
    const int bh = UiLook::scaledY(kButtonHeight);
    const int gap = UiLook::scaledX(kButtonGap);
    const int n = int(m_buttons.size());
    const int total = n * bw + (n > 0 ? (n - 1) * gap : 0);
    int x = (width() - total) / 2;
    const int y = height() - UiLook::scaledY(kMargin) - bh;
    for (DialogButton* b : m_buttons) {
        b->setGeometry(x, y, bw, bh);
        x += bw + gap;
    }
}

void StartupDialog::paintEvent(VyPaintEvent*) {
    VyCanvas* c = canvas();
    if (c == nullptr)
        return;
    const UiLook& look = UiLook::instance();
    const int font = look.fontPixelSize();
    c->fillRect(rect(), look.dialogBackground);
    const int titleHeight = UiLook::scaledY(kTitleHeight);
    const VyRect title(0, 0, width(), titleHeight);
    c->fillRect(title, look.titleBackground);
    const int margin = UiLook::scaledX(kMargin);
    c->drawText(VyRect(margin, 0, width() - 2 * margin, titleHeight),
                VyCanvas::AlignLeft | VyCanvas::AlignVCenter, m_title, font, look.titleForeground);
    const int textTop = titleHeight + UiLook::scaledY(kMargin);
    const int textBottom = height() - UiLook::scaledY(kMargin + kButtonHeight + kMargin);
    c->drawText(VyRect(margin, textTop, width() - 2 * margin, textBottom - textTop),
                VyCanvas::AlignCenter, m_text, font, look.textForeground);
    // The frame last, over the title bar's edge.
    const int border = UiLook::scaledX(look.dialogBorderWidth);
    for (int i = 0; i < border; ++i)
        c->drawRect(VyRect(i, i, width() - 2 * i, height() - 2 * i), look.dialogBorder);
}
