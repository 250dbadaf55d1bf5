#pragma once
// A modal dialog of the start-up screens: a framed box centred on the screen with a title
// bar, one paragraph of text and a row of buttons. show() leaves it open on top of
// everything (input to the windows below is blocked); exec() also waits, in a nested event
// loop, until a button ends it, and answers that button's result.
//
// Title, text and buttons are catalogue texts kept by text ID: when the language changes the
// dialog fetches them again (retranslate) and repaints, without being reopened.
#include "toolkit/core/VyWidget.h"

#include <cstdint>
#include <vector>

class DialogButton;
class EventLoop;

class StartupDialog : public VyWidget {
    VY_OBJECT(StartupDialog, VyWidget)
public:
    // A text ID of 0 leaves the text empty (a dialog that composes its text sets it in
    // retranslate()).
    StartupDialog(uint32_t titleId, uint32_t textId);
    ~StartupDialog() override;

    // Adds a button labelled with the catalogue text `textId` that ends the dialog with
    // `result`.
    DialogButton* addButton(uint32_t textId, int result);
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
    // Fetches the title, the text and the button labels in the current language; dialogs
    // with composed texts extend it. Runs at construction and on every language change.
    virtual void retranslate();

    void paintEvent(VyPaintEvent* e) override;
    void resizeEvent(VyResizeEvent* e) override;
    void showEvent(VyShowEvent* e) override;

private:
    void buttonClicked(VyObject* sender);
    void languageChanged();
    void layoutButtons();

    uint32_t m_titleId;
    uint32_t m_textId;
    VyString m_title;
    VyString m_text;
    std::vector<DialogButton*> m_buttons; // children
    std::vector<int> m_results;
    EventLoop* m_loop = nullptr;
    int m_result = 0;
    bool m_finished = false;
};
