#include "ControlTestApp.h"

#include <climits>

#include "toolkit/widgets/VyBoundedValue.h"
#include "toolkit/widgets/VyProgressBar.h"
#include "toolkit/widgets/VyScrollBar.h"
#include "toolkit/widgets/VySlider.h"
#include "toolkit/widgets/VySpinBox.h"

using SpinBox = ControlTest;
using Sliders = ControlTest;

TEST_F(SpinBox, ValuesAreClampedAndSteppingWrapsOnlyWhenAsked) {
    VySpinBox spin;
    spin.setRange(10, 0); // swapped
    EXPECT_EQ(spin.minimum(), 0);
    EXPECT_EQ(spin.maximum(), 10);
    spin.setValue(99);
    EXPECT_EQ(spin.value(), 10);
    spin.setValue(-5);
    EXPECT_EQ(spin.value(), 0);
    spin.stepDown();
    EXPECT_EQ(spin.value(), 0);
    spin.setSingleStep(4);
    spin.setValue(8);
    spin.stepUp();
    EXPECT_EQ(spin.value(), 10);
    spin.setWrapping(true);
    spin.stepUp();
    EXPECT_EQ(spin.value(), 0);
    spin.stepDown();
    EXPECT_EQ(spin.value(), 10);
    spin.setPrefix("CH ");
    spin.setSuffix(" fps");
    EXPECT_EQ(spin.text(), "CH 10 fps");
    spin.setRange(20, 30); // the value follows the range
    EXPECT_EQ(spin.value(), 20);
}

TEST_F(SpinBox, KeepsUpAndDownAndTypedDigitsCommitClampedOnOk) {
    VySpinBox spin;
    spin.setRange(1, 64);
    spin.setValue(5);
    SignalCounter changes(&spin, &spin.valueChanged);
    EXPECT_TRUE(key(&spin, VyKeyEvent::KeyUp));
    EXPECT_TRUE(key(&spin, VyKeyEvent::KeyDown));
    EXPECT_FALSE(key(&spin, VyKeyEvent::KeyLeft));
    EXPECT_FALSE(key(&spin, VyKeyEvent::KeyRight));
    EXPECT_EQ(changes.count, 2);
    key(&spin, '9', "9");
    key(&spin, '9', "9");
    EXPECT_TRUE(spin.isTyping());
    EXPECT_EQ(spin.text(), "99");
    EXPECT_EQ(spin.value(), 5);
    EXPECT_TRUE(key(&spin, VyKeyEvent::KeyOk));
    EXPECT_EQ(spin.value(), 64);
    key(&spin, '0', "0");
    key(&spin, '3', "3"); // a leading zero carries nothing
    EXPECT_EQ(spin.text(), "3");
    EXPECT_TRUE(key(&spin, VyKeyEvent::KeyEscape));
    EXPECT_EQ(spin.value(), 64);
    EXPECT_FALSE(spin.isTyping());
    // Digits past what an int holds start over instead of overflowing.
    for (int i = 0; i < 12; ++i)
        key(&spin, '9', "9");
    EXPECT_LE(spin.text().length(), 10);
    key(&spin, VyKeyEvent::KeyOk);
    EXPECT_EQ(spin.value(), 64);
}

TEST_F(SpinBox, WheelAndHeldArrowsStepWithAutoRepeat) {
    VyWidget window;
    window.setGeometry(0, 0, 300, 100);
    auto* spin = new VySpinBox(&window);
    spin->setRange(0, 100);
    spin->setGeometry(0, 0, 200, 40);
    window.show();
    spin->show();
    EXPECT_TRUE(wheel(spin, 240));
    EXPECT_EQ(spin->value(), 2);
    wheel(spin, -120);
    EXPECT_EQ(spin->value(), 1);
    press(195, 5); // the up arrow
    EXPECT_EQ(spin->value(), 2);
    advance(VySpinBox::kRepeatDelayMs);
    advance(VySpinBox::kRepeatIntervalMs);
    EXPECT_EQ(spin->value(), 4);
    release(195, 5);
    advance(1000);
    EXPECT_EQ(spin->value(), 4);
    click(195, 35); // the down arrow
    EXPECT_EQ(spin->value(), 3);
    click(20, 20); // the text field: no step
    EXPECT_EQ(spin->value(), 3);
}

TEST_F(Sliders, SliderKeepsAllFourArrowsAndClampsAtTheEnds) {
    VySlider slider;
    slider.setRange(0, 10);
    slider.setValue(9);
    EXPECT_TRUE(key(&slider, VyKeyEvent::KeyRight));
    EXPECT_TRUE(key(&slider, VyKeyEvent::KeyUp));
    EXPECT_EQ(slider.value(), 10);
    EXPECT_TRUE(key(&slider, VyKeyEvent::KeyLeft));
    EXPECT_TRUE(key(&slider, VyKeyEvent::KeyDown));
    EXPECT_EQ(slider.value(), 8);
    EXPECT_FALSE(key(&slider, VyKeyEvent::KeyOk));
    slider.setValue(1000);
    EXPECT_EQ(slider.value(), 10);
    EXPECT_TRUE(wheel(&slider, -360));
    EXPECT_EQ(slider.value(), 7);
    slider.setRange(-5, 5);
    EXPECT_EQ(slider.value(), 5);
}

TEST_F(Sliders, SliderPagesOnAGrooveClickAndFollowsADraggedHandle) {
    VyWidget window;
    window.setGeometry(0, 0, 300, 100);
    auto* slider = new VySlider(&window);
    slider->setGeometry(0, 0, 220, 20);
    slider->setRange(0, 100);
    slider->setPageStep(10);
    window.show();
    slider->show();
    SignalCounter moved(slider, &slider->sliderMoved);
    click(200, 10);
    EXPECT_EQ(slider->value(), 10);
    click(2, 10);
    EXPECT_EQ(slider->value(), 0);
    // Grab the handle at its centre and drag it to the far end, then past it.
    const VyRect h = slider->handleRect();
    press(h.left + h.width() / 2, 10);
    EXPECT_TRUE(slider->isSliderDown());
    pointer(h.left + h.width() / 2 + 100, 10, 1);
    const VyRect dragged = slider->handleRect();
    const int draggedCentre = dragged.left + dragged.width() / 2;
    const int wantedCentre = h.left + h.width() / 2 + 100;
    EXPECT_LE(std::abs(draggedCentre - wantedCentre), 1);
    pointer(500, 10, 1);
    EXPECT_EQ(slider->value(), 100);
    release(500, 10);
    EXPECT_FALSE(slider->isSliderDown());
    EXPECT_EQ(moved.count, 2);
    // The handle sits inside the slider at both ends.
    EXPECT_EQ(slider->handleRect().right, slider->width() - 1);
    slider->setValue(0);
    EXPECT_EQ(slider->handleRect().left, 0);
}

TEST_F(Sliders, ScrollBarGroovePressPagesUntilTheSliderReachesThePointer) {
    VyWidget window;
    window.setGeometry(0, 0, 100, 400);
    auto* bar = new VyScrollBar(VyAbstractSlider::Vertical, &window);
    bar->setGeometry(0, 0, 20, 400);
    bar->setRange(0, 90);
    bar->setPageStep(10);
    window.show();
    bar->show();
    press(10, 200);
    EXPECT_EQ(bar->value(), 10);
    advance(VyScrollBar::kRepeatDelayMs - 1);
    EXPECT_EQ(bar->value(), 10);
    advance(1);
    EXPECT_EQ(bar->value(), 20);
    for (int i = 0; i < 20; ++i)
        advance(VyScrollBar::kRepeatIntervalMs);
    // Stopped where the slider covers the pointer, not at the end of the range.
    EXPECT_EQ(bar->value(), 50);
    EXPECT_TRUE(bar->sliderRect().contains(VyPoint(10, 200)));
    const int stoppedAt = bar->value();
    release(10, 200);
    advance(1000);
    EXPECT_EQ(bar->value(), stoppedAt);
    // A notch up scrolls back by a single step.
    wheel(bar, 120);
    EXPECT_EQ(bar->value(), stoppedAt - 1);
    // The slider's length shows the page against the range and keeps inside the bar.
    EXPECT_EQ(bar->sliderRect().height(), 400 * 10 / 100);
    bar->setValue(90);
    EXPECT_EQ(bar->sliderRect().bottom, 399);
}

TEST(ProgressBar, ValuesAreClampedAndThePercentageIsRoundedDown) {
    VyProgressBar bar;
    bar.setRange(0, 3);
    bar.setValue(2);
    EXPECT_EQ(bar.percent(), 66);
    EXPECT_EQ(bar.text(), "66%");
    bar.setValue(-7);
    EXPECT_EQ(bar.value(), 0);
    bar.setValue(1 << 30);
    EXPECT_EQ(bar.percent(), 100);
    bar.setRange(5, 5);
    EXPECT_EQ(bar.percent(), 0);
    bar.setRange(-2147483647 - 1, 2147483647); // a span that overflows int
    bar.setValue(0);
    EXPECT_EQ(bar.percent(), 50);
}

TEST(BoundedValue, SwapsTheRangeClampsAndSaturatesAtTheIntLimits) {
    VyBoundedValue v(10, -10);
    EXPECT_EQ(v.minimum(), -10);
    EXPECT_EQ(v.value(), -10);
    EXPECT_TRUE(v.setValue(25));
    EXPECT_EQ(v.value(), 10);
    EXPECT_FALSE(v.setValue(99)); // clamps to where it is
    EXPECT_FALSE(v.setRange(-10, 10));
    EXPECT_TRUE(v.setRange(5, 0)); // swapped, value clamped down
    EXPECT_EQ(v.value(), 5);
    EXPECT_EQ(v.percent(), 100);
    v.setRange(INT_MIN, INT_MAX);
    v.setValue(INT_MAX);
    EXPECT_EQ(v.offset(INT_MAX), INT_MAX);
    v.setValue(INT_MIN);
    EXPECT_EQ(v.offset(-1), INT_MIN);
    EXPECT_EQ(v.percent(), 0);
    v.setRange(3, 3);
    EXPECT_EQ(v.percent(), 0); // an empty range
}
