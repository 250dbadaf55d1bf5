#pragma once
// One arrow of the PTZ panel's pan and tilt pad: a square button drawn as a triangle pointing
// along its direction (dx, dy each -1, 0 or 1), in the panel's direction colours.
#include "toolkit/widgets/VyAbstractButton.h"

class PtzPadButton : public VyAbstractButton {
    VY_OBJECT(PtzPadButton, VyAbstractButton)
public:
    PtzPadButton(int dx, int dy, VyWidget* parent = nullptr);

    void setColours(vyargb normal, vyargb hover, vyargb background);

protected:
    void paintEvent(VyPaintEvent* e) override;

private:
    int m_dx;
    int m_dy;
    vyargb m_normal = 0xFF8C929C;
    vyargb m_hover = 0xFF0096DC;
    vyargb m_background = 0xFF181A1E;
};
