#pragma once
// A checkable box with its text; a click or OK toggles it.
#include "toolkit/widgets/VyAbstractButton.h"

class VyCheckBox : public VyAbstractButton {
    VY_OBJECT(VyCheckBox, VyAbstractButton)
public:
    explicit VyCheckBox(VyWidget* parent = nullptr);
    VyCheckBox(const VyString& text, VyWidget* parent = nullptr);

    VySize sizeHint() const override;

protected:
    void paintEvent(VyPaintEvent* e) override;
};
