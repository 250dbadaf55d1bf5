#include "ui/UiLook.h"

#include "runtime/VyIniSettings.h"
#include "runtime/VyResources.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/style/VyStyle.h"

namespace {

constexpr int kDesignFontPixels = VyStyle::kDesignFontPixelSize;

float scaleOf(bool horizontal) {
    VyApplication* app = VyApplication::instance();
    VyScreen* screen = app != nullptr ? app->screen() : nullptr;
    if (screen == nullptr)
        return 1.0f;
    return horizontal ? screen->horizontalScale() : screen->verticalScale();
}

} // namespace

const UiLook& UiLook::instance() {
    static const UiLook look;
    return look;
}

vyargb UiLook::colourOr(const VyIniSettings& ini, const VyString& key, vyargb fallback) {
    if (ini.value(key).isEmpty())
        return fallback;
    const VyColor c = ini.color(key);
    return c.isValid() ? c.argb() : fallback;
}

UiLook::UiLook() {
    const VyIniSettings mainView(VyResources::path("style/mainview.ini"));
    mainViewBackground = colourOr(mainView, "MainView/Background", mainViewBackground);

    const VyIniSettings dialog(VyResources::path("style/dialog.ini"));
    dialogBackground = colourOr(dialog, "Dialog/Background", dialogBackground);
    dialogBorder = colourOr(dialog, "Dialog/Border", dialogBorder);
    if (dialog.intValue("Dialog/BorderWidth") > 0)
        dialogBorderWidth = dialog.intValue("Dialog/BorderWidth");
    titleBackground = colourOr(dialog, "Dialog/Title/Background", titleBackground);
    titleForeground = colourOr(dialog, "Dialog/Title/Foreground", titleForeground);
    textForeground = colourOr(dialog, "Dialog/Text/Foreground", textForeground);
}

int UiLook::fontPixelSize() const {
    const int px = int(kDesignFontPixels * (scaleOf(true) + scaleOf(false)) / 2);
    return px < 8 ? 8 : px;
}

int UiLook::scaledX(int designPixels) {
    const int v = int(float(designPixels) * scaleOf(true));
    return v < 1 ? 1 : v;
}

int UiLook::scaledY(int designPixels) {
    const int v = int(float(designPixels) * scaleOf(false));
    return v < 1 ? 1 : v;
}
