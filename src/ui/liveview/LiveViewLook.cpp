#include "ui/liveview/LiveViewLook.h"

#include "runtime/VyIniSettings.h"
#include "runtime/VyResources.h"

namespace {

vyargb colourOr(const VyIniSettings& ini, const char* key, vyargb fallback) {
    const VyString k(key);
    if (ini.value(k).isEmpty())
        return fallback;
    const VyColor c = ini.color(k);
    return c.isValid() ? c.argb() : fallback;
}

} // namespace

const LiveViewLook& LiveViewLook::instance() {
    static const LiveViewLook look;
    return look;
}

LiveViewLook::LiveViewLook() {
    const VyIniSettings ini(VyResources::path("style/mainview.ini"));
    borderUnused = colourOr(ini, "MainViewVideo/Border/Unused", borderUnused);
    borderNoCameraNotSelected =
        colourOr(ini, "MainViewVideo/Border/NoIpcAdded/NotSelected", borderNoCameraNotSelected);
    borderNoCameraSelected =
        colourOr(ini, "MainViewVideo/Border/NoIpcAdded/Selected", borderNoCameraSelected);
    borderNormalNotSelected =
        colourOr(ini, "MainViewVideo/Border/Normal/NotSelected", borderNormalNotSelected);
    borderNormalSelected =
        colourOr(ini, "MainViewVideo/Border/Normal/Selected", borderNormalSelected);
    borderEnlarged = colourOr(ini, "MainViewVideo/Border/Enlarged", borderEnlarged);
    labelBackground = colourOr(ini, "Label/CommonLabel/Background", labelBackground);
    labelForeground = colourOr(ini, "Label/CommonLabel/Foreground", labelForeground);
    taskBarBackground = colourOr(ini, "MainViewTaskBar/Background", taskBarBackground);
    taskBarLine = colourOr(ini, "MainViewTaskBar/Line/Color", taskBarLine);
    if (ini.intValue("MainViewTaskBar/Line/Width") > 0)
        taskBarLineWidth = ini.intValue("MainViewTaskBar/Line/Width");
    toolBarBackground = colourOr(ini, "VideoToolBar/Background", toolBarBackground);
    toolBarBorder = colourOr(ini, "VideoToolBar/Border", toolBarBorder);
}
