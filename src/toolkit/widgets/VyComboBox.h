#pragma once
// A field that shows one of its items and opens a drop-down list (VyInnerListWidget) to
// choose another: OK or a click opens it; in the list Up and Down choose, OK confirms and
// Escape or a click outside cancels. The wheel over the closed field steps through the items.
// `currentIndexChanged` follows every change of the index, `activated` only the user's
// choices.
#include <vector>

#include "runtime/VyString.h"
#include "runtime/VyStringList.h"
#include "toolkit/core/VyPointer.h"
#include "toolkit/core/VyWidget.h"

class VyInnerListWidget;

class VyComboBox : public VyWidget {
    VY_OBJECT(VyComboBox, VyWidget)
public:
    explicit VyComboBox(VyWidget* parent = nullptr);
    ~VyComboBox() override;

    VySignal currentIndexChanged;
    VySignal activated;
    VySignal popupClosed; // chosen or cancelled

    void addItem(const VyString& text, long long data = 0);
    void addItems(const VyStringList& texts);
    void clear();
    int count() const { return static_cast<int>(m_items.size()); }
    VyString itemText(int index) const;
    long long itemData(int index) const;
    // The index of the first item with this data, -1 when none has it.
    int findData(long long data) const;

    // -1 clears the field; an index out of range is refused (logged) and the index stays.
    bool setCurrentIndex(int index);
    int currentIndex() const { return m_current; }
    VyString currentText() const { return itemText(m_current); }
    long long currentData() const { return itemData(m_current); }

    void showPopup();
    void hidePopup();
    bool isPopupVisible() const;
    // The open popup, null while closed.
    VyInnerListWidget* popup() const;

    int styleSlot() const;
    VySize sizeHint() const override;

protected:
    void paintEvent(VyPaintEvent* e) override;
    void keyPressEvent(VyKeyEvent* e) override;
    void wheelEvent(VyWheelEvent* e) override;
    void mousePressEvent(VyMouseEvent* e) override;
    void hoverEnterEvent(VyHoverEvent* e) override;
    void hoverLeaveEvent(VyHoverEvent* e) override;
    void focusInEvent(VyFocusEvent* e) override;
    void focusOutEvent(VyFocusEvent* e) override;
    void hideEvent(VyHideEvent* e) override;

private:
    struct Item {
        VyString text;
        long long data;
    };
    void popupChosen();
    void popupCancelled();
    void closePopup();
    void userChose(int index);

    std::vector<Item> m_items;
    // Made when it opens and deleted after it closes, so a page of closed combo boxes keeps
    // no popup windows.
    VyPointer<VyInnerListWidget> m_popup;
    int m_current = -1;
    bool m_hovered = false;
};
