#pragma once
// Colours and metrics the start-up windows share: read once from "style/dialog.ini" and
// "style/mainview.ini", with dark fallbacks for keys a sheet lacks, and scaled to the screen
// like every control. The dialogs themselves draw through VyDialog, which reads the same keys.
#include "runtime/VyGlobal.h"
#include "runtime/VyString.h"

class VyIniSettings;

class UiLook {
public:
    static const UiLook& instance();

    vyargb mainViewBackground = 0xFF000000;
    vyargb dialogBackground = 0xFF24262B;
    vyargb dialogBorder = 0xFF464A52;
    int dialogBorderWidth = 1; // pixels at 1920x1080
    vyargb titleBackground = 0xFF2C2F35;
    vyargb titleForeground = 0xFFE6E8EB;
    vyargb textForeground = 0xFFE6E8EB;

    // Pixel size of text at the screen's scale.
    int fontPixelSize() const;
    // A length designed for 1920x1080, scaled to the screen (at least 1).
    static int scaledX(int designPixels);
    static int scaledY(int designPixels);

    // The colour a style sheet gives `key`, or `fallback` when the key is missing or not a
    // colour: every screen reads its style colours through this.
    static vyargb colourOr(const VyIniSettings& ini, const VyString& key, vyargb fallback);

private:
    UiLook();
};
