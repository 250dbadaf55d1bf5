#pragma once
// The push button of the start-up dialogs: a framed label that emits `clicked` on a left
// release inside it or on the OK key while it has the focus. The key navigation stops on it
// like on any button.
#include "toolkit/widgets/CWidget.h"

#include <cstdint>

class DialogButton : public CWidget {
    VY_OBJECT(DialogButton, CWidget)
public:
    // Labelled with the catalogue text `textId`.
    DialogButton(uint32_t textId, VyWidget* parent);

    const VyString& text() const { return m_text; }
    uint32_t textId() const { return m_textId; }
    // Fetches the label again in the current language and repaints.
    void retranslate();
    VySignal clicked;

    bool acceptsKeyFocus() const override { return true; }
    // OK: clicked.
    bool keyActivate() override;

protected:
    void paintEvent(VyPaintEvent* e) override;
    void mousePressEvent(VyMouseEvent* e) override;
    void mouseReleaseEvent(VyMouseEvent* e) override;

private:
    uint32_t m_textId;
    VyString m_text;
    bool m_pressed = false;
};
