#include "ui/maintenance/ProgressDialog.h"

#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/widgets/VyLabel.h"
#include "toolkit/widgets/VyProgressBar.h"
#include "toolkit/widgets/VyPushButton.h"
#include "ui/UiLook.h"

namespace {
// Pixels at 1920x1080.
constexpr int kDesignWidth = 640;
constexpr int kDesignHeight = 240;
constexpr int kMarginDesign = 24;
constexpr int kRowDesign = 44;
constexpr int kButtonWidthDesign = 150;
} // namespace

ProgressDialog::ProgressDialog(uint32_t titleId, bool cancellable, VyWidget* parent)
    : VyDialog(parent)
    , m_label(new VyLabel(this))
    , m_bar(new VyProgressBar(this))
    , m_cancel(cancellable ? new VyPushButton(VyTranslation::tr(TextId::Common::Cancel), this)
                           : nullptr) {
    setTitleId(titleId);
    m_bar->setRange(0, 100);
    m_bar->setTextVisible(true);
    m_label->show();
    m_bar->show();
    if (m_cancel != nullptr) {
        connect(m_cancel, &m_cancel->clicked, this, VY_SLOT(ProgressDialog, cancelClicked));
        m_cancel->show();
    }
    place(kDesignWidth, kDesignHeight);
}

void ProgressDialog::setText(const VyString& text) {
    m_label->setText(text);
}

void ProgressDialog::setPercent(int percent) {
    m_bar->setValue(percent < 0 ? 0 : percent > 100 ? 100 : percent);
}

int ProgressDialog::percent() const {
    return m_bar->value();
}

void ProgressDialog::cancelClicked() {
    if (m_cancel != nullptr)
        m_cancel->setEnabled(false); // once: App answers with the job's end
    emitSignal(this, &cancelRequested);
}

void ProgressDialog::finish() {
    m_finishing = true;
    VyDialog::done(Accepted);
}

void ProgressDialog::done(int result) {
    if (m_finishing) {
        VyDialog::done(result);
        return;
    }
    // Escape or a close from outside: only a request, the job still runs.
    if (m_cancel != nullptr && m_cancel->isEnabled())
        cancelClicked();
}

void ProgressDialog::resizeEvent(VyResizeEvent* e) {
    VyDialog::resizeEvent(e);
    const VyRect c = contentRect();
    const int m = UiLook::scaledX(kMarginDesign);
    const int row = UiLook::scaledY(kRowDesign);
    m_label->setGeometry(c.x() + m, c.y() + m / 2, c.width() - 2 * m, row);
    m_bar->setGeometry(c.x() + m, c.y() + m / 2 + row, c.width() - 2 * m, row * 2 / 3);
    if (m_cancel != nullptr) {
        const int bw = UiLook::scaledX(kButtonWidthDesign);
        m_cancel->setGeometry(c.x() + c.width() - m - bw, c.y() + c.height() - m / 2 - row, bw,
                              row);
    }
}
