#pragma once
// A style value: the width of a control's border on each side.
#include "toolkit/style/VySTSides.h"

struct VySTBorderWidth : VySTSides {};
