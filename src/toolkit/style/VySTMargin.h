#pragma once
// A style value: the space between a control's border and its content on each side.
#include "toolkit/style/VySTSides.h"

struct VySTMargin : VySTSides {};
