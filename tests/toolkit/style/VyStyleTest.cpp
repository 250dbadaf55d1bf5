#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <sys/stat.h>
#include <vector>

#include "runtime/VyIniSettings.h"
#include "runtime/VyResources.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/graphics/VyFbCanvas.h"
#include "toolkit/style/VyStyle.h"
#include "toolkit/style/VyStyleSlot.h"

namespace {

VyIniSettings sheet(const std::string& text) {
    return VyIniSettings::fromText(text.data(), text.size());
}

void writeFile(const std::string& path, const std::string& text) {
    FILE* f = std::fopen(path.c_str(), "w");
    ASSERT_NE(f, nullptr);
    std::fputs(text.c_str(), f);
    std::fclose(f);
}

} // namespace

TEST(StyleColors, KeysLandInTheirStateSlots) {
    VyStyle style;
    style.apply(sheet("[VyPushButton]\nForeground/Hover = rgba(1,1,2,200)\n"
                      "Background/Disabled = rgb(2,1,2)\n"
                      "[VyListWidget]\nSelected/Background = rgb(3,1,2)\n"
                      "Selected/Foreground = rgb(4,1,2)\nBorder/Focus = rgb(5,1,2)\n"
                      "Border/Normal = rgb(7,1,2)\n"
                      "[VyTableWidget]\nTitleRow/Background = rgb(6,1,2)\n"
                      "[VyComboBox]\nPopup/BorderColor = rgb(9,8,7)\n"
                      "[VyToolTip]\nBorderColor = rgb(6,5,4)\n"),
                1.0f, 1.0f);
    const VyStyleOption& o = style.option();
    EXPECT_EQ(o.get<VyPushButtonOption>().foreground.value(VyStyleHover).color,
              VyColor(1, 1, 2, 200));
    EXPECT_EQ(o.get<VyPushButtonOption>().background.value(VyStyleDisabled).color,
              VyColor(2, 1, 2));
    // The list widget's row: borders in 0 and 1, the selection in 5 and 6; nothing in 2.
    const VySTOptArray<VySTColor, 8>& list = o.get<VyListWidgetOption>().colors;
    EXPECT_EQ(list.value(0).color, VyColor(7, 1, 2));
    EXPECT_EQ(list.value(1).color, VyColor(5, 1, 2));
    EXPECT_FALSE(list.isSet(2));
    EXPECT_EQ(list.value(5).color, VyColor(3, 1, 2));
    EXPECT_EQ(list.value(6).color, VyColor(4, 1, 2));
    EXPECT_EQ(o.get<VyTableWidgetOption>().titleRowBackground.value(0).color, VyColor(6, 1, 2));
    EXPECT_EQ(o.get<VyComboBoxOption>().popupBorderColor.value(0).color, VyColor(9, 8, 7));
    EXPECT_EQ(o.get<VyToolTipOption>().borderColor.value(0).color, VyColor(6, 5, 4));
    // A state the sheet has no key for stays untouched.
    EXPECT_FALSE(o.get<VyPushButtonOption>().borderColor.isSet(VyStyleNormal));
}

TEST(StyleColors, EmptySheetLeavesColoursUnsetOtherKeysMakeThemTransparent) {
    VyStyle style;
    style.apply(sheet(""), 1.0f, 1.0f);
    EXPECT_FALSE(style.option().get<VyPushButtonOption>().foreground.isSet(VyStyleNormal));
    EXPECT_FALSE(style.option().get<VyToolTipOption>().borderColor.isSet(0));

    style.apply(sheet("[Unrelated]\nKey = 1\n"), 1.0f, 1.0f);
    const VySTColor c = style.option().get<VyPushButtonOption>().foreground.value(VyStyleNormal);
    EXPECT_TRUE(c.isSet());
    EXPECT_EQ(c.color, VyColor(0, 0, 0, 0));
}

TEST(StyleWidths, PushButtonBorderAndMarginFollowTheHorizontalScale) {
    struct Case {
        const char* value;
        float scale;
        int border;
        int margin;
    } cases[] = {{"1", 1.0f, 1, 0}, {"3", 0.667f, 2, 1}, {"0", 1.0f, 1, 0}, {"5", 1.0f, 5, 2}};
    for (const Case& c : cases) {
        VyStyle style;
        style.apply(sheet(std::string("[VyPushButton]\nBorderWidth = ") + c.value + "\n"), c.scale,
                    1.0f);
        const VyPushButtonOption& b = style.option().get<VyPushButtonOption>();
        for (int slot : {int(VyStyleHover), int(VyStyleFocus)}) {
            const VySTBorderWidth w = b.borderWidth.value(slot);
            EXPECT_TRUE(w.isSet());
            EXPECT_EQ(w.left, c.border) << c.value << " at " << c.scale;
            EXPECT_EQ(w.bottom, c.border);
            EXPECT_EQ(b.margin.value(slot).top, c.margin) << c.value << " at " << c.scale;
        }
        EXPECT_EQ(b.borderWidth.at(VyStyleNormal), nullptr);
        EXPECT_EQ(b.borderWidth.at(VyStyleDisabled), nullptr);
    }
}

TEST(StyleWidths, OtherWidthsScaleWithoutMinimum) {
    VyStyle style;
    style.apply(sheet("[VyCheckBox]\nBorder/width = 1\n[VyTableWidget]\nBorder/Width = 4\n"
                      "[VyComboBox]\nPopup/BorderWidth = 3\n[VyToolTip]\nBorderWidth = 2\n"),
                0.5f, 1.0f);
    const VyStyleOption& o = style.option();
    for (int slot = 0; slot < kVyStyleStateCount; ++slot) {
        EXPECT_TRUE(o.get<VyCheckBoxOption>().borderWidth.isSet(slot));
        EXPECT_EQ(o.get<VyCheckBoxOption>().borderWidth.value(slot).right, 0);
    }
    EXPECT_EQ(o.get<VyTableWidgetOption>().borderWidth.value(0).left, 2);
    EXPECT_EQ(o.get<VyComboBoxOption>().popupBorderWidth.value(0).left, 1);
    EXPECT_EQ(o.get<VyToolTipOption>().borderWidth.value(0).top, 1);
}

TEST(StyleFonts, PixelSizeFollowsTheMeanScaleInTheFourStateSlots) {
    VyStyle style;
    style.apply(sheet(""), 1280.0f / 1920, 720.0f / 1080); // 17 x 0.667 = 11.3
    const VyStyleOption& o = style.option();
    for (int slot = 0; slot < kVyStyleStateCount; ++slot) {
        EXPECT_EQ(o.get<VyPushButtonOption>().font.value(slot).font.pixelSize(), 11);
        EXPECT_EQ(o.get<VyLabelOption>().font.value(slot).font.pixelSize(), 11);
        EXPECT_EQ(o.get<VyScrollBarOption>().font.value(slot).font.pixelSize(), 11);
    }
    EXPECT_FALSE(o.get<VyLabelOption>().font.isSet(4));
    const VyStyleOption before = style.option();
    style.apply(sheet(""), 1.0f, 2.0f); // mean 1.5: 25.5
    EXPECT_EQ(before.get<VyComboBoxOption>().font.value(VyStyleDisabled).font.pixelSize(), 11)
        << "a copy taken before a reload keeps its values";
    EXPECT_EQ(style.option().get<VyComboBoxOption>().font.value(VyStyleDisabled).font.pixelSize(),
              25);
}

TEST(StyleSharing, OptArrayCopiesShareUntilASlotIsWritten) {
    VySTOptArray<VySTColor, 8> a;
    a.edit(0).color = VyColor(1, 1, 1);
    a.edit(1).color = VyColor(2, 2, 2);
    VySTOptArray<VySTColor, 8> b = a;
    EXPECT_TRUE(b.sharesSlotWith(a, 0));
    b.edit(1).color = VyColor(3, 3, 3);
    EXPECT_EQ(a.value(1).color, VyColor(2, 2, 2));
    EXPECT_EQ(b.value(1).color, VyColor(3, 3, 3));
    EXPECT_TRUE(b.sharesSlotWith(a, 0)) << "an unwritten slot stays shared";
    EXPECT_FALSE(b.sharesSlotWith(a, 1));
    b.clear(0);
    EXPECT_EQ(b.at(0), nullptr);
    EXPECT_EQ(a.value(0).color, VyColor(1, 1, 1));
    EXPECT_EQ(a.at(7), nullptr);
    EXPECT_FALSE(a.isSet(7));
}

TEST(StyleSharing, OptionCopiesDetachOnWrite) {
    VyStyleOption a;
    EXPECT_FALSE(a.has<VyLabelOption>());
    EXPECT_FALSE(a.get<VyLabelOption>().foreground.isSet(0));
    a.edit<VyLabelOption>().foreground.edit(0).color = VyColor(10, 20, 30);
    VyStyleOption b = a;
    EXPECT_TRUE(b.sharesWith(a));
    b.edit<VyLabelOption>().foreground.edit(1).color = VyColor(1, 2, 3);
    EXPECT_FALSE(b.sharesWith(a));
    EXPECT_FALSE(a.get<VyLabelOption>().foreground.isSet(1));
    EXPECT_TRUE(
        b.get<VyLabelOption>().foreground.sharesSlotWith(a.get<VyLabelOption>().foreground, 0));
    b.edit<VyToolTipOption>();
    EXPECT_FALSE(a.has<VyToolTipOption>());
}

TEST(StyleArrows, DownwardTriangleNarrowsToItsApex) {
    // 9 columns, 5 rows: step 0.9, insets 0, 1, 2, 3 on rows 0 to 3; the apex row is left out.
    const VyList<VyRect> down = VyStyle::arrowSpans(VyStyle::ArrowDown, VyRect(10, 20, 9, 5));
    ASSERT_EQ(down.size(), 4);
    const int insets[] = {0, 1, 2, 3};
    for (int k = 0; k < 4; ++k) {
        EXPECT_EQ(down.at(k).top, 20 + k);
        EXPECT_EQ(down.at(k).bottom, 20 + k);
        EXPECT_EQ(down.at(k).left, 10 + insets[k]);
        EXPECT_EQ(down.at(k).right, 18 - insets[k]);
    }
    const VyList<VyRect> up = VyStyle::arrowSpans(VyStyle::ArrowUp, VyRect(10, 20, 9, 5));
    ASSERT_EQ(up.size(), 4);
    EXPECT_EQ(up.at(0).top, 24);
    EXPECT_EQ(up.at(3).left, 13);

    // Sideways arrows are the same triangle turned: columns instead of rows.
    const VyList<VyRect> right = VyStyle::arrowSpans(VyStyle::ArrowRight, VyRect(0, 0, 5, 9));
    const VyList<VyRect> left = VyStyle::arrowSpans(VyStyle::ArrowLeft, VyRect(0, 0, 5, 9));
    ASSERT_EQ(right.size(), 4);
    ASSERT_EQ(left.size(), 4);
    EXPECT_EQ(right.at(3).left, 3);
    EXPECT_EQ(right.at(3).top, 3);
    EXPECT_EQ(right.at(3).bottom, 5);
    EXPECT_EQ(left.at(0).left, 4);
    EXPECT_EQ(left.at(0).height(), 9);

    EXPECT_TRUE(VyStyle::arrowSpans(VyStyle::ArrowDown, VyRect(0, 0, 0, 4)).isEmpty());
    EXPECT_TRUE(VyStyle::arrowSpans(VyStyle::ArrowDown, VyRect(0, 0, 8, 1)).isEmpty());
}

TEST(StyleArrows, DrawingFillsExactlyTheSpans) {
    VyFbCanvas canvas(16, 8);
    canvas.fillRect(VyRect(0, 0, 16, 8), 0xFF000000);
    VyStyle style;
    const VyRect box(2, 1, 11, 6);
    style.drawArrow(&canvas, VyStyle::ArrowDown, box, 0xFFFFFFFF);
    const VyList<VyRect> spans = VyStyle::arrowSpans(VyStyle::ArrowDown, box);
    for (int y = 0; y < 8; ++y)
        for (int x = 0; x < 16; ++x) {
            bool inside = false;
            for (const VyRect& s : spans)
                inside = inside || s.contains(x, y);
            EXPECT_EQ(canvas.pixel(x, y), inside ? 0xFFFF : 0x8000) << x << "," << y;
        }
}

TEST(StyleScreen, ReloadsTheCommonSheetWhenTheGeometryChanges) {
    const std::string root = ::testing::TempDir() + "style_root";
    ::mkdir(root.c_str(), 0755);
    ::mkdir((root + "/style").c_str(), 0755);
    writeFile(root + "/style/commonstyle.ini",
              "[VyPushButton]\nBorderWidth = 3\nForeground\\Normal = rgb(1,2,3)\n");
    VyResources::setRoot(root.c_str());

    VyScreen screen;
    ASSERT_TRUE(screen.open("mem:1920x1080"));
    VyStyle style;
    style.followScreen(&screen);
    EXPECT_EQ(style.option().get<VyPushButtonOption>().borderWidth.value(VyStyleFocus).left, 3);
    EXPECT_EQ(style.option().get<VyPushButtonOption>().foreground.value(0).color, VyColor(1, 2, 3));

    ASSERT_TRUE(screen.reopen("mem:1280x720"));
    EXPECT_EQ(style.option().get<VyPushButtonOption>().borderWidth.value(VyStyleFocus).left, 2);
    EXPECT_EQ(style.option().get<VyPushButtonOption>().font.value(0).font.pixelSize(), 11);
    VyResources::setRoot("");
}

TEST(StyleResources, ShippedMainViewSheetReads) {
    const VyIniSettings mainView(VY_RESOURCES_DIR "/style/mainview.ini");
    EXPECT_EQ(mainView.color("MainView/Background"), VyColor(0, 0, 0));
    EXPECT_TRUE(mainView.map().contains("MainViewVideo/Border/Normal/Selected"));
}

TEST(StyleImages, FixedImagePathsResolveBelowTheResourcesRootAndMayBeMissing) {
    const std::string root = ::testing::TempDir() + "style_images";
    ::mkdir(root.c_str(), 0755);
    ::mkdir((root + "/images").c_str(), 0755);
    VyBitmap handle(4, 3);
    handle.fill(0xFF102030);
    ASSERT_TRUE(handle.savePng((root + "/images/slider-handle.png").c_str()));
    VyResources::setRoot(root.c_str());

    VyStyle style;
    style.apply(sheet(""), 1.0f, 1.0f);
    const VySliderOption& slider = style.option().get<VySliderOption>();
    ASSERT_TRUE(slider.handle.isSet(VyStyleNormal));
    EXPECT_EQ(slider.handle.value(VyStyleNormal).bitmap.width(), 4);
    EXPECT_EQ(slider.handle.value(VyStyleNormal).bitmap.pixel(1, 1), 0xFF102030u);
    EXPECT_EQ(slider.handle.value(VyStyleHover).path, "images/slider-handle-hover.png");
    EXPECT_FALSE(slider.handle.isSet(VyStyleHover));
    EXPECT_FALSE(style.option().get<VyCheckBoxOption>().checked.isSet(VyStyleNormal));

    // Wider outputs take the doubled "-max" image where one is shipped, the normal one where not.
    VyBitmap large(8, 6);
    large.fill(0xFF405060);
    ASSERT_TRUE(large.savePng((root + "/images/slider-handle-max.png").c_str()));
    style.apply(sheet(""), 2.0f, 2.0f);
    EXPECT_EQ(style.option().get<VySliderOption>().handle.value(VyStyleNormal).bitmap.width(), 8);
    style.apply(sheet(""), 1.0f, 1.0f);
    EXPECT_EQ(style.option().get<VySliderOption>().handle.value(VyStyleNormal).bitmap.width(), 4);
    // Another root is not served the images cached for the first one.
    VyResources::setRoot((root + "/elsewhere").c_str());
    style.apply(sheet(""), 1.0f, 1.0f);
    EXPECT_FALSE(style.option().get<VySliderOption>().handle.isSet(VyStyleNormal));
    VyResources::setRoot("");
}
