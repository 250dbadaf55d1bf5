#include "ControlTestApp.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <string>

#include "runtime/VyResources.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/graphics/VyFbCanvas.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/style/VyStyleSlot.h"
#include "toolkit/style/VyTextLayout.h"
#include "toolkit/widgets/CWidget.h"
#include "toolkit/widgets/VyLabel.h"
#include "toolkit/widgets/VyLineEdit.h"
#include "toolkit/widgets/VyPushButton.h"

using Labels = ControlTest;
using StyleSlots = ControlTest;

namespace {

// What an opaque colour becomes in the 16-bit framebuffer.
uint16_t pixel1555(vyargb c) {
    return static_cast<uint16_t>(0x8000 | (((c >> 19) & 0x1F) << 10) | (((c >> 11) & 0x1F) << 5) |
                                 ((c >> 3) & 0x1F));
}

} // namespace

TEST_F(Labels, ATextIdFollowsALanguageSwitchWithoutBeingSetAgain) {
    constexpr int kRussian = 15;
    auto* translation = new VyTranslation(VyString(VY_RESOURCES_DIR "/language"), nullptr);
    VyTranslation::resetInstance(translation);
    ASSERT_TRUE(translation->changeLanguage(VyTranslation::kEnglish));
    VyLabel label;
    label.setTextId(TextId::Common::Close);
    EXPECT_EQ(label.text(), "Close");

    ASSERT_TRUE(translation->changeLanguage(kRussian));
    EXPECT_EQ(label.text(), "Закрыть");
    // An unknown ID shows nothing rather than a number.
    label.setTextId(1);
    EXPECT_TRUE(label.text().isEmpty());
    // A literal text drops the ID: a later switch leaves it alone.
    label.setText("fixed");
    ASSERT_TRUE(translation->changeLanguage(VyTranslation::kEnglish));
    EXPECT_EQ(label.text(), "fixed");
    VyTranslation::resetInstance();
}

TEST_F(Labels, LinesNeverExceedTheLabelWidthWrappedOrElided) {
    VyLabel label("Overwrite the oldest recordings when the disk is full, on every disk");
    label.resize(90, 200);
    const int px = VyStyle::fontSize(VyStyle::instance()->option().get<VyLabelOption>().font, 0);
    VyStringList elided = label.displayLines();
    ASSERT_EQ(elided.size(), 1);
    EXPECT_LE(VyTextLayout::width(elided.at(0), px), 90);
    EXPECT_TRUE(elided.at(0).endsWith("\xE2\x80\xA6"));
    label.setWordWrap(true);
    const VyStringList lines = label.displayLines();
    EXPECT_GT(lines.size(), 2);
    VyString joined;
    for (int i = 0; i < lines.size(); ++i) {
        EXPECT_LE(VyTextLayout::width(lines.at(i), px), 90) << lines.at(i).c_str();
        joined += lines.at(i);
    }
    // Wrapping drops only the spaces it breaks at.
    auto noSpaces = [](const VyString& s) {
        std::string t = s.toStdString();
        t.erase(std::remove(t.begin(), t.end(), ' '), t.end());
        return t;
    };
    EXPECT_EQ(noSpaces(joined), noSpaces(label.text()));
}

TEST_F(StyleSlots, EachStateDrawsWithTheColourOfItsSlot) {
    // Distinct backgrounds per state, no border, so the centre pixel tells the slot apart.
    VyStyleOption option = VyStyle::instance()->option();
    VyPushButtonOption& rec = option.edit<VyPushButtonOption>();
    const vyargb colours[4] = {0xFF102030, 0xFF405060, 0xFF708090, 0xFFA0B0C0};
    for (int slot = 0; slot < 4; ++slot) {
        rec.background.edit(slot).color = VyColor::fromArgb(colours[slot]);
        rec.borderWidth.clear(slot);
    }
    const VyStyleOption saved = VyStyle::instance()->option();
    VyStyle::instance()->setOption(option);

    VyWidget window;
    window.setGeometry(0, 0, 200, 100);
    auto* button = new VyPushButton(&window);
    button->setGeometry(0, 0, 200, 100);
    window.show();
    button->show();
    VyScreen* screen = app()->screen();
    auto centre = [&] {
        app()->processPostedEvents();
        uint16_t v;
        std::memcpy(&v, screen->mapping() + 2 * screen->lineLength() + 2 * 2, sizeof v);
        return v;
    };
    EXPECT_EQ(button->styleSlot(), VyStyleNormal);
    EXPECT_EQ(centre(), pixel1555(colours[VyStyleNormal]));
    hover(button, true);
    EXPECT_EQ(button->styleSlot(), VyStyleHover);
    EXPECT_EQ(centre(), pixel1555(colours[VyStyleHover]));
    button->setFocus();
    EXPECT_EQ(button->styleSlot(), VyStyleFocus); // focus wins over hover
    EXPECT_EQ(centre(), pixel1555(colours[VyStyleFocus]));
    button->setEnabled(false); // and disabled over both; it also drops the focus
    EXPECT_FALSE(button->hasFocus());
    EXPECT_EQ(button->styleSlot(), VyStyleDisabled);
    EXPECT_EQ(centre(), pixel1555(colours[VyStyleDisabled]));
    VyStyle::instance()->setOption(saved);
}

TEST_F(StyleSlots, AMissingImageIsLoggedOnceAndADrawnShapeStandsIn) {
    const VyString oldRoot = VyResources::root();
    VyResources::setRoot(::testing::TempDir() + "no-such-resources");
    VyStyle style;
    testing::internal::CaptureStdout();
    style.reload(1.0f, 1.0f);
    style.reload(1.0f, 1.0f);
    const std::string out = testing::internal::GetCapturedStdout();
    VyResources::setRoot(oldRoot);
    size_t lines = 0;
    for (size_t at = out.find("checkbox-checked.png"); at != std::string::npos;
         at = out.find("checkbox-checked.png", at + 1))
        ++lines;
    EXPECT_EQ(lines, 1u) << out;
    EXPECT_FALSE(style.option().get<VyCheckBoxOption>().checked.isSet(VyStyleNormal));

    // The stand-in: a checked box still shows a mark inside its frame.
    VyFbCanvas canvas(40, 40);
    canvas.fillRect(VyRect(0, 0, 40, 40), 0xFF000000);
    style.drawCheckBox(&canvas, VyRect(0, 0, 40, 40), VyStyleNormal, true, VyString());
    const int side = style.indicatorSize();
    EXPECT_NE(canvas.pixel(side / 2, 20), pixel1555(0xFF000000));
    style.drawCheckBox(&canvas, VyRect(0, 0, 40, 40), VyStyleNormal, false, VyString());
}

namespace {

class Panel : public CWidget {
    VY_OBJECT(Panel, CWidget)
public:
    bool keyLeftRight(int key) override {
        last = key;
        return key == VyKeyEvent::KeyRight;
    }
    bool keyActivate() override { return ++activations > 0; }
    int last = 0;
    int activations = 0;
};

} // namespace

TEST_F(StyleSlots, CompositeWidgetsAnswerWhetherTheyUsedAKey) {
    Panel panel;
    EXPECT_TRUE(panel.inherits("CWidget"));
    EXPECT_FALSE(panel.acceptsKeyFocus());
    EXPECT_TRUE(key(&panel, VyKeyEvent::KeyRight));
    EXPECT_FALSE(key(&panel, VyKeyEvent::KeyLeft));
    EXPECT_EQ(panel.last, VyKeyEvent::KeyLeft);
    EXPECT_FALSE(key(&panel, VyKeyEvent::KeyUp)); // the base uses no up/down
    EXPECT_TRUE(key(&panel, VyKeyEvent::KeyOk));
    EXPECT_EQ(panel.activations, 1);
}

TEST_F(StyleSlots, ALongTextIsClippedToItsControl) {
    VyWidget window;
    window.setGeometry(0, 0, 300, 100);
    auto* edit = new VyLineEdit(&window);
    edit->setGeometry(10, 10, 80, 30);
    edit->setText("a text much longer than the field that holds it");
    auto* b = new VyPushButton("a caption much longer than the button", &window);
    b->setGeometry(10, 50, 80, 30);
    window.show();
    edit->show();
    b->show();
    app()->processPostedEvents();
    // Right of both controls the window's surface was never drawn on.
    VyScreen* screen = app()->screen();
    for (int y = 0; y < 100; ++y)
        for (int x = 90; x < 300; ++x) {
            uint16_t v;
            std::memcpy(&v, screen->mapping() + y * screen->lineLength() + x * 2, sizeof v);
            ASSERT_EQ(v, 0) << x << "," << y;
        }
}
