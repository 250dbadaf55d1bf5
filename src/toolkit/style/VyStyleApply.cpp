// Reading the common style sheet into the per-class records.
#include <algorithm>
#include <initializer_list>

#include "runtime/VyIniSettings.h"
#include "toolkit/style/VyStyle.h"
#include "toolkit/style/VyStyleSlot.h"

namespace {

constexpr const char* kStateNames[kVyStyleStateCount] = {"Normal", "Hover", "Focus", "Disabled"};
constexpr int kAllStates[] = {VyStyleNormal, VyStyleHover, VyStyleFocus, VyStyleDisabled};

// Reads the colours of a "<prefix>/<State>" family into the slots of their states.
class ColorReader {
public:
    explicit ColorReader(const VyIniSettings& settings)
        : m_settings(settings) {}

    void states(VySTOptArray<VySTColor, 8>& row, const VyString& prefix,
                std::initializer_list<int> slots) const {
        for (int slot : slots)
            one(row, slot, prefix + "/" + kStateNames[slot]);
    }
    void all(VySTOptArray<VySTColor, 8>& row, const VyString& prefix) const {
        states(row, prefix, {VyStyleNormal, VyStyleHover, VyStyleFocus, VyStyleDisabled});
    }
    void one(VySTOptArray<VySTColor, 8>& row, int slot, const VyString& key) const {
        row.edit(slot).color = m_settings.color(key);
    }
    void border(VySTOptArray<VySTBorderColor, 8>& row, int slot, const VyString& key) const {
        const VyColor c = m_settings.color(key);
        VySTBorderColor& v = row.edit(slot);
        v.color = c;
        v.set = c.isValid();
    }

private:
    const VyIniSettings& m_settings;
};

// Style widths are designed for 1920 columns; the product is truncated toward zero.
int scaledWidth(const VyIniSettings& settings, const char* key, float horizontalScale) {
    return static_cast<int>(static_cast<float>(settings.intValue(key)) * horizontalScale);
}

template <int N>
void setFonts(VySTOptArray<VySTFont, N>& row, int pixelSize) {
    for (int slot = 0; slot < kVyStyleStateCount && slot < N; ++slot) {
        VySTFont& f = row.edit(slot);
        f.font.setPixelSize(pixelSize);
        f.set = true;
    }
}

} // namespace

void VyStyle::apply(const VyIniSettings& settings, float horizontalScale, float verticalScale) {
    const ColorReader read(settings);
    VyStyleOption option;
    const float meanScale = (horizontalScale + verticalScale) / 2;
    const int fontSize = static_cast<int>(kDesignFontPixelSize * meanScale);
    m_horizontalScale = horizontalScale;
    m_verticalScale = verticalScale;
    auto pixmap = [this, horizontalScale](VySTOptArray<VySTPixmap, 8>& row, const char* path,
                                          std::initializer_list<int> slots) {
        const VyBitmap bitmap = imageForScale(path, horizontalScale);
        for (int slot : slots) {
            VySTPixmap& p = row.edit(slot);
            p.path = path;
            p.bitmap = bitmap;
        }
    };

    VyLabelOption& label = option.edit<VyLabelOption>();
    read.one(label.foreground, VyStyleNormal, "VyLabel/Foreground/Normal");
    setFonts(label.font, fontSize);

    VyPushButtonOption& button = option.edit<VyPushButtonOption>();
    read.all(button.foreground, "VyPushButton/Foreground");
    read.all(button.background, "VyPushButton/Background");
    read.states(button.borderColor, "VyPushButton/BorderColor", {VyStyleHover, VyStyleFocus});
    {
        // Only the highlighted states draw a border; the margin keeps the content clear of it.
        const int w =
            std::max(1, scaledWidth(settings, "VyPushButton/BorderWidth", horizontalScale));
        for (int slot : {int(VyStyleHover), int(VyStyleFocus)}) {
            button.borderWidth.edit(slot).setAll(w);
            button.margin.edit(slot).setAll(w / 2);
        }
        button.borderWidth.clear(VyStyleNormal);
        button.borderWidth.clear(VyStyleDisabled);
    }
    setFonts(button.font, fontSize);

    VySliderOption& slider = option.edit<VySliderOption>();
    read.all(slider.border, "VySlider/Border");
    read.one(slider.grooveBackground, VyStyleNormal, "VySlider/Groove/Background/Normal");
    read.states(slider.subPageBackground, "VySlider/SubPage/Background",
                {VyStyleNormal, VyStyleHover});
    pixmap(slider.handle, "images/slider-handle.png", {VyStyleNormal});
    pixmap(slider.handle, "images/slider-handle-hover.png", {VyStyleHover, VyStyleFocus});
    setFonts(slider.font, fontSize);

    VyLineEditOption& lineEdit = option.edit<VyLineEditOption>();
    read.all(lineEdit.foreground, "VyLineEdit/Foreground");
    read.all(lineEdit.background, "VyLineEdit/Background");
    read.all(lineEdit.border, "VyLineEdit/Border");
    setFonts(lineEdit.font, fontSize);

    VyComboBoxOption& combo = option.edit<VyComboBoxOption>();
    read.all(combo.border, "VyComboBox/Border");
    read.all(combo.foreground, "VyComboBox/Foreground");
    read.all(combo.background, "VyComboBox/Background");
    read.all(combo.dropDownBorder, "VyComboBox/DropDown/Border");
    read.one(combo.dropDownArrow, VyStyleDisabled, "VyComboBox/DropDown/Arrow/Disabled");
    read.states(combo.popupBackground, "VyComboBox/Popup/Background",
                {VyStyleNormal, VyStyleHover});
    read.states(combo.popupForeground, "VyComboBox/Popup/Foreground",
                {VyStyleNormal, VyStyleHover});
    read.border(combo.popupBorderColor, VyStyleNormal, "VyComboBox/Popup/BorderColor");
    combo.popupBorderWidth.edit(0).setAll(
        scaledWidth(settings, "VyComboBox/Popup/BorderWidth", horizontalScale));
    pixmap(combo.dropDown, "images/combobox-dropdown.png", {VyStyleNormal, VyStyleHover});
    pixmap(combo.dropDown, "images/combobox-dropdown-focus.png", {VyStyleFocus});
    pixmap(combo.dropDown, "images/combobox-dropdown-disabled.png", {VyStyleDisabled});
    setFonts(combo.font, fontSize);

    VyCheckBoxOption& check = option.edit<VyCheckBoxOption>();
    read.states(check.foreground, "VyCheckBox/Foreground", {VyStyleNormal, VyStyleDisabled});
    read.all(check.border, "VyCheckBox/Border");
    {
        const int w = scaledWidth(settings, "VyCheckBox/Border/width", horizontalScale);
        for (int slot : kAllStates)
            check.borderWidth.edit(slot).setAll(w);
    }
    pixmap(check.checked, "images/checkbox-checked.png", {VyStyleNormal});
    pixmap(check.unchecked, "images/checkbox-uncheck.png", {VyStyleNormal});
    pixmap(check.checked, "images/checkbox-checked-hover.png", {VyStyleHover, VyStyleFocus});
    pixmap(check.unchecked, "images/checkbox-uncheck-hover.png", {VyStyleHover, VyStyleFocus});
    pixmap(check.unchecked, "images/checkbox-uncheck-disabled.png", {VyStyleDisabled});
    pixmap(check.checked, "images/checkbox-checked-disabled.png", {VyStyleDisabled});
    setFonts(check.font, fontSize);

    VySpinBoxOption& spin = option.edit<VySpinBoxOption>();
    read.all(spin.border, "VySpinBox/Border");
    read.all(spin.foreground, "VySpinBox/Foreground");
    read.all(spin.background, "VySpinBox/Background");
    pixmap(spin.upArrow, "images/common-up-arrow.png", {VyStyleNormal, VyStyleHover, VyStyleFocus});
    pixmap(spin.downArrow, "images/common-down-arrow.png",
           {VyStyleNormal, VyStyleHover, VyStyleFocus});
    pixmap(spin.upArrow, "images/common-up-arrow-disabled.png", {VyStyleDisabled});
    pixmap(spin.downArrow, "images/common-down-arrow-disabled.png", {VyStyleDisabled});
    setFonts(spin.font, fontSize);

    VyRadioButtonOption& radio = option.edit<VyRadioButtonOption>();
    read.states(radio.foreground, "VyRadioButton/Foreground", {VyStyleNormal, VyStyleDisabled});
    read.all(radio.border, "VyRadioButton/Border");
    pixmap(radio.unchecked, "images/radiobutton-uncheck.png", {VyStyleNormal});
    pixmap(radio.checked, "images/radiobutton-checked.png",
           {VyStyleNormal, VyStyleHover, VyStyleFocus});
    pixmap(radio.unchecked, "images/radiobutton-uncheck-hover.png", {VyStyleHover, VyStyleFocus});
    pixmap(radio.unchecked, "images/radiobutton-disabled-uncheck.png", {VyStyleDisabled});
    pixmap(radio.checked, "images/radiobutton-disabled-check.png", {VyStyleDisabled});
    setFonts(radio.font, fontSize);

    VyTableWidgetOption& table = option.edit<VyTableWidgetOption>();
    read.states(table.border, "VyTableWidget/Border", {VyStyleNormal, VyStyleFocus});
    read.one(table.cellBorder, VyStyleFocus, "VyTableWidget/Cell/Border/Focus");
    table.borderWidth.edit(0).setAll(
        scaledWidth(settings, "VyTableWidget/Border/Width", horizontalScale));
    read.one(table.titleRowBackground, VyStyleNormal, "VyTableWidget/TitleRow/Background");
    setFonts(table.font, fontSize);

    VyListWidgetOption& list = option.edit<VyListWidgetOption>();
    // The list's focus border sits in slot 1, where the other controls keep Hover.
    read.one(list.colors, VyListBorderNormal, "VyListWidget/Border/Normal");
    read.one(list.colors, VyListBorderFocus, "VyListWidget/Border/Focus");
    read.one(list.colors, VyListSelectedForeground, "VyListWidget/Selected/Foreground");
    read.one(list.colors, VyListSelectedBackground, "VyListWidget/Selected/Background");
    setFonts(list.font, fontSize);

    VyDateEditOption& date = option.edit<VyDateEditOption>();
    read.all(date.border, "VyDateEdit/Border");
    read.all(date.foreground, "VyDateEdit/Foreground");
    read.all(date.background, "VyDateEdit/Background");
    pixmap(date.dropDown, "images/datetimeedit-down-arrow.png",
           {VyStyleNormal, VyStyleHover, VyStyleDisabled});
    pixmap(date.dropDown, "images/datetimeedit-down-arrow-focus.png", {VyStyleFocus});
    setFonts(date.font, fontSize);

    VyProgressBarOption& progress = option.edit<VyProgressBarOption>();
    read.one(progress.border, VyStyleNormal, "VyProgressBar/Border");
    read.one(progress.foreground, VyStyleNormal, "VyProgressBar/Foreground");
    read.one(progress.chunk, VyStyleNormal, "VyProgressBar/Chunk");
    setFonts(progress.font, fontSize);

    VyScrollBarOption& scroll = option.edit<VyScrollBarOption>();
    read.states(scroll.background, "VyScrollBar/Background",
                {VyStyleNormal, VyStyleHover, VyStyleFocus});
    read.states(scroll.groove, "VyScrollBar/Groove", {VyStyleNormal, VyStyleHover, VyStyleFocus});
    read.states(scroll.slider, "VyScrollBar/Slider", {VyStyleNormal, VyStyleHover, VyStyleFocus});
    setFonts(scroll.font, fontSize);

    VyToolTipOption& tip = option.edit<VyToolTipOption>();
    read.one(tip.foreground, VyStyleNormal, "VyToolTip/Foreground");
    read.one(tip.background, VyStyleNormal, "VyToolTip/Background");
    read.border(tip.borderColor, VyStyleNormal, "VyToolTip/BorderColor");
    tip.borderWidth.edit(0).setAll(scaledWidth(settings, "VyToolTip/BorderWidth", horizontalScale));
    setFonts(tip.font, fontSize);

    m_option = option;
}
