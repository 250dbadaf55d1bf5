#include "ControlTestApp.h"

#include <algorithm>
#include <vector>

#include "protocol/UiEventType.h"
#include "runtime/VyResources.h"
#include "toolkit/events/VyEvent.h"
#include "toolkit/widgets/VyKeyboard.h"
#include "toolkit/widgets/VyLineEdit.h"
#include "toolkit/widgets/VyPushButton.h"
#include "toolkit/widgets/VyToolTip.h"

using Keyboard = ControlTest;
using ToolTip = ControlTest;

namespace {

struct EditWindow {
    VyWidget window;
    VyLineEdit* edit;
    EditWindow() {
        window.setGeometry(0, 0, 640, 100);
        edit = new VyLineEdit(&window);
        edit->setGeometry(10, 10, 300, 40);
        window.show();
        edit->show();
    }
};

// Presses Down until the highlight reaches the bottom row, then Right until it is on `kind`.
void walkTo(VyKeyboard* kb, VyKeyboard::KeyKind kind) {
    int bottomRow = 0;
    for (const VyKeyboard::Key& k : kb->keys())
        bottomRow = std::max(bottomRow, k.rect.top);
    for (int i = 0; i < 10 && kb->keys()[kb->highlighted()].rect.top != bottomRow; ++i)
        kb->keyUpDown(VyKeyEvent::KeyDown);
    for (int i = 0; i < 20 && kb->keys()[kb->highlighted()].kind != kind; ++i)
        kb->keyLeftRight(VyKeyEvent::KeyRight);
}

class Recorder : public VyObject {
    VY_OBJECT(Recorder, VyObject)
public:
    void customEvent(VyEvent* e) override { types.push_back(e->type()); }
    std::vector<int> types;
};

} // namespace

TEST_F(Keyboard, TheRemoteAloneTypesMovesAndConfirms) {
    EditWindow w;
    EXPECT_TRUE(key(w.edit, VyKeyEvent::KeyOk));
    VyKeyboard* kb = w.edit->keyboard();
    ASSERT_NE(kb, nullptr);
    EXPECT_TRUE(kb->isVisible());
    EXPECT_TRUE(kb->hasFocus());
    SignalCounter accepted(kb, &kb->accepted);
    EXPECT_TRUE(key(kb, VyKeyEvent::KeyOk)); // the highlight starts on q
    EXPECT_TRUE(key(kb, VyKeyEvent::KeyRight));
    EXPECT_TRUE(key(kb, VyKeyEvent::KeyOk));
    EXPECT_TRUE(key(kb, '7', "7")); // digits from the remote type directly
    EXPECT_EQ(w.edit->text(), "qw7");
    // Left at the start of a row wraps to its end, Right at the end back to the start.
    const int q = kb->indexOf(VyKeyboard::Character, "q");
    kb->setHighlighted(q);
    key(kb, VyKeyEvent::KeyLeft);
    EXPECT_EQ(kb->keys()[kb->highlighted()].text, "p");
    key(kb, VyKeyEvent::KeyRight);
    EXPECT_EQ(kb->keys()[kb->highlighted()].text, "q");
    // Up from the top row wraps to the bottom row.
    kb->setHighlighted(kb->indexOf(VyKeyboard::Character, "1"));
    key(kb, VyKeyEvent::KeyUp);
    EXPECT_GT(kb->keys()[kb->highlighted()].rect.top, kb->keys()[q].rect.top);
    walkTo(kb, VyKeyboard::Confirm);
    ASSERT_EQ(kb->keys()[kb->highlighted()].kind, VyKeyboard::Confirm);
    key(kb, VyKeyEvent::KeyOk);
    EXPECT_FALSE(kb->isVisible());
    EXPECT_EQ(accepted.count, 1);
    EXPECT_EQ(w.edit->text(), "qw7");
    EXPECT_TRUE(w.edit->hasFocus());
}

TEST_F(Keyboard, CancelAndEscapePutTheTextBack) {
    EditWindow w;
    w.edit->setText("admin");
    w.edit->openKeyboard();
    VyKeyboard* kb = w.edit->keyboard();
    kb->activate(kb->indexOf(VyKeyboard::Backspace));
    kb->activate(kb->indexOf(VyKeyboard::Character, "x"));
    EXPECT_EQ(w.edit->text(), "admix");
    EXPECT_TRUE(key(kb, VyKeyEvent::KeyEscape));
    EXPECT_EQ(w.edit->text(), "admin");
    EXPECT_FALSE(kb->isVisible());
    w.edit->openKeyboard();
    kb->activate(kb->indexOf(VyKeyboard::Space));
    kb->activate(kb->indexOf(VyKeyboard::Cancel));
    EXPECT_EQ(w.edit->text(), "admin");
}

TEST_F(Keyboard, ShiftGivesOneCapitalAndTheValidatorStillRules) {
    EditWindow w;
    w.edit->openKeyboard();
    VyKeyboard* kb = w.edit->keyboard();
    kb->activate(kb->indexOf(VyKeyboard::Shift));
    kb->activate(kb->indexOf(VyKeyboard::Character, "A"));
    kb->activate(kb->indexOf(VyKeyboard::Character, "a"));
    EXPECT_EQ(w.edit->text(), "Aa");
    kb->activate(kb->indexOf(VyKeyboard::Symbols));
    kb->activate(kb->indexOf(VyKeyboard::Character, "@"));
    EXPECT_EQ(w.edit->text(), "Aa@");
    kb->activate(kb->indexOf(VyKeyboard::Cancel));

    w.edit->setText("");
    w.edit->setValidator(VyValidator::Port);
    w.edit->openKeyboard();
    kb->activate(kb->indexOf(VyKeyboard::Character, "8"));
    kb->activate(kb->indexOf(VyKeyboard::Character, "q")); // refused by the port validator
    EXPECT_EQ(w.edit->text(), "8");
}

TEST_F(Keyboard, AClickOnAKeyTypesIt) {
    EditWindow w;
    click(20, 20); // a click on the field opens the keyboard
    VyKeyboard* kb = w.edit->keyboard();
    ASSERT_NE(kb, nullptr);
    ASSERT_TRUE(kb->isVisible());
    const VyRect k = kb->keys()[kb->indexOf(VyKeyboard::Character, "z")].rect;
    const VyPoint at = kb->mapToGlobal(VyPoint(k.left + k.width() / 2, k.top + k.height() / 2));
    click(at.x, at.y);
    EXPECT_TRUE(w.edit->text().endsWith("z"));
}

TEST_F(Keyboard, ScriptsFollowTheLanguagesAndChineseGoesThroughTheInputMethod) {
    EXPECT_EQ(VyKeyboard::scriptForLanguage(15), VyKeyboard::Cyrillic); // russian
    EXPECT_EQ(VyKeyboard::scriptForLanguage(21), VyKeyboard::Arabic);
    EXPECT_EQ(VyKeyboard::scriptForLanguage(26), VyKeyboard::Arabic); // persion
    EXPECT_EQ(VyKeyboard::scriptForLanguage(0), VyKeyboard::Chinese);
    EXPECT_EQ(VyKeyboard::scriptForLanguage(34), VyKeyboard::Latin); // no language
    EXPECT_EQ(VyKeyboard::scriptForLanguage(-1), VyKeyboard::Latin);

    EditWindow w;
    w.edit->openKeyboard();
    VyKeyboard* kb = w.edit->keyboard();
    kb->setScript(VyKeyboard::Cyrillic);
    kb->activate(kb->indexOf(VyKeyboard::Character, "\xD0\xB4"));
    kb->activate(kb->indexOf(VyKeyboard::ScriptSwitch)); // back to Latin
    kb->activate(kb->indexOf(VyKeyboard::Character, "d"));
    EXPECT_EQ(w.edit->text(), "\xD0\xB4"
                              "d");

    Recorder im;
    kb->setInputMethod(&im);
    kb->setScript(VyKeyboard::Chinese);
    kb->activate(kb->indexOf(VyKeyboard::Character, "n"));
    kb->activate(kb->indexOf(VyKeyboard::Character, "i"));
    app()->processPostedEvents();
    EXPECT_EQ(kb->pinyin(), "ni");
    EXPECT_EQ(im.types, (std::vector<int>{UiEventType::ChineseInput, UiEventType::ChineseInput}));
    EXPECT_EQ(w.edit->text(), "\xD0\xB4"
                              "d"); // pinyin is not typed into the field
    VyStringList offered;
    offered.append("\xE4\xBD\xA0");
    offered.append("\xE5\x91\xA2");
    kb->setCandidates(offered);
    kb->activate(kb->indexOf(VyKeyboard::Candidate, "\xE4\xBD\xA0"));
    EXPECT_EQ(w.edit->text(), "\xD0\xB4"
                              "d\xE4\xBD\xA0");
    EXPECT_TRUE(kb->pinyin().isEmpty());
    EXPECT_EQ(kb->indexOf(VyKeyboard::Candidate), -1);
}

TEST_F(ToolTip, ShownAfterTheHoverDelayBesideThePointerAndHiddenOnLeave) {
    VyWidget window;
    window.setGeometry(0, 0, 640, 480);
    auto* button = new VyPushButton("Rec", &window);
    button->setGeometry(100, 100, 100, 40);
    auto* other = new VyPushButton("Stop", &window);
    other->setGeometry(300, 100, 100, 40);
    window.show();
    button->show();
    other->show();
    VyToolTip tip;
    tip.setToolTip(button, "Start recording");
    pointer(120, 110);
    advance(VyToolTip::kShowDelayMs - 1);
    EXPECT_FALSE(tip.isVisible());
    advance(1);
    ASSERT_TRUE(tip.isVisible());
    EXPECT_GE(tip.geometry().top, 110);
    EXPECT_LE(tip.geometry().left, 120);
    pointer(310, 110); // onto a widget without a tip
    EXPECT_FALSE(tip.isVisible());
    advance(2000);
    EXPECT_FALSE(tip.isVisible());
    // A press before the delay cancels the tip.
    pointer(120, 110);
    press(120, 110);
    release(120, 110);
    advance(2000);
    EXPECT_FALSE(tip.isVisible());
}

TEST_F(ToolTip, KeptOnTheScreenAndForgetsDestroyedWidgets) {
    VyWidget window;
    window.setGeometry(0, 0, 640, 480);
    auto* corner = new VyPushButton("x", &window);
    corner->setGeometry(600, 450, 40, 30);
    window.show();
    corner->show();
    VyToolTip tip;
    tip.setToolTip(corner, "A tip far wider than the room left at the screen's edge");
    pointer(630, 470);
    advance(VyToolTip::kShowDelayMs);
    ASSERT_TRUE(tip.isVisible());
    EXPECT_LE(tip.geometry().right, 639);
    EXPECT_LE(tip.geometry().bottom, 479);
    EXPECT_GE(tip.geometry().left, 0);
    pointer(10, 10);
    pointer(630, 470);
    delete corner; // while the delay runs
    advance(VyToolTip::kShowDelayMs);
    EXPECT_FALSE(tip.isVisible());
    EXPECT_EQ(tip.currentWidget(), nullptr);
}

TEST_F(Keyboard, ChineseWithoutAnInputMethodOffersTheTableInPagesPickedByNumber) {
    const VyString oldRoot = VyResources::root();
    VyResources::setRoot(VY_RESOURCES_DIR); // the table is read on first use, from here
    EditWindow w;
    w.edit->openKeyboard();
    VyKeyboard* kb = w.edit->keyboard();
    kb->setScript(VyKeyboard::Chinese);
    kb->activate(kb->indexOf(VyKeyboard::Character, "s"));
    kb->activate(kb->indexOf(VyKeyboard::Character, "h"));
    kb->activate(kb->indexOf(VyKeyboard::Character, "i"));
    const VyStringList offered = kb->candidates();
    ASSERT_GT(offered.size(), 12);
    EXPECT_EQ(offered.at(0), "\xE6\x98\xAF"); // 是
    EXPECT_EQ(kb->indexOf(VyKeyboard::PreviousPage), -1);
    int shown = 0;
    for (const VyKeyboard::Key& k : kb->keys())
        shown += k.kind == VyKeyboard::Candidate;
    EXPECT_EQ(shown, 6);

    kb->activate(kb->indexOf(VyKeyboard::NextPage));
    kb->activate(kb->indexOf(VyKeyboard::NextPage));
    kb->activate(kb->indexOf(VyKeyboard::PreviousPage));
    EXPECT_EQ(kb->candidatePage(), 1);
    EXPECT_EQ(kb->keys()[kb->indexOf(VyKeyboard::Candidate)].text, offered.at(6));
    // The remote's digit 2 and the keyboard's own "3" key pick from the page shown.
    VyKeyEvent two(VyEvent::KeyPress, VyKeyEvent::KeyDigit0 + 2, "2");
    VyApplication::sendEvent(kb, &two);
    EXPECT_EQ(w.edit->text(), offered.at(7));
    EXPECT_TRUE(kb->pinyin().isEmpty());
    EXPECT_TRUE(kb->candidates().isEmpty());
    // With no pinyin pending, digits type themselves.
    kb->activate(kb->indexOf(VyKeyboard::Character, "3"));
    EXPECT_EQ(w.edit->text(), offered.at(7) + "3");
    VyResources::setRoot(oldRoot);
}
