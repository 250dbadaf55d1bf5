#pragma once
// One choice of several: radio buttons with the same parent form an exclusive group, in
// which checking one unchecks the others and a click never unchecks the checked one.
#include "toolkit/widgets/VyAbstractButton.h"

class VyRadioButton : public VyAbstractButton {
    VY_OBJECT(VyRadioButton, VyAbstractButton)
public:
    explicit VyRadioButton(VyWidget* parent = nullptr);
    VyRadioButton(const VyString& text, VyWidget* parent = nullptr);

    VySize sizeHint() const override;

protected:
    void paintEvent(VyPaintEvent* e) override;
};
