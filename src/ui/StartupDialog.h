#pragma once
// A modal dialog of the start-up screens: a framed box centred on the screen with a title
// bar, one paragraph of text and a row of buttons. show() leaves it open on top of
// everything (input to the windows below is blocked); exec() also waits, in a nested event
// loop, until a button ends it, and answers that button's result.
#include "toolkit/core/VyWidget.h"

#include <vector>

class DialogButton;
class EventLoop;

class StartupDialog : public VyWidget {
    VY_OBJECT(StartupDialog, VyWidget)
public:
    StartupDialog(const VyString& title, const VyString& text);
    ~StartupDialog() override;

    // Adds a button that ends the dialog with `result`.
    DialogButton* addButton(const VyString& text, int result);
    // Centres the dialog on the screen with the design size (pixels at 1920x1080).
    void place(int designWidth, int designHeight);

    // The dialog must outlive the call (the caller owns it).
    int exec();
    // Hides the dialog and ends exec() with the result.
    void done(int result);
    int result() const { return m_result; }
    bool isFinished() const { return m_finished; }

    const VyString& title() const { return m_title; }
    const VyString& text() const { return m_text; }
    void setText(const VyString& text);
    const std::vector<DialogButton*>& buttons() const { return m_buttons; }
    VySignal finished;

protected:
    void paintEvent(VyPaintEvent* e) override;
    void resizeEvent(VyResizeEvent* e) override;
    void showEvent(VyShowEvent* e) override;

private:
    void buttonClicked(VyObject* sender);
    void layoutButtons();

    VyString m_title;
    VyString m_text;
    std::vector<DialogButton*> m_buttons; // children
    std::vector<int> m_results;
    EventLoop* m_loop = nullptr;
    int m_result = 0;
    bool m_finished = false;
};
