#pragma once
// The live view's colours, read once from "style/mainview.ini" (the first cell created reads
// the table; every later one shares it), with dark fallbacks for keys the sheet lacks.
#include "runtime/VyGlobal.h"
#include "runtime/VyString.h"

class LiveViewLook {
public:
    static const LiveViewLook& instance();

    // Cell borders by state.
    vyargb borderUnused = 0xFF282A2E;
    vyargb borderNoCameraNotSelected = 0xFF3C3F45;
    vyargb borderNoCameraSelected = 0xFF0096DC;
    vyargb borderNormalNotSelected = 0xFF3C3F45;
    vyargb borderNormalSelected = 0xFF00C878;
    vyargb borderEnlarged = 0xFF000000;
    // The channel label over a cell.
    vyargb labelBackground = 0xFF000000;
    vyargb labelForeground = 0xFFFFFFFF;
    // Task bar.
    vyargb taskBarBackground = 0xFF181A1E;
    vyargb taskBarLine = 0xFF464A52;
    int taskBarLineWidth = 1;
    // Tool bar.
    vyargb toolBarBackground = 0xFF181A1E;
    vyargb toolBarBorder = 0xFF464A52;
    // What fills a cell that has no picture to show.
    vyargb emptyCell = 0xFF101114;

    // The ARGB1555 overlay has one alpha bit: a translucent colour over the video plane
    // would vanish, so colours drawn over video are made opaque.
    static vyargb opaque(vyargb c) { return c | 0xFF000000u; }

private:
    LiveViewLook();
};
