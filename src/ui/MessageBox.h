#pragma once
// A message with an OK button, modal over everything, that deletes itself when dismissed.
// The shutdown notice and App's other messages use it.
#include "ui/StartupDialog.h"

class MessageBox : public StartupDialog {
    VY_OBJECT(MessageBox, StartupDialog)
public:
    // The message is the catalogue text `textId`.
    explicit MessageBox(uint32_t textId);

    // Shows a new box; it deletes itself after OK.
    static MessageBox* information(uint32_t textId);

private:
    void dismissed();
};
