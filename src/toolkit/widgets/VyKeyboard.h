#pragma once
// The on-screen keyboard that edits a line edit: letters of the script of the interface's
// language, digits, symbols, shift, backspace, space, a script switch, confirm and cancel,
// and a Chinese mode that collects pinyin and offers characters for it in pages, chosen by a
// click, OK or their number: from an input method it asks with a ChineseInputEvent when one
// is set, else from its own pinyin table (VyPinyinTable). It is a modal window over the screen,
// worked with the mouse (click a key) or with the remote alone: the arrows move the highlight over
// the keys (wrapping at the edges), OK presses the highlighted key, digits type, Escape cancels.
// Cancel puts the text back as it was when the keyboard opened. Colours come from
// "style/keyboard.ini".
#include <string>
#include <vector>

#include "runtime/VyRect.h"
#include "runtime/VyString.h"
#include "runtime/VyStringList.h"
#include "toolkit/core/VyPointer.h"
#include "toolkit/widgets/CWidget.h"

class VyLineEdit;

class VyKeyboard : public CWidget {
    VY_OBJECT(VyKeyboard, CWidget)
public:
    static constexpr const char* kStyleFile = "style/keyboard.ini";
    static constexpr int kDesignWidth = 1040; // pixels at 1920x1080
    static constexpr int kDesignHeight = 420;

    enum Script { Latin, Cyrillic, Greek, Hebrew, Arabic, Thai, Devanagari, Hangul, Kana, Chinese };
    enum KeyKind {
        Character,
        Shift,
        Symbols,
        ScriptSwitch,
        Space,
        Backspace,
        Confirm,
        Cancel,
        Candidate,
        PreviousPage,
        NextPage
    };

    struct Key {
        KeyKind kind;
        VyString text; // what a character key types, or a function key's caption
        VyRect rect;   // in the keyboard
    };

    VyKeyboard();
    ~VyKeyboard() override;

    VySignal accepted;
    VySignal rejected;

    // The script of a language of the language table (0 chinese ... 33 slovak).
    static Script scriptForLanguage(int languageIndex);
    // The script the letters start in, and the one the script key returns to besides Latin.
    void setScript(Script script);
    Script script() const { return m_script; }

    // Opens over the screen for this line edit, remembering its text for Cancel.
    void open(VyLineEdit* target);
    VyLineEdit* target() const { return m_target.data(); }

    // Presses a key as OK or a click does.
    void activate(int keyIndex);
    const std::vector<Key>& keys() const { return m_keys; }
    int keyAt(VyPoint pos) const;
    int highlighted() const { return m_highlight; }
    void setHighlighted(int keyIndex);
    int indexOf(KeyKind kind, const VyString& text = VyString()) const;
    bool isShifted() const { return m_shift; }
    bool showsSymbols() const { return m_symbols; }

    // Chinese mode: the pinyin typed so far, the characters offered for it (shown a page at
    // a time; a digit 1 to 6 picks that one of the page).
    const VyString& pinyin() const { return m_pinyin; }
    void setCandidates(const VyStringList& candidates);
    const VyStringList& candidates() const { return m_candidates; }
    int candidatePage() const { return m_candidatePage; }
    // The object that receives a ChineseInputEvent (its param the pinyin's length) whenever
    // the pinyin changes; it reads pinyin() and answers with setCandidates.
    void setInputMethod(VyObject* inputMethod) { m_inputMethod.reset(inputMethod); }

    bool acceptsKeyFocus() const override { return true; }
    bool keyLeftRight(int key) override;
    bool keyUpDown(int key) override;
    bool keyActivate() override;

protected:
    void paintEvent(VyPaintEvent* e) override;
    void keyPressEvent(VyKeyEvent* e) override;
    void mousePressEvent(VyMouseEvent* e) override;
    void mouseReleaseEvent(VyMouseEvent* e) override;
    void mouseMoveEvent(VyMouseEvent* e) override;
    void resizeEvent(VyResizeEvent* e) override;

private:
    void readColours();
    void layoutKeys();
    void finish(bool accept);
    void typeText(const VyString& text);
    void askInputMethod();
    void setCandidatePage(int page);
    // Types the character (or pinyin) chosen and ends the pinyin.
    void choose(const VyString& text);
    // Chooses the page's character of that number; false when there is none.
    bool chooseByDigit(int digit);
    VyStringList letterRows() const;
    int moveVertically(int from, int direction) const;

    std::vector<Key> m_keys;
    VyPointer<VyLineEdit> m_target;
    VyPointer<VyObject> m_inputMethod;
    VyString m_original;
    VyString m_pinyin;
    VyStringList m_candidates;
    int m_candidatePage = 0;
    Script m_script = Latin;
    Script m_otherScript = Latin; // what the script key switches to from Latin
    int m_highlight = 0;
    int m_pressed = -1;
    bool m_shift = false;
    bool m_symbols = false;
    // Read from the keyboard's style file when first opened: background, border, key,
    // highlighted key, pressed key, key text, key border, function key.
    vyargb m_colours[8] = {};
    bool m_coloursRead = false;
};
