#pragma once
// A row of tabs for the pages of a settings window. Left and Right move to the neighbouring
// tab while the bar holds the key focus (at either end the key is left to the key navigation,
// so the focus can move on); a click chooses a tab. Tabs are as wide as their texts and keep
// to the bar: tabs that do not fit are not drawn (the bar scrolls to keep the current one).
#include "runtime/VyStringList.h"
#include "toolkit/widgets/CWidget.h"

class VyTabBar : public CWidget {
    VY_OBJECT(VyTabBar, CWidget)
public:
    static constexpr int kMinimumTabDesign = 120; // pixels at 1920x1080

    explicit VyTabBar(VyWidget* parent = nullptr);
    ~VyTabBar() override;

    VySignal currentChanged;

    int addTab(const VyString& text);
    void setTabText(int index, const VyString& text);
    VyString tabText(int index) const;
    void removeTab(int index);
    int count() const { return m_tabs.size(); }
    // -1 only for an empty bar; an index out of range is refused.
    bool setCurrentIndex(int index);
    int currentIndex() const { return m_current; }
    int firstVisibleTab() const { return m_first; }
    // A tab's rectangle in the bar (empty when scrolled out), and the tab under a point.
    VyRect tabRect(int index) const;
    int tabAt(VyPoint pos) const;

    bool acceptsKeyFocus() const override { return count() > 0; }
    bool keyLeftRight(int key) override;

    VySize sizeHint() const override;

protected:
    void paintEvent(VyPaintEvent* e) override;
    void mousePressEvent(VyMouseEvent* e) override;
    void mouseMoveEvent(VyMouseEvent* e) override;
    void hoverLeaveEvent(VyHoverEvent* e) override;
    void focusInEvent(VyFocusEvent* e) override;
    void focusOutEvent(VyFocusEvent* e) override;
    void resizeEvent(VyResizeEvent* e) override;

private:
    int tabWidth(int index) const;
    void keepCurrentInView();

    VyStringList m_tabs;
    int m_current = -1;
    int m_first = 0; // the first tab drawn
    int m_hovered = -1;
};
