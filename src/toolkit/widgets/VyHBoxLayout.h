#pragma once
#include "toolkit/widgets/VyBoxLayout.h"

class VyHBoxLayout : public VyBoxLayout {
    VY_OBJECT(VyHBoxLayout, VyBoxLayout)
public:
    explicit VyHBoxLayout(VyWidget* parent = nullptr)
        : VyBoxLayout(LeftToRight, parent) {}
};
