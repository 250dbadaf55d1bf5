#include "ui/MessageBox.h"

#include "toolkit/i18n/TextId.h"

namespace {
constexpr int kDesignWidth = 560; // pixels at 1920x1080
constexpr int kDesignHeight = 240;
} // namespace

MessageBox::MessageBox(uint32_t textId)
    : StartupDialog(TextId::Common::Information, textId, Information) {
    addButton(TextId::Common::Ok, 1);
    place(kDesignWidth, kDesignHeight);
    connect(this, &finished, this, VY_SLOT(MessageBox, dismissed));
}

MessageBox* MessageBox::information(uint32_t textId) {
    auto* box = new MessageBox(textId);
    box->show();
    return box;
}

void MessageBox::dismissed() {
    deleteLater();
}
