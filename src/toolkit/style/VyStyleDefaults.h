#pragma once
// The built-in look of the standard controls, used for every value the common style sheet
// leaves unset (no file, or an empty one). The same dark palette as the shipped
// "style/commonstyle.ini", so a device without the file still looks like one product.
#include "runtime/VyGlobal.h"

namespace VyStyleDefaults {

constexpr vyargb kText = 0xFFE6E8EB;
constexpr vyargb kTextBright = 0xFFFFFFFF;
constexpr vyargb kTextDimmed = 0xFF6E7278;
constexpr vyargb kControl = 0xFF34383F;
constexpr vyargb kControlHover = 0xFF40454E;
constexpr vyargb kControlDisabled = 0xFF282A2F;
constexpr vyargb kField = 0xFF24262B;
constexpr vyargb kFieldHover = 0xFF2A2D33;
constexpr vyargb kFieldDisabled = 0xFF202226;
constexpr vyargb kLine = 0xFF464A52;
constexpr vyargb kLineHover = 0xFF5A606A;
constexpr vyargb kLineDisabled = 0xFF32353B;
constexpr vyargb kIndicatorLine = 0xFF6E747E;
constexpr vyargb kFocus = 0xFF0078BE;
constexpr vyargb kAccent = 0xFF0096DC;
constexpr vyargb kAccentLight = 0xFF28AFF0;
constexpr vyargb kScrollSlider = 0xFF545963;
constexpr vyargb kTipBackground = 0xEB14161A;

// Per state (Normal, Hover, Focus, Disabled).
constexpr vyargb kButtonBackground[4] = {kControl, kControlHover, kFocus, kControlDisabled};
constexpr vyargb kButtonForeground[4] = {kText, kTextBright, kTextBright, kTextDimmed};
constexpr vyargb kButtonBorder[4] = {kLine, kLineHover, kAccent, kLineDisabled};
constexpr vyargb kFieldBackground[4] = {kField, kFieldHover, 0xFF1E2228, kFieldDisabled};
constexpr vyargb kFieldForeground[4] = {kText, kText, kTextBright, kTextDimmed};
constexpr vyargb kFieldBorder[4] = {kLine, kLineHover, kAccent, kLineDisabled};
constexpr vyargb kIndicatorBorder[4] = {kIndicatorLine, 0xFFA0A6B0, kAccent, 0xFF3C3F45};

} // namespace VyStyleDefaults
