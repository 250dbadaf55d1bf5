#include <gtest/gtest.h>

#include <cstdio>
#include <functional>
#include <string>
#include <sys/stat.h>
#include <vector>

#include "runtime/VyResources.h"
#include "toolkit/core/VyFbCanvas.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/style/VyIniSettings.h"
#include "toolkit/style/VyStyle.h"
#include "toolkit/style/VyStyleSlot.h"

namespace {

VyIniSettings sheet(const std::string& text) {
    return VyIniSettings::fromText(text.data(), text.size());
}

using Row = VySTOptArray<VySTColor, 8>;
using Pick = std::function<const Row&(const VyStyleOption&)>;

struct KeySlot {
    std::string key;
    Pick row;
    int slot;
};

template <typename Record>
Pick pick(Row Record::*member) {
    return [member](const VyStyleOption& o) -> const Row& { return o.get<Record>().*member; };
}

// Every colour key of the common style sheet and the slot it must land in.
std::vector<KeySlot> colourKeys() {
    std::vector<KeySlot> keys;
    auto states = [&keys](const std::string& prefix, Pick row, std::vector<const char*> names) {
        for (const char* n : names) {
            const std::string s = n;
            const int slot = s == "Normal" ? 0 : s == "Hover" ? 1 : s == "Focus" ? 2 : 3;
            keys.push_back({prefix + "/" + s, row, slot});
        }
    };
    const std::vector<const char*> all = {"Normal", "Hover", "Focus", "Disabled"};
    states("VyLabel/Foreground", pick(&VyLabelOption::foreground), {"Normal"});
    states("VyPushButton/Foreground", pick(&VyPushButtonOption::foreground), all);
    states("VyPushButton/Background", pick(&VyPushButtonOption::background), all);
    states("VyPushButton/BorderColor", pick(&VyPushButtonOption::borderColor), {"Hover", "Focus"});
    states("VySlider/Border", pick(&VySliderOption::border), all);
    states("VySlider/Groove/Background", pick(&VySliderOption::grooveBackground), {"Normal"});
    states("VySlider/SubPage/Background", pick(&VySliderOption::subPageBackground),
           {"Normal", "Hover"});
    for (const char* part : {"Foreground", "Background", "Border"})
        states(std::string("VyLineEdit/") + part,
               pick(std::string(part) == "Foreground"   ? &VyLineEditOption::foreground
                    : std::string(part) == "Background" ? &VyLineEditOption::background
                                                        : &VyLineEditOption::border),
               all);
    states("VyComboBox/Border", pick(&VyComboBoxOption::border), all);
    states("VyComboBox/Foreground", pick(&VyComboBoxOption::foreground), all);
    states("VyComboBox/Background", pick(&VyComboBoxOption::background), all);
    states("VyComboBox/DropDown/Border", pick(&VyComboBoxOption::dropDownBorder), all);
    states("VyComboBox/DropDown/Arrow", pick(&VyComboBoxOption::dropDownArrow), {"Disabled"});
    states("VyComboBox/Popup/Background", pick(&VyComboBoxOption::popupBackground),
           {"Normal", "Hover"});
    states("VyComboBox/Popup/Foreground", pick(&VyComboBoxOption::popupForeground),
           {"Normal", "Hover"});
    states("VyCheckBox/Foreground", pick(&VyCheckBoxOption::foreground), {"Normal", "Disabled"});
    states("VyCheckBox/Border", pick(&VyCheckBoxOption::border), all);
    states("VySpinBox/Border", pick(&VySpinBoxOption::border), all);
    states("VySpinBox/Foreground", pick(&VySpinBoxOption::foreground), all);
    states("VySpinBox/Background", pick(&VySpinBoxOption::background), all);
    states("VyRadioButton/Foreground", pick(&VyRadioButtonOption::foreground),
           {"Normal", "Disabled"});
    states("VyRadioButton/Border", pick(&VyRadioButtonOption::border), all);
    states("VyTableWidget/Border", pick(&VyTableWidgetOption::border), {"Normal", "Focus"});
    states("VyTableWidget/Cell/Border", pick(&VyTableWidgetOption::cellBorder), {"Focus"});
    keys.push_back(
        {"VyTableWidget/TitleRow/Background", pick(&VyTableWidgetOption::titleRowBackground), 0});
    states("VyListWidget/Border", pick(&VyListWidgetOption::colors), {"Normal", "Focus"});
    keys.push_back({"VyListWidget/Selected/Background", pick(&VyListWidgetOption::colors), 5});
    keys.push_back({"VyListWidget/Selected/Foreground", pick(&VyListWidgetOption::colors), 6});
    states("VyDateEdit/Border", pick(&VyDateEditOption::border), all);
    states("VyDateEdit/Foreground", pick(&VyDateEditOption::foreground), all);
    states("VyDateEdit/Background", pick(&VyDateEditOption::background), all);
    keys.push_back({"VyProgressBar/Border", pick(&VyProgressBarOption::border), 0});
    keys.push_back({"VyProgressBar/Foreground", pick(&VyProgressBarOption::foreground), 0});
    keys.push_back({"VyProgressBar/Chunk", pick(&VyProgressBarOption::chunk), 0});
    states("VyScrollBar/Background", pick(&VyScrollBarOption::background),
           {"Normal", "Hover", "Focus"});
    states("VyScrollBar/Groove", pick(&VyScrollBarOption::groove), {"Normal", "Hover", "Focus"});
    states("VyScrollBar/Slider", pick(&VyScrollBarOption::slider), {"Normal", "Hover", "Focus"});
    keys.push_back({"VyToolTip/Foreground", pick(&VyToolTipOption::foreground), 0});
    keys.push_back({"VyToolTip/Background", pick(&VyToolTipOption::background), 0});
    return keys;
}

void writeFile(const std::string& path, const std::string& text) {
    FILE* f = std::fopen(path.c_str(), "w");
    ASSERT_NE(f, nullptr);
    std::fputs(text.c_str(), f);
    std::fclose(f);
}

} // namespace

TEST(StyleColors, EveryKeyOfTheCommonSheetLandsInItsSlot) {
    const std::vector<KeySlot> keys = colourKeys();
    std::string text;
    for (size_t i = 0; i < keys.size(); ++i)
        text += keys[i].key + " = rgba(" + std::to_string(i) + ",1,2,200)\n";
    text += "VyComboBox/Popup/BorderColor = rgb(9,8,7)\nVyToolTip/BorderColor = rgb(6,5,4)\n";
    VyStyle style;
    style.apply(sheet(text), 1.0f, 1.0f);
    const VyStyleOption& o = style.option();
    for (size_t i = 0; i < keys.size(); ++i) {
        const VyColor c = keys[i].row(o).value(keys[i].slot).color;
        EXPECT_TRUE(c.isValid()) << keys[i].key;
        EXPECT_EQ(c.red, i) << keys[i].key;
        EXPECT_EQ(c.alpha, 200) << keys[i].key;
    }
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

TEST(StyleResources, ShippedSheetsNameEveryKeyTheControlsRead) {
    const VyIniSettings common(VY_RESOURCES_DIR "/style/commonstyle.ini");
    ASSERT_FALSE(common.isEmpty());
    for (const KeySlot& k : colourKeys())
        EXPECT_TRUE(common.map().contains(VyString(k.key.c_str()))) << k.key;
    for (const char* width :
         {"VyPushButton/BorderWidth", "VyCheckBox/Border/width", "VyTableWidget/Border/Width",
          "VyComboBox/Popup/BorderWidth", "VyToolTip/BorderWidth", "VyComboBox/Popup/BorderColor",
          "VyToolTip/BorderColor"})
        EXPECT_TRUE(common.map().contains(width)) << width;

    const char* const views[] = {"dialog",
                                 "calendar",
                                 "mainview",
                                 "settingswindow",
                                 "keyboard",
                                 "patternwidget",
                                 "uiwidget",
                                 "recordtimebar",
                                 "thumbnailbar",
                                 "wndtitlebar",
                                 "scheduleboard",
                                 "playerdialog",
                                 "userlogindialog",
                                 "settingstile",
                                 "ptz",
                                 "playback",
                                 "backuptoolbar",
                                 "mosearchpanel",
                                 "playbackdetailspanel",
                                 "playbacksearchpanel",
                                 "playbackscreen",
                                 "volumepanel",
                                 "wizard"};
    for (const char* view : views) {
        const VyIniSettings sheet(VyString(VY_RESOURCES_DIR "/style/") + view + ".ini");
        EXPECT_FALSE(sheet.isEmpty()) << view;
    }
    const VyIniSettings mainView(VY_RESOURCES_DIR "/style/mainview.ini");
    EXPECT_EQ(mainView.color("MainView/Background"), VyColor(0, 0, 0));
    EXPECT_TRUE(mainView.map().contains("FishEyeToolBar/Border"));
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
    VyResources::setRoot("");
}
