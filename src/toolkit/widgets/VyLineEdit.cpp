#include "toolkit/widgets/VyLineEdit.h"
#include "toolkit/core/VyScreenCursor.h"

#include <algorithm>

#include "toolkit/core/VyPointer.h"
#include "toolkit/events/VyKeyEvent.h"
#include "toolkit/events/VyMouseEvent.h"
#include "toolkit/style/VyStyle.h"
#include "toolkit/style/VyTextLayout.h"
#include "toolkit/widgets/VyControlState.h"
#include "toolkit/widgets/VyKeyboard.h"

namespace {

constexpr char32_t kEchoCharacter = U'*';

} // namespace

VyLineEdit::VyLineEdit(VyWidget* parent)
    : VyWidget(parent) {
    setFocusPolicy(StrongFocus);
    setCursorShape(VyScreenCursor::IBeam);
}

VyLineEdit::VyLineEdit(const VyString& text, VyWidget* parent)
    : VyLineEdit(parent) {
    setText(text);
}

VyLineEdit::~VyLineEdit() = default;

void VyLineEdit::openKeyboard() {
    if (!m_keyboard)
        m_keyboard = std::make_unique<VyKeyboard>();
    m_keyboard->open(this);
}

bool VyLineEdit::commit(std::u32string text, int cursor) {
    if (VyValidator::validate(m_validator, text) == VyValidator::Invalid)
        return false;
    const bool changed = text != m_text;
    m_text = std::move(text);
    m_cursor = m_anchor = std::max(0, std::min(cursor, length()));
    update();
    if (changed)
        emitSignal(this, &textChanged);
    return changed;
}

bool VyLineEdit::setText(const VyString& text) {
    std::u32string chars = text.toUcs4();
    if (static_cast<int>(chars.size()) > m_maxLength)
        chars.resize(static_cast<size_t>(m_maxLength));
    const int end = static_cast<int>(chars.size());
    if (VyValidator::validate(m_validator, chars) == VyValidator::Invalid)
        return false;
    commit(std::move(chars), end);
    return true;
}

VyString VyLineEdit::displayText() const {
    if (m_echoMode == Password)
        return VyString::fromUcs4(std::u32string(m_text.size(), kEchoCharacter));
    return VyString::fromUcs4(m_text);
}

void VyLineEdit::setPlaceholderText(const VyString& text) {
    m_placeholder = text;
    update();
}

void VyLineEdit::setEchoMode(EchoMode mode) {
    m_echoMode = mode;
    update();
}

void VyLineEdit::setMaxLength(int characters) {
    m_maxLength = std::max(0, std::min(characters, kDefaultMaxLength));
    if (length() > m_maxLength)
        commit(m_text.substr(0, static_cast<size_t>(m_maxLength)), m_cursor);
}

bool VyLineEdit::hasAcceptableInput() const {
    return VyValidator::validate(m_validator, m_text) == VyValidator::Acceptable;
}

bool VyLineEdit::replaceSelection(const std::u32string& inserted) {
    if (m_readOnly)
        return false;
    const int from = selectionStart();
    const int to = std::max(m_anchor, m_cursor);
    std::u32string text = m_text;
    text.erase(static_cast<size_t>(from), static_cast<size_t>(to - from));
    const int room = m_maxLength - static_cast<int>(text.size());
    // Cut by characters, never inside one: the text is held as code points.
    const std::u32string piece = inserted.substr(0, static_cast<size_t>(std::max(0, room)));
    if (piece.empty() && from == to)
        return false;
    text.insert(static_cast<size_t>(from), piece);
    return commit(std::move(text), from + static_cast<int>(piece.size()));
}

bool VyLineEdit::insert(const VyString& text) {
    std::u32string chars = text.toUcs4();
    // One line: line breaks and other control characters do not enter the field.
    chars.erase(std::remove_if(chars.begin(), chars.end(),
                               [](char32_t c) { return c < 0x20 || c == 0x7F; }),
                chars.end());
    return replaceSelection(chars);
}

bool VyLineEdit::backspace() {
    if (m_readOnly)
        return false;
    if (hasSelectedText())
        return replaceSelection(std::u32string());
    if (m_cursor == 0)
        return false;
    std::u32string text = m_text;
    text.erase(static_cast<size_t>(m_cursor - 1), 1);
    return commit(std::move(text), m_cursor - 1);
}

bool VyLineEdit::del() {
    if (m_readOnly)
        return false;
    if (hasSelectedText())
        return replaceSelection(std::u32string());
    if (m_cursor >= length())
        return false;
    std::u32string text = m_text;
    text.erase(static_cast<size_t>(m_cursor), 1);
    return commit(std::move(text), m_cursor);
}

void VyLineEdit::moveCursor(int position, bool mark) {
    position = std::max(0, std::min(position, length()));
    if (position == m_cursor && (mark || m_anchor == m_cursor))
        return;
    m_cursor = position;
    if (!mark)
        m_anchor = position;
    update();
}

void VyLineEdit::setCursorPosition(int position) {
    moveCursor(position, false);
}

void VyLineEdit::cursorForward(bool mark, int steps) {
    moveCursor(m_cursor + steps, mark);
}

void VyLineEdit::cursorBackward(bool mark, int steps) {
    moveCursor(m_cursor - steps, mark);
}

void VyLineEdit::home(bool mark) {
    moveCursor(0, mark);
}

void VyLineEdit::end(bool mark) {
    moveCursor(length(), mark);
}

void VyLineEdit::selectAll() {
    m_anchor = 0;
    m_cursor = length();
    update();
}

void VyLineEdit::setSelection(int start, int count) {
    start = std::max(0, std::min(start, length()));
    m_anchor = start;
    m_cursor = std::max(0, std::min(start + count, length()));
    update();
}

void VyLineEdit::deselect() {
    if (m_anchor == m_cursor)
        return;
    m_anchor = m_cursor;
    update();
}

VyString VyLineEdit::selectedText() const {
    const int from = selectionStart();
    return VyString::fromUcs4(m_text.substr(
        static_cast<size_t>(from), static_cast<size_t>(std::max(m_anchor, m_cursor) - from)));
}

int VyLineEdit::fontPixelSize() const {
    return VyStyle::fontSize(VyStyle::instance()->option().get<VyLineEditOption>().font,
                             styleSlot());
}

int VyLineEdit::textX(int position) const {
    const VyString shown = displayText();
    return VyTextLayout::width(shown.left(position), fontPixelSize());
}

int VyLineEdit::positionAt(int x) const {
    const VyRect area = VyStyle::instance()->lineEditTextRect(rect());
    const int target = x - area.left + m_scroll;
    int best = 0;
    int bestDistance = std::abs(target);
    for (int i = 1; i <= length(); ++i) {
        const int d = std::abs(textX(i) - target);
        if (d < bestDistance) {
            best = i;
            bestDistance = d;
        }
    }
    return best;
}

int VyLineEdit::styleSlot() const {
    return vyControlStyleSlot(this, m_hovered);
}

VySize VyLineEdit::sizeHint() const {
    const VyStyle* style = VyStyle::instance();
    const int px = VyStyle::fontSize(style->option().get<VyLineEditOption>().font, 0);
    return VySize(px * 12,
                  VyTextLayout::lineHeight(px) + 2 * style->scaled(VyStyle::kFieldPaddingDesign));
}

void VyLineEdit::paintEvent(VyPaintEvent*) {
    VyStyle* style = VyStyle::instance();
    const VyRect area = style->lineEditTextRect(rect());
    const int cursorX = textX(m_cursor);
    // Scroll just enough to keep the cursor inside the field.
    const int caret = std::max(1, style->scaled(2));
    if (cursorX - m_scroll > area.width() - caret)
        m_scroll = cursorX - area.width() + caret;
    if (cursorX < m_scroll)
        m_scroll = cursorX;
    m_scroll = std::max(0, m_scroll);
    VyStyle::LineEditText content;
    content.text = displayText();
    content.placeholder = m_placeholder;
    content.scroll = m_scroll;
    content.cursorX = hasFocus() && !m_readOnly ? cursorX : -1;
    if (hasSelectedText()) {
        content.selectionFromX = textX(selectionStart());
        content.selectionToX = textX(std::max(m_anchor, m_cursor));
    }
    style->drawLineEdit(canvas(), rect(), styleSlot(), content);
}

void VyLineEdit::keyPressEvent(VyKeyEvent* e) {
    const int key = e->key();
    if (!isEnabled()) {
        e->ignore();
        return;
    }
    if (key >= VyKeyEvent::KeyDigit0 && key <= VyKeyEvent::KeyDigit9) {
        e->accept();
        insert(e->text().isEmpty() ? VyString::number(key - VyKeyEvent::KeyDigit0) : e->text());
        return;
    }
    if (key == VyKeyEvent::KeyOk) {
        e->accept();
        if (m_keyboardEnabled && !m_readOnly) {
            VyObjectGuard guard(this);
            emitSignal(this, &keyboardRequested);
            if (guard.object())
                openKeyboard();
        } else {
            emitSignal(this, &returnPressed);
        }
        return;
    }
    // The arrows move the key focus between controls; a line edit does not keep them.
    e->ignore();
}

void VyLineEdit::mousePressEvent(VyMouseEvent* e) {
    if (e->button() != VyMouseEvent::LeftButton || !isEnabled()) {
        e->ignore();
        return;
    }
    e->accept();
    moveCursor(positionAt(e->x()), false);
    m_selecting = true;
}

void VyLineEdit::mouseMoveEvent(VyMouseEvent* e) {
    if (!m_selecting || !(e->buttons() & VyMouseEvent::LeftButton)) {
        e->ignore();
        return;
    }
    e->accept();
    moveCursor(positionAt(e->x()), true);
}

void VyLineEdit::mouseReleaseEvent(VyMouseEvent* e) {
    if (e->button() != VyMouseEvent::LeftButton || !m_selecting) {
        e->ignore();
        return;
    }
    e->accept();
    m_selecting = false;
    // A click (not a drag-selection) asks for the keyboard, as OK does.
    if (!hasSelectedText() && m_keyboardEnabled && !m_readOnly && rect().contains(e->pos())) {
        VyObjectGuard guard(this);
        emitSignal(this, &keyboardRequested);
        if (guard.object())
            openKeyboard();
    }
}

void VyLineEdit::hoverEnterEvent(VyHoverEvent*) {
    m_hovered = true;
    update();
}

void VyLineEdit::hoverLeaveEvent(VyHoverEvent*) {
    m_hovered = false;
    update();
}

void VyLineEdit::focusInEvent(VyFocusEvent*) {
    update();
}

void VyLineEdit::focusOutEvent(VyFocusEvent*) {
    m_selecting = false;
    update();
}
