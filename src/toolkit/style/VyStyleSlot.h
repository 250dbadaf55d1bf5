#pragma once
// Slot numbers of the 8-slot style rows. 0 to 3 are the control states; the list widget
// gives the higher slots roles of their own.
enum VyStyleSlot : int {
    VyStyleNormal = 0,
    VyStyleHover = 1,
    VyStyleFocus = 2,
    VyStyleDisabled = 3,

    // VyListWidget's colour row keeps its own slot roles, not the state slots above: 0 border
    // (normal), 1 border (focus), 5 selected-row background, 6 selected-row foreground, 7 the
    // colour of a third selection state.
    VyListBorderNormal = 0,
    VyListBorderFocus = 1,
    VyListSelectedBackground = 5,
    VyListSelectedForeground = 6,
    VyListSelectionExtra = 7,
};

constexpr int kVyStyleStateCount = 4; // Normal, Hover, Focus, Disabled
constexpr int kVyStyleSlotCount = 8;  // slots of a per-state row
