#pragma once
// A one-line text field: a text cursor, a selection, a maximum length counted in characters
// (so a multi-byte UTF-8 character is never cut), password echo, placeholder text and an
// optional validator that refuses edits making the text invalid. Digit keys type into it;
// OK or a click opens the on-screen keyboard when one is enabled.
#include <memory>
#include <string>

#include "runtime/VyString.h"
#include "toolkit/core/VyWidget.h"
#include "toolkit/widgets/VyValidator.h"

class VyKeyboard;

class VyLineEdit : public VyWidget {
    VY_OBJECT(VyLineEdit, VyWidget)
public:
    enum EchoMode { Normal, Password };
    static constexpr int kDefaultMaxLength = 32767; // characters

    explicit VyLineEdit(VyWidget* parent = nullptr);
    VyLineEdit(const VyString& text, VyWidget* parent = nullptr);
    ~VyLineEdit() override;

    VySignal textChanged;       // after every change of the text, typed or set
    VySignal returnPressed;     // OK while the keyboard is off
    VySignal keyboardRequested; // OK or a click with the on-screen keyboard on

    // Cut to the maximum length; refused (false) when the validator finds it invalid.
    bool setText(const VyString& text);
    VyString text() const { return VyString::fromUcs4(m_text); }
    int length() const { return static_cast<int>(m_text.size()); }
    // What the field shows: the text, or one echo character per character.
    VyString displayText() const;

    void setPlaceholderText(const VyString& text);
    const VyString& placeholderText() const { return m_placeholder; }
    void setEchoMode(EchoMode mode);
    EchoMode echoMode() const { return m_echoMode; }
    // Shortens the text when it is longer.
    void setMaxLength(int characters);
    int maxLength() const { return m_maxLength; }
    void setValidator(VyValidator::Kind kind) { m_validator = kind; }
    VyValidator::Kind validator() const { return m_validator; }
    bool hasAcceptableInput() const;
    void setReadOnly(bool on) { m_readOnly = on; }
    bool isReadOnly() const { return m_readOnly; }
    // Whether OK and clicks open the on-screen keyboard (on by default).
    void setKeyboardEnabled(bool on) { m_keyboardEnabled = on; }
    bool keyboardEnabled() const { return m_keyboardEnabled; }
    // Opens the on-screen keyboard on this field (what OK and a click do); it is made on first
    // use and lives as long as the field.
    void openKeyboard();
    VyKeyboard* keyboard() const { return m_keyboard.get(); }

    // Editing at the cursor, as the keys of the on-screen keyboard do. Each answers whether
    // the text changed; an edit the validator refuses changes nothing.
    bool insert(const VyString& text);
    bool backspace();
    bool del();
    int cursorPosition() const { return m_cursor; }
    void setCursorPosition(int position);
    void cursorForward(bool mark, int steps = 1);
    void cursorBackward(bool mark, int steps = 1);
    void home(bool mark);
    void end(bool mark);
    void selectAll();
    void setSelection(int start, int length);
    bool hasSelectedText() const { return m_anchor != m_cursor; }
    VyString selectedText() const;
    int selectionStart() const { return m_anchor < m_cursor ? m_anchor : m_cursor; }
    void deselect();

    // The character position nearest to x (widget coordinates).
    int positionAt(int x) const;
    int styleSlot() const;

    VySize sizeHint() const override;

protected:
    void paintEvent(VyPaintEvent* e) override;
    void keyPressEvent(VyKeyEvent* e) override;
    void mousePressEvent(VyMouseEvent* e) override;
    void mouseMoveEvent(VyMouseEvent* e) override;
    void mouseReleaseEvent(VyMouseEvent* e) override;
    void hoverEnterEvent(VyHoverEvent* e) override;
    void hoverLeaveEvent(VyHoverEvent* e) override;
    void focusInEvent(VyFocusEvent* e) override;
    void focusOutEvent(VyFocusEvent* e) override;

private:
    // Replaces the selection (or nothing) at the cursor with `text`, cut to the room left.
    bool replaceSelection(const std::u32string& text);
    bool commit(std::u32string text, int cursor);
    int fontPixelSize() const;
    int textX(int position) const; // pixels from the start of the shown text
    void moveCursor(int position, bool mark);

    std::unique_ptr<VyKeyboard> m_keyboard;
    std::u32string m_text;
    VyString m_placeholder;
    int m_cursor = 0;
    int m_anchor = 0;
    int m_maxLength = kDefaultMaxLength;
    mutable int m_scroll = 0; // pixels the text is shifted left to keep the cursor shown
    VyValidator::Kind m_validator = VyValidator::None;
    EchoMode m_echoMode = Normal;
    bool m_readOnly = false;
    bool m_keyboardEnabled = true;
    bool m_hovered = false;
    bool m_selecting = false;
};
