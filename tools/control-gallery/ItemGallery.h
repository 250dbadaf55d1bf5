#pragma once
// The second gallery page: the item views and the window controls: combo boxes (one with its
// drop-down list open), lists, a table with a sorted title row and a control in a cell, date
// and time edits with the calendar, a menu with a sub-menu open, a tab bar, and a message box.
// Laid out for 1920x1080 and scaled to the screen.
#include "toolkit/core/VyWidget.h"

class ItemGallery : public VyWidget {
    VY_OBJECT(ItemGallery, VyWidget)
public:
    ItemGallery(int screenWidth, int screenHeight);
    ~ItemGallery() override;

    // Shows the page and opens its popups.
    void showPage();

protected:
    void paintEvent(VyPaintEvent* e) override;

private:
    void buildStateRows();
    void buildViews();
    int sx(int designX) const;
    int sy(int designY) const;

    float m_hScale;
    float m_vScale;
    class VyComboBox* m_openCombo = nullptr;
    class VyMenu* m_menu = nullptr;
    class VyMessageBox* m_box = nullptr;
};
