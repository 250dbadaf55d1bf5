#pragma once
// The counting line or area drawn over a channel's picture. A click adds a point (a line has
// two; a click after that starts a new line; an area takes up to CountRule::kMaxPoints
// corners), a press near a point picks it up and dragging moves it. Whatever the mouse
// does, points stay inside the picture: a press or drag outside it lands on its edge.
//
// The picture keeps the 16:9 of the cameras, centred in the widget; points are kept in
// picture units (0..CountRule::kCoordRange) so the rule fits any resolution.
#include "protocol/CountRule.h"
#include "runtime/VyBitmap.h"
#include "toolkit/widgets/CWidget.h"

class CountingRegionEditor : public CWidget {
    VY_OBJECT(CountingRegionEditor, CWidget)
public:
    explicit CountingRegionEditor(VyWidget* parent = nullptr);

    // Emitted whenever the user changed the points.
    VySignal edited;

    void setRule(const CountRule& rule);
    const CountRule& rule() const { return m_rule; }
    // A different shape drops the points drawn for the old one.
    void setShape(uint8_t shape);
    void clearPoints();
    // The channel's scene under the rule; a null picture leaves a dark grid.
    void setPicture(const VyBitmap& picture);
    const VyBitmap& picture() const { return m_picture; }

    VyRect pictureRect() const;
    CountRule::Point toPicture(VyPoint widgetPos) const;
    VyPoint toWidget(CountRule::Point point) const;
    // The point within grabbing distance of a widget position, or -1.
    int pointNear(VyPoint widgetPos) const;

protected:
    void paintEvent(VyPaintEvent* e) override;
    void mousePressEvent(VyMouseEvent* e) override;
    void mouseMoveEvent(VyMouseEvent* e) override;
    void mouseReleaseEvent(VyMouseEvent* e) override;

private:
    CountRule m_rule;
    VyBitmap m_picture;
    int m_grabbed = -1;
};
