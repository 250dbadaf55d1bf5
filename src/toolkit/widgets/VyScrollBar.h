#pragma once
// A groove with a slider whose length shows the page against the whole range. A press on the
// groove pages towards the pointer and keeps paging while held (auto-repeat) until the slider
// reaches the pointer; the slider can be dragged; the wheel scrolls three single steps a notch.
#include "toolkit/widgets/VyAbstractSlider.h"

class VyScrollBar : public VyAbstractSlider {
    VY_OBJECT(VyScrollBar, VyAbstractSlider)
public:
    static constexpr int kRepeatDelayMs = 300;
    static constexpr int kRepeatIntervalMs = 100;
    static constexpr int kDesignThickness = 14; // pixels at 1920x1080

    explicit VyScrollBar(VyWidget* parent = nullptr);
    explicit VyScrollBar(Orientation orientation, VyWidget* parent = nullptr);
    ~VyScrollBar() override;

    VyRect sliderRect() const;
    VySize sizeHint() const override;

protected:
    int wheelDirection() const override { return -1; } // a notch up scrolls back
    void paintEvent(VyPaintEvent* e) override;
    void mousePressEvent(VyMouseEvent* e) override;
    void mouseMoveEvent(VyMouseEvent* e) override;
    void mouseReleaseEvent(VyMouseEvent* e) override;
    void hideEvent(VyHideEvent* e) override;
    void timerEvent(VyTimerEvent* e) override;

private:
    int length() const;
    int sliderLength() const;
    int along(VyPoint p) const;
    void pageTowardsPointer();
    void stopRepeat();

    VyPoint m_pressPos;
    int m_dragOffset = 0;
    int m_repeatTimer = 0;
    bool m_repeating = false;
    bool m_paging = false;
};
