#pragma once
// One category on the settings window's start page: a large framed caption that opens the
// category on a click or on OK. Colours from "style/settingstile.ini".
#include "runtime/VyGlobal.h"
#include "runtime/VyString.h"
#include "toolkit/widgets/CWidget.h"

#include <cstdint>

class SettingsTile : public CWidget {
    VY_OBJECT(SettingsTile, CWidget)
public:
    static constexpr const char* kStyleFile = "style/settingstile.ini";

    SettingsTile(int category, uint32_t textId, VyWidget* parent);
    int category() const { return m_category; }
    uint32_t textId() const { return m_textId; }

    bool acceptsKeyFocus() const override { return true; }
    bool keyActivate() override;
    VySignal clicked;

protected:
    void paintEvent(VyPaintEvent* e) override;
    void mousePressEvent(VyMouseEvent* e) override;
    void mouseReleaseEvent(VyMouseEvent* e) override;
    void hoverEnterEvent(VyHoverEvent* e) override;
    void hoverLeaveEvent(VyHoverEvent* e) override;
    void focusInEvent(VyFocusEvent* e) override;
    void focusOutEvent(VyFocusEvent* e) override;

private:
    int m_category;
    uint32_t m_textId;
    bool m_hovered = false;
    bool m_pressed = false;
    vyargb m_background = 0, m_backgroundHover = 0, m_backgroundFocus = 0;
    vyargb m_foreground = 0, m_foregroundFocus = 0, m_border = 0;
    vyargb m_foregroundDisabled = 0xFF6E7278; // a category the user may not open
};
