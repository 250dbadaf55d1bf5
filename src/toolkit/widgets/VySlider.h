#pragma once
// A handle on a groove: dragging the handle sets the value, a click on the groove moves one
// page towards the click, the wheel and the arrows step it.
#include "toolkit/widgets/VyAbstractSlider.h"

class VySlider : public VyAbstractSlider {
    VY_OBJECT(VySlider, VyAbstractSlider)
public:
    explicit VySlider(VyWidget* parent = nullptr);
    explicit VySlider(Orientation orientation, VyWidget* parent = nullptr);

    // Where the handle is drawn for the current value (widget coordinates).
    VyRect handleRect() const;
    // The value a handle centred at this position along the groove stands for.
    int valueAt(int position) const;

    VySize sizeHint() const override;

protected:
    void paintEvent(VyPaintEvent* e) override;
    void mousePressEvent(VyMouseEvent* e) override;
    void mouseMoveEvent(VyMouseEvent* e) override;
    void mouseReleaseEvent(VyMouseEvent* e) override;

private:
    int span() const; // pixels the handle's centre can travel
    int handleLength() const;
    int along(VyPoint p) const;

    int m_dragOffset = 0; // from the handle's centre to where it was grabbed
};
