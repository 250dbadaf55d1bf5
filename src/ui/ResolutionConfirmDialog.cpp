#include "ui/ResolutionConfirmDialog.h"

#include "toolkit/core/VyTimer.h"

namespace {
constexpr int kDesignWidth = 620; // pixels at 1920x1080
constexpr int kDesignHeight = 260;
} // namespace

ResolutionConfirmDialog::ResolutionConfirmDialog(const VyString& resolutionName, bool noticeOnly)
    : StartupDialog(VyString("Output Resolution"), VyString())
    , m_resolution(resolutionName) {
    if (noticeOnly) {
        setText(
            VyString("The new output resolution was not kept; %1 is in use.").arg(resolutionName));
        addButton(VyString("OK"), kRevert);
    } else {
        setText(questionText());
        addButton(VyString("Keep"), kKeep);
        addButton(VyString("Revert"), kRevert);
        m_timer = new VyTimer(this);
        connect(m_timer, &m_timer->timeout, this, VY_SLOT(ResolutionConfirmDialog, countDown));
    }
    place(kDesignWidth, kDesignHeight);
}

VyString ResolutionConfirmDialog::questionText() const {
    return VyString("Keep the output resolution %1? It is reverted in %2 s.")
        .arg(m_resolution)
        .arg(m_secondsLeft);
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
    setText(questionText());
}
