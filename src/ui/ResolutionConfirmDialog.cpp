#include "ui/ResolutionConfirmDialog.h"

#include "toolkit/core/VyTimer.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"

namespace {
constexpr int kDesignWidth = 620; // pixels at 1920x1080
constexpr int kDesignHeight = 260;
} // namespace

ResolutionConfirmDialog::ResolutionConfirmDialog(const VyString& resolutionName, bool noticeOnly)
    : StartupDialog(TextId::Resolution::Title, 0)
    , m_resolution(resolutionName)
    , m_noticeOnly(noticeOnly) {
    setText(composedText());
    if (noticeOnly) {
        addButton(TextId::Common::Ok, kRevert);
    } else {
        addButton(TextId::Common::Keep, kKeep);
        addButton(TextId::Common::Revert, kRevert);
        m_timer = new VyTimer(this);
        connect(m_timer, &m_timer->timeout, this, VY_SLOT(ResolutionConfirmDialog, countDown));
    }
    // Escape, the close button and the menu time-out keep nothing.
    setEscapeResult(kRevert);
    place(kDesignWidth, kDesignHeight);
}

VyString ResolutionConfirmDialog::composedText() const {
    if (m_noticeOnly)
        return VyTranslation::tr(TextId::Resolution::NotKept).arg(m_resolution);
    return VyTranslation::tr(TextId::Resolution::KeepQuestion).arg(m_resolution).arg(m_secondsLeft);
}

void ResolutionConfirmDialog::retranslate() {
    StartupDialog::retranslate();
    setText(composedText());
}

int ResolutionConfirmDialog::run() {
    if (m_timer != nullptr)
        m_timer->start(m_secondMs);
    const int r = exec();
    if (m_timer != nullptr)
        m_timer->stop();
    return r;
}

void ResolutionConfirmDialog::countDown() {
    if (--m_secondsLeft <= 0) {
        done(kRevert);
        return;
    }
    setText(composedText());
}
