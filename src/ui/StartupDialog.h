#pragma once
// A modal dialog of the start-up screens: the standard message box with a title and a text
// from the catalogue, and buttons of its own added by text ID. show() leaves it open on top of
// everything (input to the windows below is blocked); exec() also waits, in a nested event
// loop, until a button ends it, and answers that button's result. Title, text and buttons
// follow language changes without being reopened.
#include <cstdint>

#include "toolkit/widgets/VyMessageBox.h"

class StartupDialog : public VyMessageBox {
    VY_OBJECT(StartupDialog, VyMessageBox)
public:
    // A text ID of 0 leaves the text empty (a dialog that composes its text sets it in
    // retranslate()).
    StartupDialog(uint32_t titleId, uint32_t textId, Icon icon = NoIcon);
    ~StartupDialog() override;
};
