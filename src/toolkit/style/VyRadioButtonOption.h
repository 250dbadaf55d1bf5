#pragma once
// The style record of the radio button: the rows it draws from, each indexed by VyStyleSlot.
#include "toolkit/style/VySTColor.h"
#include "toolkit/style/VySTFont.h"
#include "toolkit/style/VySTOptArray.h"
#include "toolkit/style/VySTPixmap.h"

struct VyRadioButtonOption {
    VySTOptArray<VySTColor, 8> foreground; // Normal and Disabled
    VySTOptArray<VySTColor, 8> border;     // per state
    VySTOptArray<VySTPixmap, 8> checked;   // Normal and Disabled images of the chosen button
    VySTOptArray<VySTPixmap, 8>
        unchecked;                  // Normal, Hover and Disabled images of an unchosen button
    VySTOptArray<VySTFont, 8> font; // per state
};
