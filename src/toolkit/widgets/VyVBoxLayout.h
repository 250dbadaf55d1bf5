#pragma once
#include "toolkit/widgets/VyBoxLayout.h"

class VyVBoxLayout : public VyBoxLayout {
    VY_OBJECT(VyVBoxLayout, VyBoxLayout)
public:
    explicit VyVBoxLayout(VyWidget* parent = nullptr)
        : VyBoxLayout(TopToBottom, parent) {}
};
