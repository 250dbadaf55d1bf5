#include "ControlTestApp.h"

#include <string>
#include <utility>
#include <vector>

#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VyScreenCursor.h"
#include "toolkit/widgets/VyLineEdit.h"
#include "toolkit/widgets/VyValidator.h"

using LineEdit = ControlTest;

namespace {

VyValidator::State check(VyValidator::Kind kind, const char* text) {
    return VyValidator::validate(kind, VyString(text).toUcs4());
}

using Case = std::pair<const char*, VyValidator::State>;

void expectAll(VyValidator::Kind kind, const std::vector<Case>& cases) {
    for (const Case& c : cases)
        EXPECT_EQ(check(kind, c.first), c.second) << '"' << c.first << '"';
}

constexpr VyValidator::State I = VyValidator::Invalid;
constexpr VyValidator::State M = VyValidator::Intermediate;
constexpr VyValidator::State A = VyValidator::Acceptable;

} // namespace

TEST(Validators, DigitsAndPortsRefuseWhatCanNeverBecomeValid) {
    expectAll(VyValidator::Digits, {{"", M}, {"0123", A}, {"12a", I}, {"-1", I}, {" 1", I}});
    expectAll(VyValidator::Port, {{"", M},
                                  {"0", M},
                                  {"1", A},
                                  {"65535", A},
                                  {"65536", I},
                                  {"08080", I},
                                  {"123456", I},
                                  {"80a", I}});
}

TEST(Validators, Ipv4AcceptsFourGroupsAndLetsPartialAddressesBeTyped) {
    expectAll(VyValidator::IPv4Address, {{"192.168.1.64", A},
                                         {"0.0.0.0", A},
                                         {"255.255.255.255", A},
                                         {"192.168.", M},
                                         {"", M},
                                         {"1..2.3", M},
                                         {"256.1.1.1", I},
                                         {"1.2.3.4.5", I},
                                         {"01.2.3.4", I},
                                         {"1.2.3.1000", I},
                                         {"1.2.3.a", I},
                                         {"1.2.3.4.", I}});
}

TEST(Validators, EmailNeedsOneAtAndADomainWithATopLevelPart) {
    expectAll(VyValidator::EmailAddress, {{"ops@example.com", A},
                                          {"first.last+dvr@mail.example.org", A},
                                          {"ops", M},
                                          {"ops@", M},
                                          {"ops@example", M},
                                          {"ops@example.c", M},
                                          {"@example.com", M},
                                          {"a@b@c.com", I},
                                          {"o ps@example.com", I},
                                          {"ops@exa_mple.com", I},
                                          {"ops@example..com", M}});
}

TEST_F(LineEdit, MaximumLengthCountsCharactersAndNeverCutsOne) {
    VyLineEdit edit;
    edit.setMaxLength(4);
    // Three-byte characters: a byte count of 4 would split the second one.
    edit.insert("\xE5\xBD\x95\xE5\x83\x8F\xE6\x9C\xBA\xE5\x90\x8D\xE7\xA7\xB0");
    EXPECT_EQ(edit.length(), 4);
    EXPECT_EQ(edit.text(), "\xE5\xBD\x95\xE5\x83\x8F\xE6\x9C\xBA\xE5\x90\x8D");
    EXPECT_FALSE(edit.insert("x"));
    // Replacing a selection makes room.
    edit.setSelection(0, 2);
    EXPECT_TRUE(edit.insert("ab"));
    EXPECT_EQ(edit.text(), "ab\xE6\x9C\xBA\xE5\x90\x8D");
    // Shrinking the limit cuts the text by characters too.
    edit.setMaxLength(3);
    EXPECT_EQ(edit.text(), "ab\xE6\x9C\xBA");
    // Broken UTF-8 from outside becomes replacement characters, never half a character.
    VyLineEdit raw;
    raw.insert(VyString::fromUtf8("a\xE6\x9C", 3));
    EXPECT_EQ(raw.text().toUcs4().size(), static_cast<size_t>(raw.length()));
}

TEST_F(LineEdit, ValidatorRefusesEditsAndLeavesTextAndCursorAlone) {
    VyLineEdit edit;
    edit.setValidator(VyValidator::IPv4Address);
    EXPECT_TRUE(edit.setText("10.0.0.1"));
    EXPECT_TRUE(edit.hasAcceptableInput());
    EXPECT_TRUE(edit.insert("9"));
    EXPECT_TRUE(edit.insert("9"));
    EXPECT_EQ(edit.text(), "10.0.0.199");
    const int cursor = edit.cursorPosition();
    EXPECT_FALSE(edit.insert("9"));
    EXPECT_EQ(edit.text(), "10.0.0.199");
    EXPECT_EQ(edit.cursorPosition(), cursor);
    EXPECT_FALSE(edit.setText("300.1.1.1"));
    EXPECT_EQ(edit.text(), "10.0.0.199");
    edit.backspace();
    edit.backspace();
    edit.backspace();
    EXPECT_EQ(edit.text(), "10.0.0.");
    EXPECT_FALSE(edit.hasAcceptableInput());
}

TEST_F(LineEdit, EditingAtTheCursorAndOverASelection) {
    VyLineEdit edit("recorder");
    SignalCounter changes(&edit, &edit.textChanged);
    edit.home(false);
    edit.cursorForward(true, 3);
    EXPECT_EQ(edit.selectedText(), "rec");
    edit.insert("dec");
    EXPECT_EQ(edit.text(), "decorder");
    EXPECT_EQ(edit.cursorPosition(), 3);
    edit.backspace();
    edit.del();
    EXPECT_EQ(edit.text(), "derder");
    edit.selectAll();
    edit.backspace();
    EXPECT_TRUE(edit.text().isEmpty());
    EXPECT_FALSE(edit.backspace()); // nothing left: no change, no signal
    EXPECT_EQ(changes.count, 4);
    // Control characters never enter the one-line field.
    edit.insert("a\nb\tc");
    EXPECT_EQ(edit.text(), "abc");
    edit.setReadOnly(true);
    EXPECT_FALSE(edit.insert("x"));
}

TEST_F(LineEdit, PasswordEchoShowsStarsButKeepsTheText) {
    VyLineEdit edit("s3cr\xC3\xA9t");
    edit.setEchoMode(VyLineEdit::Password);
    EXPECT_EQ(edit.displayText(), "******");
    EXPECT_EQ(edit.text(), "s3cr\xC3\xA9t");
}

TEST_F(LineEdit, DigitsTypeArrowsPassAndOkAsksForTheKeyboard) {
    VyLineEdit edit;
    edit.setValidator(VyValidator::Port);
    SignalCounter keyboard(&edit, &edit.keyboardRequested);
    SignalCounter returns(&edit, &edit.returnPressed);
    EXPECT_TRUE(key(&edit, '8', "8"));
    EXPECT_TRUE(key(&edit, '0', "0"));
    EXPECT_EQ(edit.text(), "80");
    for (int arrow :
         {VyKeyEvent::KeyLeft, VyKeyEvent::KeyRight, VyKeyEvent::KeyUp, VyKeyEvent::KeyDown})
        EXPECT_FALSE(key(&edit, arrow));
    EXPECT_TRUE(key(&edit, VyKeyEvent::KeyOk));
    EXPECT_EQ(keyboard.count, 1);
    edit.setKeyboardEnabled(false);
    key(&edit, VyKeyEvent::KeyOk);
    EXPECT_EQ(returns.count, 1);
}

TEST_F(LineEdit, MouseSetsTheCursorAndDragSelects) {
    VyWidget window;
    window.setGeometry(0, 0, 400, 100);
    auto* edit = new VyLineEdit("0123456789", &window);
    edit->setGeometry(0, 0, 400, 40);
    window.show();
    edit->show();
    SignalCounter keyboard(edit, &edit->keyboardRequested);
    int right = 0;
    while (edit->positionAt(right) < 7)
        ++right;
    press(5, 20);
    // Over text, the pointer shows where a click would put the text cursor.
    EXPECT_EQ(app()->screen()->cursor()->shape(), VyScreenCursor::IBeam);
    pointer(right, 20, 1);
    release(right, 20);
    EXPECT_EQ(edit->selectedText(),
              edit->text().mid(edit->selectionStart(), 7 - edit->selectionStart()));
    EXPECT_TRUE(edit->hasSelectedText());
    EXPECT_EQ(keyboard.count, 0); // a drag is not a click
    click(right, 20);
    EXPECT_EQ(edit->cursorPosition(), 7);
    EXPECT_EQ(keyboard.count, 1);
}
