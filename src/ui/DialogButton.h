#pragma once
// The push button of the start-up dialogs: a framed label that emits `clicked` on a left
// release inside it or on the OK key while it has the focus.
#include "toolkit/core/VyWidget.h"

class DialogButton : public VyWidget {
    VY_OBJECT(DialogButton, VyWidget)
public:
    DialogButton(const VyString& text, VyWidget* parent);

    const VyString& text() const { return m_text; }
    VySignal clicked;

protected:
    void paintEvent(VyPaintEvent* e) override;
    void mousePressEvent(VyMouseEvent* e) override;
    void mouseReleaseEvent(VyMouseEvent* e) override;
    void keyPressEvent(VyKeyEvent* e) override;

private:
    VyString m_text;
    bool m_pressed = false;
};
