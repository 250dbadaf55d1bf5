#include "ui/playback/BackupToolBar.h"

#include "runtime/VyIniSettings.h"
#include "runtime/VyResources.h"
#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/widgets/VyLabel.h"
#include "toolkit/widgets/VyProgressBar.h"
#include "toolkit/widgets/VyPushButton.h"
#include "ui/UiLook.h"

#include <algorithm>

BackupToolBar::BackupToolBar(VyWidget* parent)
    : VyWidget(parent) {
    const VyIniSettings ini(VyResources::path(kStyleFile));
    const VyString s = className() + "/";
    m_background = UiLook::colourOr(ini, s + "Background", m_background);
    m_border = UiLook::colourOr(ini, s + "Border", m_border);
    m_marker = UiLook::colourOr(ini, s + "Clip/Marker", m_marker);
    m_clip = new VyLabel(this);
    m_progress = new VyProgressBar(this);
    m_cancel = new VyPushButton(this);
    m_status = new VyLabel(this);
    m_clip->show();
    m_status->show();
    connect(m_cancel, &m_cancel->clicked, this, VY_SLOT(BackupToolBar, onCancel));
    retranslate();
    VyTranslation* tr = VyTranslation::instance();
    connect(tr, &tr->languageChanged, this, VY_SLOT(BackupToolBar, retranslate));
}

void BackupToolBar::retranslate() {
    m_cancel->setText(VyTranslation::tr(TextId::Playback::CancelExport));
}

void BackupToolBar::setBackupButton(VyPushButton* button) {
    m_backup = button;
    m_backup->show();
    resizeEvent(nullptr);
}

void BackupToolBar::setClip(const VyDateTime& start, const VyDateTime& end) {
    // Times only: the clip lies inside the day the bar shows.
    VyString text = start.isValid() ? start.toString("hh:mm:ss") : VyString("--:--:--");
    text += " - ";
    text += end.isValid() ? end.toString("hh:mm:ss") : VyString("--:--:--");
    m_clip->setText(text);
}

void BackupToolBar::setExport(bool running, int percent, const VyString& status) {
    m_running = running;
    m_progress->setValue(percent);
    m_progress->setVisible(running);
    m_cancel->setVisible(running);
    m_status->setText(status);
    resizeEvent(nullptr);
}

void BackupToolBar::resizeEvent(VyResizeEvent*) {
    const int pad = UiLook::scaledX(8);
    const int h = std::max(0, height() - 2 * pad / 2);
    const int y = (height() - h) / 2;
    int x = pad;
    const int clipWidth = UiLook::scaledX(220);
    m_clip->setGeometry(x, y, clipWidth, h);
    x += clipWidth + pad;
    if (m_backup != nullptr) {
        m_backup->setGeometry(x, y, h, h);
        x += h + pad;
    }
    const int cancelWidth = UiLook::scaledX(120);
    if (m_running) {
        const int barWidth = UiLook::scaledX(260);
        m_progress->setGeometry(x, y + h / 4, barWidth, h / 2);
        x += barWidth + pad;
        m_cancel->setGeometry(x, y, cancelWidth, h);
        x += cancelWidth + pad;
    }
    m_status->setGeometry(x, y, std::max(0, width() - x - pad), h);
}

void BackupToolBar::paintEvent(VyPaintEvent*) {
    VyCanvas* c = canvas();
    c->fillRect(rect(), m_background);
    c->drawLine(0, 0, width() - 1, 0, m_border);
    // The clip's marker colour before its times, as on the time bar.
    const int side = UiLook::scaledX(4);
    c->fillRect(VyRect(0, 0, side, height()), m_marker);
}

void BackupToolBar::onCancel() {
    emitSignal(this, &cancelRequested);
}
