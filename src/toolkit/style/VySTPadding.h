#pragma once
// A style value: the space around a control's content on each side.
#include "toolkit/style/VySTSides.h"

struct VySTPadding : VySTSides {};
