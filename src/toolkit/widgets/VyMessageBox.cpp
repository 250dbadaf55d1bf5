#include "toolkit/widgets/VyMessageBox.h"

#include <algorithm>

#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/style/VyStyle.h"
#include "toolkit/style/VyTextLayout.h"
#include "toolkit/widgets/VyPushButton.h"
#include "toolkit/widgets/VyTitleBar.h"

namespace {

// Design metrics, pixels at 1920x1080.
constexpr int kButtonWidth = 140;
constexpr int kButtonHeight = 40;
constexpr int kButtonGap = 20;
constexpr int kMargin = 24;
constexpr int kIconSide = 48;

struct ButtonText {
    int button;
    uint32_t textId;
};
// The order of the row.
constexpr ButtonText kStandardButtons[] = {
    {VyMessageBox::Yes, TextId::Common::Yes},
    {VyMessageBox::No, TextId::Common::No},
    {VyMessageBox::Ok, TextId::Common::Ok},
    {VyMessageBox::Cancel, TextId::Common::Cancel},
};

uint32_t titleOf(VyMessageBox::Icon icon) {
    switch (icon) {
    case VyMessageBox::Question:
        return TextId::Common::Question;
    case VyMessageBox::Warning:
        return TextId::Common::Warning;
    default:
        return TextId::Common::Information;
    }
}

const char* imageOf(VyMessageBox::Icon icon) {
    switch (icon) {
    case VyMessageBox::Information:
        return "images/messagebox-information.png";
    case VyMessageBox::Question:
        return "images/messagebox-question.png";
    case VyMessageBox::Warning:
        return "images/messagebox-warning.png";
    default:
        return nullptr;
    }
}

} // namespace

VyMessageBox::VyMessageBox(Icon icon, const VyString& text, int buttons, VyWidget* parent)
    : VyDialog(parent)
    , m_icon(icon)
    , m_text(text) {
    setTitleId(titleOf(icon));
    if (const char* path = imageOf(icon))
        m_iconImage =
            VyStyle::instance()->imageForScale(path, VyStyle::instance()->horizontalScale());
    for (const ButtonText& b : kStandardButtons)
        if (buttons & b.button)
            addButton(b.textId, b.button);
    place(kDefaultDesignWidth, kDefaultDesignHeight);
}

VyMessageBox::~VyMessageBox() = default;

int VyMessageBox::information(const VyString& text) {
    VyMessageBox box(Information, text, Ok);
    return box.exec();
}

int VyMessageBox::question(const VyString& text, int buttons) {
    VyMessageBox box(Question, text, buttons);
    return box.exec();
}

int VyMessageBox::warning(const VyString& text, int buttons) {
    VyMessageBox box(Warning, text, buttons);
    return box.exec();
}

void VyMessageBox::setText(const VyString& text) {
    m_textId = 0;
    m_text = text;
    update();
}

void VyMessageBox::setTextId(uint32_t textId) {
    m_textId = textId;
    m_text = VyTranslation::tr(textId);
    update();
}

VyPushButton* VyMessageBox::addButton(uint32_t textId, int result) {
    auto* b = new VyPushButton(VyTranslation::tr(textId), this);
    b->show();
    m_buttons.push_back(b);
    m_buttonTextIds.push_back(textId);
    m_results.push_back(result);
    connect(b, &b->clicked, this, VY_SLOT(VyMessageBox, buttonClicked));
    layoutButtons();
    return b;
}

VyPushButton* VyMessageBox::button(StandardButton which) const {
    for (size_t i = 0; i < m_buttons.size(); ++i)
        if (m_results[i] == which)
            return m_buttons[i];
    return nullptr;
}

void VyMessageBox::setEscapeResult(int result) {
    m_escapeResult = result;
    m_escapeSet = true;
}

int VyMessageBox::escapeResult() const {
    if (m_escapeSet)
        return m_escapeResult;
    for (int which : {int(Cancel), int(No), int(Ok)})
        if (std::find(m_results.begin(), m_results.end(), which) != m_results.end())
            return which;
    return m_results.empty() ? Rejected : m_results.back();
}

void VyMessageBox::buttonClicked(VyObject* sender) {
    for (size_t i = 0; i < m_buttons.size(); ++i)
        if (m_buttons[i] == sender) {
            done(m_results[i]);
            return;
        }
}

void VyMessageBox::retranslate() {
    VyDialog::retranslate();
    if (m_textId != 0)
        m_text = VyTranslation::tr(m_textId);
    for (size_t i = 0; i < m_buttons.size(); ++i)
        m_buttons[i]->setText(VyTranslation::tr(m_buttonTextIds[i]));
}

VyRect VyMessageBox::textRect() const {
    const VyStyle* style = VyStyle::instance();
    const VyRect content = contentRect();
    const int margin = style->scaled(kMargin);
    int left = content.left + margin;
    if (!m_iconImage.isNull())
        left += std::max(m_iconImage.width(), style->scaled(kIconSide)) + margin;
    const int bottom =
        content.bottom - margin - style->scaledHeight(kButtonHeight) - style->scaledHeight(kMargin);
    return VyRect::fromEdges(left, content.top + style->scaledHeight(kMargin),
                             content.right - margin, bottom);
}

void VyMessageBox::layoutButtons() {
    const VyStyle* style = VyStyle::instance();
    const int bw = style->scaled(kButtonWidth);
    const int bh = style->scaledHeight(kButtonHeight);
    const int gap = style->scaled(kButtonGap);
    const int n = static_cast<int>(m_buttons.size());
    const int total = n * bw + (n > 0 ? (n - 1) * gap : 0);
    int x = (width() - total) / 2;
    const int y = height() - borderWidth() - style->scaledHeight(kMargin) - bh;
    for (VyPushButton* b : m_buttons) {
        b->setGeometry(x, y, bw, bh);
        x += bw + gap;
    }
}

void VyMessageBox::paintEvent(VyPaintEvent* e) {
    VyDialog::paintEvent(e);
    VyCanvas* c = canvas();
    const VyRect area = textRect();
    if (!m_iconImage.isNull()) {
        const int margin = VyStyle::instance()->scaled(kMargin);
        c->drawImage(contentRect().left + margin,
                     area.top + std::max(0, (area.height() - m_iconImage.height()) / 2),
                     m_iconImage);
    }
    if (area.isEmpty() || m_text.isEmpty())
        return;
    const int px = VyStyle::fontSize(VyStyle::instance()->option().get<VyLabelOption>().font, 0);
    const VyStringList lines = VyTextLayout::wrapped(m_text, px, area.width());
    const int lineH = VyTextLayout::lineHeight(px);
    int y = area.top + std::max(0, (area.height() - lineH * lines.size()) / 2);
    const int align = (m_iconImage.isNull() ? VyCanvas::AlignHCenter : VyCanvas::AlignLeft) |
                      VyCanvas::AlignVCenter;
    for (int i = 0; i < lines.size() && y + lineH - 1 <= area.bottom + lineH / 2; ++i, y += lineH)
        c->drawText(VyRect(area.left, y, area.width(), lineH), align, lines.at(i), px,
                    textColour());
}

void VyMessageBox::resizeEvent(VyResizeEvent* e) {
    VyDialog::resizeEvent(e);
    layoutButtons();
}

void VyMessageBox::showEvent(VyShowEvent* e) {
    VyDialog::showEvent(e);
    if (!m_buttons.empty())
        m_buttons.front()->setFocus();
}
