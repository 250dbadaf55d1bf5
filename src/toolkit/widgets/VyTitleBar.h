#pragma once
// The title bar of a dialog or window: its title at the left and a close button at the right,
// in the colours of "style/wndtitlebar.ini". Dragging the title moves the window it sits in
// (kept on the screen); a click on the close button emits `closeClicked`.
#include <cstdint>

#include "runtime/VyBitmap.h"
#include "runtime/VyString.h"
#include "toolkit/core/VyWidget.h"

class VyTitleBar : public VyWidget {
    VY_OBJECT(VyTitleBar, VyWidget)
public:
    static constexpr const char* kStyleFile = "style/wndtitlebar.ini";
    static constexpr int kHeightDesign = 44; // pixels at 1920x1080

    explicit VyTitleBar(VyWidget* parent);
    ~VyTitleBar() override;

    VySignal closeClicked;

    void setTitle(const VyString& title);
    const VyString& title() const { return m_title; }
    void setCloseButtonVisible(bool visible);
    bool isCloseButtonVisible() const { return m_closeVisible; }
    void setMovable(bool movable) { m_movable = movable; }
    VyRect closeButtonRect() const;

    VySize sizeHint() const override;

protected:
    void paintEvent(VyPaintEvent* e) override;
    void mousePressEvent(VyMouseEvent* e) override;
    void mouseMoveEvent(VyMouseEvent* e) override;
    void mouseReleaseEvent(VyMouseEvent* e) override;
    void hoverLeaveEvent(VyHoverEvent* e) override;

private:
    VyString m_title;
    VyBitmap m_closeImage;
    vyargb m_background = 0xFF2C2F35;
    vyargb m_foreground = 0xFFE6E8EB;
    vyargb m_border = 0xFF464A52;
    vyargb m_closeHover = 0xFFC83232;
    VyPoint m_dragFrom;   // where the drag began, on the screen
    VyPoint m_windowFrom; // the window's top-left then
    bool m_dragging = false;
    bool m_closePressed = false;
    bool m_closeHovered = false;
    bool m_closeVisible = true;
    bool m_movable = true;
};
