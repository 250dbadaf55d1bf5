#include "toolkit/widgets/VyKeyboard.h"

#include <algorithm>
#include <cstdlib>
#include <memory>

#include "runtime/VyIniSettings.h"
#include "runtime/VyResources.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/events/ChineseInputEvent.h"
#include "toolkit/events/VyKeyEvent.h"
#include "toolkit/events/VyMouseEvent.h"
#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/style/VyStyle.h"
#include "toolkit/style/VyStyleDefaults.h"
#include "toolkit/style/VyTextLayout.h"
#include "toolkit/widgets/VyLineEdit.h"
#include "toolkit/widgets/VyPinyinTable.h"

namespace {

// Three letter rows per script, lower case then upper case (scripts without case repeat).
struct ScriptRows {
    const char* name; // the script key's caption
    const char* lower[3];
    const char* upper[3];
};

const ScriptRows kScripts[] = {
    {"ABC", {"qwertyuiop", "asdfghjkl", "zxcvbnm"}, {"QWERTYUIOP", "ASDFGHJKL", "ZXCVBNM"}},
    {"\xD0\x90\xD0\x91\xD0\x92",
     {"\xD0\xB9\xD1\x86\xD1\x83\xD0\xBA\xD0\xB5\xD0\xBD\xD0\xB3\xD1\x88\xD1\x89\xD0\xB7\xD1\x85",
      "\xD1\x84\xD1\x8B\xD0\xB2\xD0\xB0\xD0\xBF\xD1\x80\xD0\xBE\xD0\xBB\xD0\xB4\xD0\xB6\xD1\x8D",
      "\xD1\x8F\xD1\x87\xD1\x81\xD0\xBC\xD0\xB8\xD1\x82\xD1\x8C\xD0\xB1\xD1\x8E\xD1\x8A\xD1\x96"},
     {"\xD0\x99\xD0\xA6\xD0\xA3\xD0\x9A\xD0\x95\xD0\x9D\xD0\x93\xD0\xA8\xD0\xA9\xD0\x97\xD0\xA5",
      "\xD0\xA4\xD0\xAB\xD0\x92\xD0\x90\xD0\x9F\xD0\xA0\xD0\x9E\xD0\x9B\xD0\x94\xD0\x96\xD0\xAD",
      "\xD0\xAF\xD0\xA7\xD0\xA1\xD0\x9C\xD0\x98\xD0\xA2\xD0\xAC\xD0\x91\xD0\xAE\xD0\xAA\xD0\x86"}},
    {"\xCE\x91\xCE\x92\xCE\x93",
     {"\xCF\x82\xCE\xB5\xCF\x81\xCF\x84\xCF\x85\xCE\xB8\xCE\xB9\xCE\xBF\xCF\x80",
      "\xCE\xB1\xCF\x83\xCE\xB4\xCF\x86\xCE\xB3\xCE\xB7\xCE\xBE\xCE\xBA\xCE\xBB",
      "\xCE\xB6\xCF\x87\xCF\x88\xCF\x89\xCE\xB2\xCE\xBD\xCE\xBC"},
     {"\xCF\x82\xCE\x95\xCE\xA1\xCE\xA4\xCE\xA5\xCE\x98\xCE\x99\xCE\x9F\xCE\xA0",
      "\xCE\x91\xCE\xA3\xCE\x94\xCE\xA6\xCE\x93\xCE\x97\xCE\x9E\xCE\x9A\xCE\x9B",
      "\xCE\x96\xCE\xA7\xCE\xA8\xCE\xA9\xCE\x92\xCE\x9D\xCE\x9C"}},
    {"\xD7\x90\xD7\x91\xD7\x92",
     {"\xD7\xA7\xD7\xA8\xD7\x90\xD7\x98\xD7\x95\xD7\x9F\xD7\x9D\xD7\xA4",
      "\xD7\xA9\xD7\x93\xD7\x92\xD7\x9B\xD7\xA2\xD7\x99\xD7\x97\xD7\x9C\xD7\x9A\xD7\xA3",
      "\xD7\x96\xD7\xA1\xD7\x91\xD7\x94\xD7\xA0\xD7\x9E\xD7\xA6\xD7\xAA\xD7\xA5"},
     {nullptr, nullptr, nullptr}},
    {"\xD8\xA3\xD8\xA8\xD8\xAC",
     {"\xD8\xB6\xD8\xB5\xD8\xAB\xD9\x82\xD9\x81\xD8\xBA\xD8\xB9\xD9\x87\xD8\xAE\xD8\xAD\xD8\xAC",
      "\xD8\xB4\xD8\xB3\xD9\x8A\xD8\xA8\xD9\x84\xD8\xA7\xD8\xAA\xD9\x86\xD9\x85\xD9\x83\xD8\xB7",
      "\xD8\xA6\xD8\xA1\xD8\xA4\xD8\xB1\xD9\x89\xD8\xA9\xD9\x88\xD8\xB2\xD8\xB8\xD9\xBE\xDA\xAF"},
     {nullptr, nullptr, nullptr}},
    {"\xE0\xB8\x81\xE0\xB8\x82\xE0\xB8\x84",
     {"\xE0\xB9\x86\xE0\xB9\x84\xE0\xB8\xB3\xE0\xB8\x9E\xE0\xB8\xB0\xE0\xB8\xB1\xE0\xB8\xB5\xE0\xB8"
      "\xA3\xE0\xB8\x99\xE0\xB8\xA2\xE0\xB8\x9A",
      "\xE0\xB8\x9F\xE0\xB8\xAB\xE0\xB8\x81\xE0\xB8\x94\xE0\xB9\x80\xE0\xB9\x89\xE0\xB9\x88\xE0\xB8"
      "\xB2\xE0\xB8\xAA\xE0\xB8\xA7\xE0\xB8\x87",
      "\xE0\xB8\x9C\xE0\xB8\x9B\xE0\xB9\x81\xE0\xB8\xAD\xE0\xB8\xB4\xE0\xB8\xB7\xE0\xB8\x97\xE0\xB8"
      "\xA1\xE0\xB9\x83\xE0\xB8\x9D"},
     {nullptr, nullptr, nullptr}},
    {"\xE0\xA4\x95\xE0\xA4\x96\xE0\xA4\x97",
     {"\xE0\xA5\x8C\xE0\xA5\x88\xE0\xA4\xBE\xE0\xA5\x80\xE0\xA5\x82\xE0\xA4\xAC\xE0\xA4\xB9\xE0\xA4"
      "\x97\xE0\xA4\xA6\xE0\xA4\x9C\xE0\xA4\xA1",
      "\xE0\xA5\x8B\xE0\xA5\x87\xE0\xA5\x8D\xE0\xA4\xBF\xE0\xA5\x81\xE0\xA4\xAA\xE0\xA4\xB0\xE0\xA4"
      "\x95\xE0\xA4\xA4\xE0\xA4\x9A\xE0\xA4\x9F",
      "\xE0\xA4\x82\xE0\xA4\xAE\xE0\xA4\xA8\xE0\xA4\xB5\xE0\xA4\xB2\xE0\xA4\xB8\xE0\xA4\xAF\xE0\xA4"
      "\xB6\xE0\xA4\x85\xE0\xA4\x86"},
     {nullptr, nullptr, nullptr}},
    {"\xED\x95\x9C",
     {"\xE3\x85\x82\xE3\x85\x88\xE3\x84\xB7\xE3\x84\xB1\xE3\x85\x85\xE3\x85\x9B\xE3\x85\x95\xE3\x85"
      "\x91\xE3\x85\x90\xE3\x85\x94",
      "\xE3\x85\x81\xE3\x84\xB4\xE3\x85\x87\xE3\x84\xB9\xE3\x85\x8E\xE3\x85\x97\xE3\x85\x93\xE3\x85"
      "\x8F\xE3\x85\xA3",
      "\xE3\x85\x8B\xE3\x85\x8C\xE3\x85\x8A\xE3\x85\x8D\xE3\x85\xA0\xE3\x85\x9C\xE3\x85\xA1"},
     {nullptr, nullptr, nullptr}},
    {"\xE3\x81\x82",
     {"\xE3\x81\x82\xE3\x81\x84\xE3\x81\x86\xE3\x81\x88\xE3\x81\x8A\xE3\x81\x8B\xE3\x81\x8D\xE3\x81"
      "\x8F\xE3\x81\x91\xE3\x81\x93",
      "\xE3\x81\x95\xE3\x81\x97\xE3\x81\x99\xE3\x81\x9B\xE3\x81\x9D\xE3\x81\x9F\xE3\x81\xA1\xE3\x81"
      "\xA4\xE3\x81\xA6\xE3\x81\xA8",
      "\xE3\x81\xAA\xE3\x81\xAB\xE3\x81\xAC\xE3\x81\xAD\xE3\x81\xAE\xE3\x81\xAF\xE3\x81\xB2\xE3\x81"
      "\xB5\xE3\x82\x93"},
     {"\xE3\x81\xBE\xE3\x81\xBF\xE3\x82\x80\xE3\x82\x81\xE3\x82\x82\xE3\x82\x84\xE3\x82\x86\xE3\x82"
      "\x88\xE3\x82\x89\xE3\x82\x8A",
      "\xE3\x82\x8B\xE3\x82\x8C\xE3\x82\x8D\xE3\x82\x8F\xE3\x82\x92\xE3\x81\x8C\xE3\x81\x96\xE3\x81"
      "\xA0\xE3\x81\xB0\xE3\x81\xB1",
      "\xE3\x83\xBC\xE3\x81\xA3\xE3\x82\x83\xE3\x82\x85\xE3\x82\x87\xE3\x81\x81\xE3\x81\x83\xE3\x81"
      "\x85\xE3\x81\x87"}},
    // Chinese is typed as pinyin on the Latin letters; the caption is the mode's.
    {"\xE4\xB8\xAD", {nullptr, nullptr, nullptr}, {nullptr, nullptr, nullptr}},
};

const char* const kSymbolRows[3] = {"!@#$%^&*()", "-_=+[]{};:", "'\",.<>/?\\|"};

// Scripts of the language table (0 chinese .. 33 slovak).
const VyKeyboard::Script kLanguageScripts[34] = {
    VyKeyboard::Chinese,  VyKeyboard::Chinese, VyKeyboard::Latin,      VyKeyboard::Latin,
    VyKeyboard::Latin,    VyKeyboard::Latin,   VyKeyboard::Latin,      VyKeyboard::Latin,
    VyKeyboard::Greek,    VyKeyboard::Hebrew,  VyKeyboard::Latin,      VyKeyboard::Latin,
    VyKeyboard::Kana,     VyKeyboard::Latin,   VyKeyboard::Latin,      VyKeyboard::Cyrillic,
    VyKeyboard::Latin,    VyKeyboard::Thai,    VyKeyboard::Latin,      VyKeyboard::Latin,
    VyKeyboard::Cyrillic, VyKeyboard::Arabic,  VyKeyboard::Devanagari, VyKeyboard::Latin,
    VyKeyboard::Latin,    VyKeyboard::Latin,   VyKeyboard::Arabic,     VyKeyboard::Latin,
    VyKeyboard::Hangul,   VyKeyboard::Latin,   VyKeyboard::Latin,      VyKeyboard::Latin,
    VyKeyboard::Cyrillic, VyKeyboard::Latin,
};

constexpr int kColumns = 12;       // key units across
constexpr int kRows = 6;           // text or candidate row, digits, three letter rows, bottom
constexpr int kPageSize = 6;       // characters offered at once in Chinese mode
constexpr int kPaddingDesign = 12; // pixels at 1920x1080

vyargb iniColour(const VyIniSettings& ini, const char* key, vyargb fallback) {
    const VyColor c = ini.color(key);
    return c.isValid() ? c.argb() : fallback;
}

} // namespace

enum ColourRole {
    Background,
    Border,
    KeyFill,
    KeyHover,
    KeyPressed,
    KeyText,
    KeyBorder,
    FunctionFill
};

VyKeyboard::VyKeyboard()
    : CWidget(nullptr, Dialog) {
    setObjectName("VyKeyboard");
    setAttribute(Modal);
    setAttribute(MouseTracking);
    setFocusPolicy(StrongFocus);
}

VyKeyboard::~VyKeyboard() = default;

VyKeyboard::Script VyKeyboard::scriptForLanguage(int languageIndex) {
    if (languageIndex < 0 || languageIndex >= 34)
        return Latin;
    return kLanguageScripts[languageIndex];
}

void VyKeyboard::setScript(Script script) {
    m_script = script;
    if (script != Latin)
        m_otherScript = script;
    m_pinyin.clear();
    m_candidates = VyStringList();
    layoutKeys();
}

VyStringList VyKeyboard::letterRows() const {
    VyStringList rows;
    const Script letters = m_script == Chinese ? Latin : m_script;
    const ScriptRows& s = kScripts[letters];
    for (int i = 0; i < 3; ++i) {
        if (m_symbols)
            rows.append(kSymbolRows[i]);
        else
            rows.append(m_shift && s.upper[i] ? s.upper[i] : s.lower[i]);
    }
    return rows;
}

void VyKeyboard::layoutKeys() {
    const VyString highlightedText =
        m_highlight >= 0 && m_highlight < static_cast<int>(m_keys.size()) ? m_keys[m_highlight].text
                                                                          : VyString();
    const KeyKind highlightedKind =
        m_highlight >= 0 && m_highlight < static_cast<int>(m_keys.size()) ? m_keys[m_highlight].kind
                                                                          : Character;
    m_keys.clear();
    const int pad = VyStyle::instance()->scaled(kPaddingDesign);
    const int unit = std::max(1, (width() - 2 * pad) / kColumns);
    const int rowH = std::max(1, (height() - 2 * pad) / kRows);
    auto add = [&](KeyKind kind, const VyString& text, int row, double col, double span) {
        m_keys.push_back({kind, text,
                          VyRect(pad + static_cast<int>(col * unit) + 2, pad + row * rowH + 2,
                                 std::max(1, static_cast<int>(span * unit) - 4), rowH - 4)});
    };
    // Row 0 (Chinese mode): a page of the characters offered, between the page keys.
    if (!m_candidates.isEmpty()) {
        if (m_candidatePage > 0)
            add(PreviousPage, "\xE2\x80\xB9", 0, 4, 1); // single angle quotes
        const int first = m_candidatePage * kPageSize;
        for (int i = 0; i < kPageSize && first + i < m_candidates.size(); ++i)
            add(Candidate, m_candidates.at(first + i), 0, 5 + i, 1);
        if (first + kPageSize < m_candidates.size())
            add(NextPage, "\xE2\x80\xBA", 0, 5 + kPageSize, 1);
    }
    // Row 1: digits and backspace.
    for (int d = 1; d <= 10; ++d)
        add(Character, VyString::number(d % 10), 1, d - 1, 1);
    add(Backspace, "\xE2\x86\x90", 1, 10, 2); // a left arrow: every shipped font has it
    // Rows 2 to 4: the letters, rows longer than the grid share it evenly.
    const VyStringList rows = letterRows();
    for (int r = 0; r < 3; ++r) {
        const std::u32string chars = rows.at(r).toUcs4();
        const double room = r == 2 ? kColumns - 1.5 : kColumns;
        const double count = static_cast<double>(std::max<size_t>(1, chars.size()));
        const double span = std::min(1.0, room / count);
        const double start = (r == 2 ? 1.5 : 0) + (room - span * count) / 2;
        if (r == 2)
            add(Shift, "\xE2\x87\xA7", 4, 0, 1.5);
        for (size_t i = 0; i < chars.size(); ++i)
            add(Character, VyString::fromUcs4(chars.substr(i, 1)), 2 + r,
                start + span * static_cast<double>(i), span);
    }
    // Row 5: mode keys, space, cancel and confirm.
    add(Symbols, m_symbols ? "abc" : "#+=", 5, 0, 1.5);
    add(ScriptSwitch, m_script == Latin ? kScripts[m_otherScript].name : kScripts[Latin].name, 5,
        1.5, 1.5);
    add(Space, " ", 5, 3, 4.5);
    add(Cancel, "\xE2\x9C\x95", 5, 7.5, 2);
    add(Confirm, "\xE2\x9C\x93", 5, 9.5, 2.5);
    // Keep the highlight on the same key across a relayout when it still exists.
    const int same =
        indexOf(highlightedKind, highlightedKind == Character ? highlightedText : VyString());
    m_highlight = same >= 0 ? same : indexOf(Confirm);
    update();
}

int VyKeyboard::indexOf(KeyKind kind, const VyString& text) const {
    for (size_t i = 0; i < m_keys.size(); ++i)
        if (m_keys[i].kind == kind && (text.isEmpty() || m_keys[i].text == text))
            return static_cast<int>(i);
    return -1;
}

void VyKeyboard::open(VyLineEdit* target) {
    m_target.reset(target);
    m_original = target ? target->text() : VyString();
    m_shift = m_symbols = false;
    m_pinyin.clear();
    m_candidates = VyStringList();
    if (!m_coloursRead)
        readColours();
    VyStyle* style = VyStyle::instance();
    VyApplication* app = VyApplication::instance();
    const int screenW = app && app->screen() ? app->screen()->width() : style->scaled(kDesignWidth);
    const int screenH =
        app && app->screen() ? app->screen()->height() : style->scaledHeight(kDesignHeight);
    const int w = std::min(screenW, style->scaled(kDesignWidth));
    const int h = std::min(screenH, style->scaledHeight(kDesignHeight));
    // Below the field when it fits, else above it, so the field stays in sight.
    int y = screenH - h;
    if (target) {
        const VyPoint at = target->mapToGlobal(VyPoint(0, 0));
        y = at.y + target->height() + h <= screenH ? at.y + target->height()
                                                   : std::max(0, at.y - h);
    }
    setGeometry((screenW - w) / 2, y, w, h);
    layoutKeys();
    m_highlight = indexOf(Character, "q") >= 0 ? indexOf(Character, "q") : 0;
    show();
    raise();
    setFocus();
}

void VyKeyboard::finish(bool accept) {
    VyLineEdit* target = m_target.data();
    if (!accept && target)
        target->setText(m_original);
    hide();
    if (target)
        target->setFocus();
    emitSignal(this, accept ? &accepted : &rejected);
}

void VyKeyboard::typeText(const VyString& text) {
    if (VyLineEdit* target = m_target.data())
        target->insert(text);
    update();
}

void VyKeyboard::askInputMethod() {
    // An input method answers with setCandidates; without one the built-in table does.
    if (VyObject* im = m_inputMethod.data()) {
        VyApplication::postEvent(
            im, std::make_unique<ChineseInputEvent>(static_cast<int>(m_pinyin.length())));
    } else {
        setCandidates(VyPinyinTable::shared().candidates(m_pinyin));
    }
}

void VyKeyboard::setCandidates(const VyStringList& candidates) {
    m_candidates = candidates;
    m_candidatePage = 0;
    layoutKeys();
}

void VyKeyboard::setCandidatePage(int page) {
    const int pages = (m_candidates.size() + kPageSize - 1) / kPageSize;
    page = std::max(0, std::min(page, pages - 1));
    if (page == m_candidatePage)
        return;
    m_candidatePage = page;
    layoutKeys();
}

void VyKeyboard::choose(const VyString& text) {
    typeText(text);
    m_pinyin.clear();
    m_candidates = VyStringList();
    m_candidatePage = 0;
    layoutKeys();
}

bool VyKeyboard::chooseByDigit(int digit) {
    const int index = m_candidatePage * kPageSize + digit - 1;
    if (m_pinyin.isEmpty() || digit < 1 || digit > kPageSize || index >= m_candidates.size())
        return false;
    choose(m_candidates.at(index));
    return true;
}

void VyKeyboard::activate(int index) {
    if (index < 0 || index >= static_cast<int>(m_keys.size()))
        return;
    const Key key = m_keys[index];
    switch (key.kind) {
    case Character:
        // With pinyin pending, a digit picks the character of that number on the page.
        if (key.text.length() == 1 && key.text.toUcs4()[0] >= U'1' &&
            key.text.toUcs4()[0] <= U'9' && chooseByDigit(int(key.text.toUcs4()[0] - U'0')))
            break;
        if (m_script == Chinese && !m_symbols && key.text.toUcs4()[0] >= U'a' &&
            key.text.toUcs4()[0] <= U'z') {
            m_pinyin += key.text;
            askInputMethod();
            update();
        } else {
            typeText(key.text);
        }
        if (m_shift) {
            m_shift = false; // one capital, as phone keyboards do
            layoutKeys();
        }
        break;
    case Candidate:
        choose(key.text);
        break;
    case PreviousPage:
    case NextPage:
        setCandidatePage(m_candidatePage + (key.kind == NextPage ? 1 : -1));
        break;
    case Space:
        if (!m_pinyin.isEmpty()) {
            // Space with pinyin pending takes the first character offered, or the pinyin itself.
            choose(m_candidates.isEmpty() ? m_pinyin
                                          : m_candidates.at(std::min(m_candidatePage * kPageSize,
                                                                     m_candidates.size() - 1)));
        } else {
            typeText(" ");
        }
        break;
    case Backspace:
        if (!m_pinyin.isEmpty()) {
            m_pinyin = m_pinyin.left(m_pinyin.length() - 1);
            askInputMethod();
            update();
        } else if (VyLineEdit* target = m_target.data()) {
            target->backspace();
            update();
        }
        break;
    case Shift:
        m_shift = !m_shift;
        layoutKeys();
        break;
    case Symbols:
        m_symbols = !m_symbols;
        layoutKeys();
        break;
    case ScriptSwitch:
        m_script = m_script == Latin ? m_otherScript : Latin;
        m_pinyin.clear();
        m_candidates = VyStringList();
        layoutKeys();
        break;
    case Confirm:
        finish(true);
        break;
    case Cancel:
        finish(false);
        break;
    }
}

int VyKeyboard::keyAt(VyPoint pos) const {
    for (size_t i = 0; i < m_keys.size(); ++i)
        if (m_keys[i].rect.contains(pos))
            return static_cast<int>(i);
    return -1;
}

void VyKeyboard::setHighlighted(int index) {
    if (index < 0 || index >= static_cast<int>(m_keys.size()) || index == m_highlight)
        return;
    m_highlight = index;
    update();
}

int VyKeyboard::moveVertically(int from, int direction) const {
    // The key in the next row (wrapping top and bottom) whose centre is nearest horizontally.
    const VyRect& r = m_keys[from].rect;
    const int cx = r.left + r.width() / 2;
    int best = -1;
    int bestRowDistance = 0;
    int bestDx = 0;
    const int rowH = r.height();
    for (size_t i = 0; i < m_keys.size(); ++i) {
        const VyRect& k = m_keys[i].rect;
        int dy = (k.top - r.top) * direction;
        if (dy <= 0)
            dy += height() * 2; // past the edge: wrap to the other side
        const int rowDistance = dy / std::max(1, rowH);
        const int dx = std::abs(k.left + k.width() / 2 - cx);
        if (best < 0 || rowDistance < bestRowDistance ||
            (rowDistance == bestRowDistance && dx < bestDx)) {
            best = static_cast<int>(i);
            bestRowDistance = rowDistance;
            bestDx = dx;
        }
    }
    return best < 0 ? from : best;
}

bool VyKeyboard::keyLeftRight(int key) {
    if (m_keys.empty())
        return false;
    const int n = static_cast<int>(m_keys.size());
    // Keys are laid out row by row, so the neighbours in the list are those in the row; at a
    // row's end the highlight wraps to its start.
    const int top = m_keys[m_highlight].rect.top;
    int next = m_highlight + (key == VyKeyEvent::KeyRight ? 1 : -1);
    if (next < 0 || next >= n || m_keys[next].rect.top != top) {
        next = m_highlight;
        const int step = key == VyKeyEvent::KeyRight ? -1 : 1;
        while (next + step >= 0 && next + step < n && m_keys[next + step].rect.top == top)
            next += step;
    }
    setHighlighted(next);
    return true;
}

bool VyKeyboard::keyUpDown(int key) {
    if (m_keys.empty())
        return false;
    setHighlighted(moveVertically(m_highlight, key == VyKeyEvent::KeyDown ? 1 : -1));
    return true;
}

bool VyKeyboard::keyActivate() {
    activate(m_highlight);
    return true;
}

void VyKeyboard::keyPressEvent(VyKeyEvent* e) {
    const int key = e->key();
    if (key >= VyKeyEvent::KeyDigit0 && key <= VyKeyEvent::KeyDigit9) {
        e->accept();
        if (!chooseByDigit(key - VyKeyEvent::KeyDigit0))
            typeText(VyString::number(key - VyKeyEvent::KeyDigit0));
        return;
    }
    if (key == VyKeyEvent::KeyEscape) {
        e->accept();
        finish(false);
        return;
    }
    CWidget::keyPressEvent(e);
}

void VyKeyboard::mousePressEvent(VyMouseEvent* e) {
    if (e->button() != VyMouseEvent::LeftButton) {
        e->ignore();
        return;
    }
    e->accept();
    m_pressed = keyAt(e->pos());
    if (m_pressed >= 0)
        m_highlight = m_pressed;
    update();
}

void VyKeyboard::mouseReleaseEvent(VyMouseEvent* e) {
    if (e->button() != VyMouseEvent::LeftButton) {
        e->ignore();
        return;
    }
    e->accept();
    const int pressed = m_pressed;
    m_pressed = -1;
    update();
    if (pressed >= 0 && keyAt(e->pos()) == pressed)
        activate(pressed);
}

void VyKeyboard::mouseMoveEvent(VyMouseEvent* e) {
    e->accept();
    const int k = keyAt(e->pos());
    if (k >= 0 && m_pressed < 0)
        setHighlighted(k);
}

void VyKeyboard::resizeEvent(VyResizeEvent*) {
    layoutKeys();
}

void VyKeyboard::readColours() {
    namespace D = VyStyleDefaults;
    const VyIniSettings ini(VyResources::path(kStyleFile));
    const vyargb colours[8] = {iniColour(ini, "Keyboard/Background", 0xFF1E2024),
                               iniColour(ini, "Keyboard/Border", D::kLine),
                               iniColour(ini, "Keyboard/Key/Background/Normal", D::kControl),
                               iniColour(ini, "Keyboard/Key/Background/Hover", D::kControlHover),
                               iniColour(ini, "Keyboard/Key/Background/Pressed", D::kFocus),
                               iniColour(ini, "Keyboard/Key/Foreground", D::kText),
                               iniColour(ini, "Keyboard/Key/Border", D::kLine),
                               iniColour(ini, "Keyboard/FunctionKey/Background", D::kField)};
    std::copy(colours, colours + 8, m_colours);
    m_coloursRead = true;
}

void VyKeyboard::paintEvent(VyPaintEvent*) {
    if (!m_coloursRead)
        readColours();
    const vyargb* c = m_colours;
    VyCanvas* canvas = this->canvas();
    canvas->fillRect(rect(), c[Background]);
    canvas->drawRect(rect(), c[Border]);
    const int px =
        VyStyle::fontSize(VyStyle::instance()->option().get<VyPushButtonOption>().font, 0);
    // The first row shows what is being typed: the pinyin in Chinese mode, else the field's text.
    if (!m_keys.empty()) {
        const int pad = VyStyle::instance()->scaled(kPaddingDesign);
        // Row 0, as layoutKeys divides the height (candidate keys may share it).
        const VyRect row(pad, pad, width() - 2 * pad, std::max(1, (height() - 2 * pad) / kRows));
        VyString shown = m_pinyin;
        if (shown.isEmpty() && m_target)
            shown = m_target->displayText();
        const VyRect textRow(pad + 4, pad,
                             (m_candidates.isEmpty() ? width() : width() / 3) - 2 * pad,
                             row.height() + 4);
        canvas->drawText(textRow, VyCanvas::AlignLeft | VyCanvas::AlignVCenter,
                         VyTextLayout::elided(shown, px, textRow.width()), px, c[KeyText]);
    }
    for (size_t i = 0; i < m_keys.size(); ++i) {
        const Key& k = m_keys[i];
        const bool function = k.kind != Character && k.kind != Candidate && k.kind != Space;
        vyargb bg = function ? c[FunctionFill] : c[KeyFill];
        if (static_cast<int>(i) == m_pressed)
            bg = c[KeyPressed];
        else if (static_cast<int>(i) == m_highlight)
            bg = c[KeyHover];
        if ((k.kind == Shift && m_shift) || (k.kind == Symbols && m_symbols))
            bg = c[KeyPressed];
        canvas->fillRect(k.rect, bg);
        canvas->drawRect(k.rect, static_cast<int>(i) == m_highlight ? c[KeyPressed] : c[KeyBorder]);
        canvas->drawText(k.rect, VyCanvas::AlignCenter,
                         VyTextLayout::elided(k.text, px, k.rect.width()), px, c[KeyText]);
    }
}
