#include "ui/StartupDialog.h"

StartupDialog::StartupDialog(uint32_t titleId, uint32_t textId)
    : VyMessageBox(NoIcon, VyString(), NoButton) {
    setTitleId(titleId);
    if (textId != 0)
        setTextId(textId);
}

StartupDialog::~StartupDialog() = default;
