#include "toolkit/widgets/VyInputDialog.h"

#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/style/VyStyle.h"
#include "toolkit/widgets/VyLabel.h"
#include "toolkit/widgets/VyLineEdit.h"
#include "toolkit/widgets/VyPushButton.h"

namespace {
// Design metrics, pixels at 1920x1080.
constexpr int kMargin = 24;
constexpr int kRowHeight = 40;
constexpr int kButtonWidth = 140;
constexpr int kButtonGap = 20;
} // namespace

VyInputDialog::VyInputDialog(VyWidget* parent)
    : VyDialog(parent)
    , m_label(new VyLabel(this))
    , m_edit(new VyLineEdit(this))
    , m_ok(new VyPushButton(VyTranslation::tr(TextId::Common::Ok), this))
    , m_cancel(new VyPushButton(VyTranslation::tr(TextId::Common::Cancel), this)) {
    for (VyWidget* w : {static_cast<VyWidget*>(m_label), static_cast<VyWidget*>(m_edit),
                        static_cast<VyWidget*>(m_ok), static_cast<VyWidget*>(m_cancel)})
        w->show();
    connect(m_ok, &m_ok->clicked, this, VY_SLOT(VyDialog, accept));
    connect(m_cancel, &m_cancel->clicked, this, VY_SLOT(VyDialog, reject));
    connect(m_edit, &m_edit->returnPressed, this, VY_SLOT(VyDialog, accept));
    place(kDesignWidth, kDesignHeight);
}

VyInputDialog::~VyInputDialog() = default;

VyString VyInputDialog::getText(const VyString& title, const VyString& label, const VyString& text,
                                bool* ok) {
    VyInputDialog dialog;
    dialog.setTitle(title);
    dialog.setLabelText(label);
    dialog.setTextValue(text);
    const bool accepted = dialog.exec() == Accepted;
    if (ok)
        *ok = accepted;
    return accepted ? dialog.textValue() : text;
}

void VyInputDialog::setLabelText(const VyString& text) {
    m_label->setText(text);
}

VyString VyInputDialog::labelText() const {
    return m_label->text();
}

void VyInputDialog::setTextValue(const VyString& text) {
    m_edit->setText(text);
}

VyString VyInputDialog::textValue() const {
    return m_edit->text();
}

void VyInputDialog::retranslate() {
    VyDialog::retranslate();
    m_ok->setText(VyTranslation::tr(TextId::Common::Ok));
    m_cancel->setText(VyTranslation::tr(TextId::Common::Cancel));
}

void VyInputDialog::resizeEvent(VyResizeEvent* e) {
    VyDialog::resizeEvent(e);
    const VyStyle* style = VyStyle::instance();
    const VyRect content = contentRect();
    const int margin = style->scaled(kMargin);
    const int row = style->scaledHeight(kRowHeight);
    const int gap = style->scaledHeight(kMargin) / 2;
    int y = content.top + style->scaledHeight(kMargin);
    m_label->setGeometry(content.left + margin, y, content.width() - 2 * margin, row);
    y += row + gap / 2;
    m_edit->setGeometry(content.left + margin, y, content.width() - 2 * margin, row);
    const int bw = style->scaled(kButtonWidth);
    const int bgap = style->scaled(kButtonGap);
    const int x = (width() - 2 * bw - bgap) / 2;
    const int by = content.bottom - style->scaledHeight(kMargin) - row + 1;
    m_ok->setGeometry(x, by, bw, row);
    m_cancel->setGeometry(x + bw + bgap, by, bw, row);
}

void VyInputDialog::showEvent(VyShowEvent* e) {
    VyDialog::showEvent(e);
    m_edit->setFocus();
}
