#include "ui/liveview/LiveViewLook.h"
#include "ui/UiLook.h"

#include "runtime/VyIniSettings.h"
#include "runtime/VyResources.h"

const LiveViewLook& LiveViewLook::instance() {
    static const LiveViewLook look;
    return look;
}

LiveViewLook::LiveViewLook() {
    const VyIniSettings ini(VyResources::path("style/mainview.ini"));
    borderUnused = UiLook::colourOr(ini, "MainViewVideo/Border/Unused", borderUnused);
    borderNoCameraNotSelected = UiLook::colourOr(ini, "MainViewVideo/Border/NoIpcAdded/NotSelected",
                                                 borderNoCameraNotSelected);
    borderNoCameraSelected =
        UiLook::colourOr(ini, "MainViewVideo/Border/NoIpcAdded/Selected", borderNoCameraSelected);
    borderNormalNotSelected =
        UiLook::colourOr(ini, "MainViewVideo/Border/Normal/NotSelected", borderNormalNotSelected);
    borderNormalSelected =
        UiLook::colourOr(ini, "MainViewVideo/Border/Normal/Selected", borderNormalSelected);
    borderEnlarged = UiLook::colourOr(ini, "MainViewVideo/Border/Enlarged", borderEnlarged);
    labelBackground = UiLook::colourOr(ini, "Label/CommonLabel/Background", labelBackground);
    labelForeground = UiLook::colourOr(ini, "Label/CommonLabel/Foreground", labelForeground);
    taskBarBackground = UiLook::colourOr(ini, "MainViewTaskBar/Background", taskBarBackground);
    taskBarLine = UiLook::colourOr(ini, "MainViewTaskBar/Line/Color", taskBarLine);
    if (ini.intValue("MainViewTaskBar/Line/Width") > 0)
        taskBarLineWidth = ini.intValue("MainViewTaskBar/Line/Width");
    toolBarBackground = UiLook::colourOr(ini, "VideoToolBar/Background", toolBarBackground);
    toolBarBorder = UiLook::colourOr(ini, "VideoToolBar/Border", toolBarBorder);
}
