#pragma once
// A framed group of controls under a title. A checkable group box shows a check box before
// its title; unchecking it disables its children, and OK (or a click on the title) toggles it.
#include "runtime/VyString.h"
#include "toolkit/core/VyWidget.h"

class VyGroupBox : public VyWidget {
    VY_OBJECT(VyGroupBox, VyWidget)
public:
    explicit VyGroupBox(VyWidget* parent = nullptr);
    VyGroupBox(const VyString& title, VyWidget* parent = nullptr);

    VySignal toggled;

    void setTitle(const VyString& title);
    const VyString& title() const { return m_title; }
    void setCheckable(bool checkable);
    bool isCheckable() const { return m_checkable; }
    void setChecked(bool checked);
    bool isChecked() const { return m_checked; }
    // The area below the title where the children go.
    VyRect contentsRect() const;
    int styleSlot() const;

protected:
    void paintEvent(VyPaintEvent* e) override;
    void mousePressEvent(VyMouseEvent* e) override;
    void keyPressEvent(VyKeyEvent* e) override;
    void hoverEnterEvent(VyHoverEvent* e) override;
    void hoverLeaveEvent(VyHoverEvent* e) override;
    void focusInEvent(VyFocusEvent* e) override;
    void focusOutEvent(VyFocusEvent* e) override;

private:
    int titleHeight() const;
    void applyCheckedToChildren();

    VyString m_title;
    bool m_checkable = false;
    bool m_checked = true;
    bool m_hovered = false;
};
