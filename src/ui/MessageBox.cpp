#include "ui/MessageBox.h"

namespace {
constexpr int kDesignWidth = 560; // pixels at 1920x1080
constexpr int kDesignHeight = 240;
} // namespace

MessageBox::MessageBox(const VyString& text)
    : StartupDialog(VyString("Information"), text) {
    addButton(VyString("OK"), 1);
    place(kDesignWidth, kDesignHeight);
    connect(this, &finished, this, VY_SLOT(MessageBox, dismissed));
}

MessageBox* MessageBox::information(const VyString& text) {
    auto* box = new MessageBox(text);
    box->show();
    return box;
}

void MessageBox::dismissed() {
    deleteLater();
}
