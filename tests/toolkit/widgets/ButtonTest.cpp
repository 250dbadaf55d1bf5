#include "ControlTestApp.h"

#include <string>
#include <vector>

#include "toolkit/widgets/ProxyButton.h"
#include "toolkit/widgets/VyCheckBox.h"
#include "toolkit/widgets/VyGroupBox.h"
#include "toolkit/widgets/VyPushButton.h"
#include "toolkit/widgets/VyRadioButton.h"

namespace {

// Records the order of a button's signals.
class SignalOrder : public VyObject {
    VY_OBJECT(SignalOrder, VyObject)
public:
    explicit SignalOrder(VyAbstractButton* b) {
        connect(b, &b->pressed, this, VY_SLOT(SignalOrder, onPressed));
        connect(b, &b->released, this, VY_SLOT(SignalOrder, onReleased));
        connect(b, &b->clicked, this, VY_SLOT(SignalOrder, onClicked));
        connect(b, &b->toggled, this, VY_SLOT(SignalOrder, onToggled));
    }
    void onPressed() { log.push_back("pressed"); }
    void onReleased() { log.push_back("released"); }
    void onClicked() { log.push_back("clicked"); }
    void onToggled() { log.push_back("toggled"); }
    std::vector<std::string> log;
};

// A window holding one control at (10, 10), 100 x 30.
struct Window {
    VyWidget window;
    Window() { window.setGeometry(0, 0, 300, 200); }
    template <typename T>
    T* add(T* w, int x = 10, int y = 10) {
        w->setGeometry(x, y, 100, 30);
        window.show();
        w->show();
        return w;
    }
};

using Strings = std::vector<std::string>;

} // namespace

using Buttons = ControlTest;

TEST_F(Buttons, MouseClickEmitsInOrderAndAReleaseOutsideCancelsTheClick) {
    Window w;
    auto* b = w.add(new VyPushButton("OK", &w.window));
    SignalOrder order(b);
    click(20, 20);
    EXPECT_EQ(order.log, (Strings{"pressed", "released", "clicked"}));
    order.log.clear();

    press(20, 20);
    EXPECT_TRUE(b->isDown());
    pointer(200, 150, 1); // dragged off while held: shown released
    EXPECT_FALSE(b->isDown());
    release(200, 150);
    EXPECT_EQ(order.log, (Strings{"pressed", "released"}));
}

TEST_F(Buttons, CheckableTogglesOnClickAndSetCheckedToTheSameValueSaysNothing) {
    Window w;
    auto* box = w.add(new VyCheckBox("Alarm", &w.window));
    SignalOrder order(box);
    click(20, 20);
    EXPECT_TRUE(box->isChecked());
    EXPECT_EQ(order.log, (Strings{"pressed", "released", "toggled", "clicked"}));
    order.log.clear();
    box->setChecked(true);
    EXPECT_TRUE(order.log.empty());
    // A plain button cannot be checked at all.
    VyPushButton plain;
    plain.setChecked(true);
    EXPECT_FALSE(plain.isChecked());
}

TEST_F(Buttons, RadioButtonsAreExclusiveWithinTheirParentOnly) {
    Window w;
    auto* a = w.add(new VyRadioButton("A", &w.window), 10, 10);
    auto* b = w.add(new VyRadioButton("B", &w.window), 10, 50);
    VyWidget other(&w.window);
    other.setGeometry(150, 0, 140, 200);
    other.show();
    auto* c = new VyRadioButton("C", &other);
    c->setGeometry(10, 10, 100, 30);
    c->show();

    a->setChecked(true);
    c->setChecked(true);
    click(20, 60);
    EXPECT_FALSE(a->isChecked());
    EXPECT_TRUE(b->isChecked());
    EXPECT_TRUE(c->isChecked()); // another group
    // Clicking the checked member keeps it checked: a group never ends up empty.
    click(20, 60);
    EXPECT_TRUE(b->isChecked());
    // OK through the key path lands the same way after its animation.
    key(a, VyKeyEvent::KeyOk);
    advance(VyAbstractButton::kAnimateClickMs);
    EXPECT_TRUE(a->isChecked());
    EXPECT_FALSE(b->isChecked());
}

TEST_F(Buttons, AutoRepeatClicksAfterTheDelayThenEveryIntervalWhileHeld) {
    Window w;
    auto* b = w.add(new VyPushButton("+", &w.window));
    b->setAutoRepeat(true);
    SignalCounter clicks(b, &b->clicked);
    press(20, 20);
    advance(VyAbstractButton::kAutoRepeatDelayMs - 1);
    EXPECT_EQ(clicks.count, 0);
    advance(1);
    EXPECT_EQ(clicks.count, 1);
    advance(VyAbstractButton::kAutoRepeatIntervalMs);
    advance(VyAbstractButton::kAutoRepeatIntervalMs);
    EXPECT_EQ(clicks.count, 3);
    release(20, 20); // the repeats were the clicks; the release adds none
    EXPECT_EQ(clicks.count, 3);
    advance(1000);
    EXPECT_EQ(clicks.count, 3);
    // A short press of an auto-repeat button still clicks once.
    click(20, 20);
    EXPECT_EQ(clicks.count, 4);
}

TEST_F(Buttons, OkShowsTheButtonPressedFor100MsBeforeTheClick) {
    Window w;
    auto* b = w.add(new VyPushButton("Apply", &w.window));
    SignalCounter clicks(b, &b->clicked);
    EXPECT_TRUE(key(b, VyKeyEvent::KeyOk));
    EXPECT_TRUE(b->isDown());
    key(b, VyKeyEvent::KeyOk); // a second OK during the animation is not a second click
    advance(VyAbstractButton::kAnimateClickMs - 1);
    EXPECT_EQ(clicks.count, 0);
    advance(1);
    EXPECT_EQ(clicks.count, 1);
    EXPECT_FALSE(b->isDown());
    // Arrows are not a button's: they move the key focus.
    EXPECT_FALSE(key(b, VyKeyEvent::KeyUp));
    EXPECT_FALSE(key(b, VyKeyEvent::KeyRight));
}

TEST_F(Buttons, ProxyButtonRunsItsActionAtOnceOnOk) {
    Window w;
    auto* p = w.add(new ProxyButton(&w.window));
    EXPECT_EQ(p->className(), "ProxyButton");
    SignalCounter actions(p, &p->proxyAction);
    EXPECT_TRUE(key(p, VyKeyEvent::KeyOk));
    EXPECT_EQ(actions.count, 1);
    EXPECT_FALSE(p->isDown());
    EXPECT_FALSE(p->isAnimating());
    click(20, 20); // the mouse runs it too
    EXPECT_EQ(actions.count, 2);
}

TEST_F(Buttons, DisabledButtonsIgnoreMouseAndKeys) {
    Window w;
    auto* b = w.add(new VyCheckBox("x", &w.window));
    b->setEnabled(false);
    SignalCounter clicks(b, &b->clicked);
    click(20, 20);
    EXPECT_FALSE(key(b, VyKeyEvent::KeyOk));
    advance(VyAbstractButton::kAnimateClickMs);
    EXPECT_EQ(clicks.count, 0);
    EXPECT_FALSE(b->isChecked());
    // Disabling a parent disables the tree.
    b->setEnabled(true);
    w.window.setEnabled(false);
    EXPECT_FALSE(b->isEnabled());
}

namespace {

class DeletesOnClick : public VyObject {
    VY_OBJECT(DeletesOnClick, VyObject)
public:
    explicit DeletesOnClick(VyAbstractButton* b)
        : button(b) {
        connect(b, &b->clicked, this, VY_SLOT(DeletesOnClick, onClicked));
    }
    void onClicked() {
        delete button;
        button = nullptr;
    }
    VyAbstractButton* button;
};

} // namespace

TEST_F(Buttons, AButtonDeletedByItsClickedSlotIsNotTouchedAgain) {
    Window w;
    auto* b = w.add(new VyPushButton("Close", &w.window));
    DeletesOnClick killer(b);
    key(b, VyKeyEvent::KeyOk);
    advance(VyAbstractButton::kAnimateClickMs);
    EXPECT_EQ(killer.button, nullptr);
    auto* c = w.add(new VyPushButton("Close", &w.window));
    DeletesOnClick killer2(c);
    click(20, 20);
    EXPECT_EQ(killer2.button, nullptr);
}

TEST_F(Buttons, CheckableGroupBoxTogglesOnOkAndEnablesItsChildrenWithIt) {
    Window w;
    auto* box = new VyGroupBox("Schedule", &w.window);
    box->setGeometry(10, 10, 200, 150);
    auto* inner = new VyCheckBox("Day", box);
    EXPECT_FALSE(key(box, VyKeyEvent::KeyOk)); // not checkable: OK is not its
    EXPECT_TRUE(box->isChecked());
    box->setCheckable(true);
    SignalCounter toggles(box, &box->toggled);
    EXPECT_TRUE(key(box, VyKeyEvent::KeyOk));
    EXPECT_FALSE(box->isChecked());
    EXPECT_FALSE(inner->isEnabled());
    EXPECT_TRUE(key(box, VyKeyEvent::KeyOk));
    EXPECT_TRUE(box->isChecked());
    EXPECT_TRUE(inner->isEnabled());
    EXPECT_EQ(toggles.count, 2);
}
