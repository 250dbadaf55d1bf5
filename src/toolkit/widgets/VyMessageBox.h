#pragma once
// A message box: an icon (information, question or warning), a text wrapped to the box, and a
// row of standard buttons whose texts come from the catalogue in the current language. exec()
// answers the button that ended it (a StandardButton); Escape, the close button and a close
// from outside answer the escape button (Cancel, else No, else Ok). The first button has the
// focus when the box opens. Texts given by text ID follow language changes.
#include <cstdint>
#include <vector>

#include "runtime/VyBitmap.h"
#include "toolkit/widgets/VyDialog.h"

class VyPushButton;

class VyMessageBox : public VyDialog {
    VY_OBJECT(VyMessageBox, VyDialog)
public:
    enum Icon { NoIcon, Information, Question, Warning };
    enum StandardButton { NoButton = 0, Ok = 1, Cancel = 2, Yes = 4, No = 8 };
    static constexpr int kDefaultDesignWidth = 560; // pixels at 1920x1080
    static constexpr int kDefaultDesignHeight = 260;

    // `buttons` is an OR of StandardButton, shown in the order Yes, No, Ok, Cancel.
    VyMessageBox(Icon icon, const VyString& text, int buttons = Ok, VyWidget* parent = nullptr);
    ~VyMessageBox() override;

    // Opens a box, waits in a nested loop and answers the button.
    static int information(const VyString& text);
    static int question(const VyString& text, int buttons = Yes | No);
    static int warning(const VyString& text, int buttons = Ok);

    Icon icon() const { return m_icon; }
    void setText(const VyString& text);
    // The catalogue text `textId` as the message, fetched again on each language change.
    void setTextId(uint32_t textId);
    const VyString& text() const { return m_text; }
    // Adds a button of the owner's with a catalogue text; it ends the box with `result`.
    VyPushButton* addButton(uint32_t textId, int result);
    VyPushButton* button(StandardButton which) const;
    const std::vector<VyPushButton*>& buttons() const { return m_buttons; }
    int escapeResult() const;
    // Overrides the escape button's result (a box whose own buttons' results are not
    // StandardButtons says what Escape means).
    void setEscapeResult(int result);

protected:
    void retranslate() override;
    int rejectResult() const override { return escapeResult(); }
    void paintEvent(VyPaintEvent* e) override;
    void resizeEvent(VyResizeEvent* e) override;
    void showEvent(VyShowEvent* e) override;

private:
    void buttonClicked(VyObject* sender);
    void layoutButtons();
    VyRect textRect() const;

    Icon m_icon;
    VyBitmap m_iconImage;
    VyString m_text;
    uint32_t m_textId = 0;
    std::vector<VyPushButton*> m_buttons; // children
    std::vector<uint32_t> m_buttonTextIds;
    std::vector<int> m_results;
    int m_escapeResult = 0;
    bool m_escapeSet = false;
};
