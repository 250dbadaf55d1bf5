#pragma once
// A dialog window: a frame in the colours of "style/dialog.ini" with a title bar (VyTitleBar)
// at the top, modal over everything below it. show() leaves it open; exec() also waits in a
// nested event loop until done() ends it and answers the result. Escape, the title bar's close
// button and a close from outside (the window time-out manager) reject it. A title given by
// text ID follows language changes (retranslate()).
#include <cstdint>

#include "runtime/VyString.h"
#include "toolkit/core/VyWidget.h"

class EventLoop;
class VyTitleBar;

class VyDialog : public VyWidget {
    VY_OBJECT(VyDialog, VyWidget)
public:
    static constexpr const char* kStyleFile = "style/dialog.ini";
    enum DialogCode { Rejected = 0, Accepted = 1 };

    // A dialog with a parent still is its own window; the parent owns it.
    explicit VyDialog(VyWidget* parent = nullptr);
    ~VyDialog() override;

    VySignal finished; // after done(), whatever the result
    VySignal accepted;
    VySignal rejected;

    void setTitle(const VyString& title);
    // The catalogue text `textId` as the title, fetched again on each language change.
    void setTitleId(uint32_t textId);
    VyString title() const;
    VyTitleBar* titleBar() const { return m_titleBar; }
    // Where the dialog's own controls go: inside the frame, below the title bar.
    VyRect contentRect() const;
    // Centres the dialog on the screen with a size designed for 1920x1080.
    void place(int designWidth, int designHeight);

    // Shows the dialog and runs a nested loop until done(); returns the result, or Rejected
    // when the dialog was deleted while the loop ran.
    int exec();
    // Hides the dialog, ends exec() with the result and emits finished (once per opening).
    virtual void done(int result);
    // done(Accepted) and `accepted`.
    void accept();
    // done() with rejectResult() and `rejected`: Escape, the close button and a close from
    // outside go this way.
    void reject();
    int result() const { return m_result; }
    bool isFinished() const { return m_finished; }

    // The colours the dialog draws with.
    vyargb backgroundColour() const { return m_background; }
    vyargb borderColour() const { return m_border; }
    vyargb textColour() const { return m_text; }
    int borderWidth() const;

protected:
    // Fetches the texts given by text ID in the current language; runs on each language change.
    virtual void retranslate();
    // The result of Escape, the close button and a close from outside.
    virtual int rejectResult() const { return Rejected; }

    void paintEvent(VyPaintEvent* e) override;
    void keyPressEvent(VyKeyEvent* e) override;
    void closeEvent(VyCloseEvent* e) override;
    void resizeEvent(VyResizeEvent* e) override;
    void showEvent(VyShowEvent* e) override;

private:
    void languageChanged();
    void closeClicked();

    VyTitleBar* m_titleBar; // child
    uint32_t m_titleId = 0;
    EventLoop* m_loop = nullptr;
    int m_result = Rejected;
    bool m_finished = false;
    vyargb m_background = 0xFF24262B;
    vyargb m_border = 0xFF464A52;
    vyargb m_text = 0xFFE6E8EB;
    int m_borderDesign = 1; // pixels at 1920x1080
};
