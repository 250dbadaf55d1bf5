#pragma once
// A message with an OK button, modal over everything, that deletes itself when dismissed.
// The shutdown notice and App's other messages use it.
#include "ui/StartupDialog.h"

class MessageBox : public StartupDialog {
    VY_OBJECT(MessageBox, StartupDialog)
public:
    explicit MessageBox(const VyString& text);

    // Shows a new box; it deletes itself after OK.
    static MessageBox* information(const VyString& text);

private:
    void dismissed();
};
