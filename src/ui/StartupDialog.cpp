#include "ui/StartupDialog.h"

StartupDialog::StartupDialog(uint32_t titleId, uint32_t textId, Icon icon)
    : VyMessageBox(icon, VyString(), NoButton) {
    setTitleId(titleId);
    if (textId != 0)
        setTextId(textId);
}

StartupDialog::~StartupDialog() = default;
