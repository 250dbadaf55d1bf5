#pragma once
// The control gallery: one full-screen page that shows every standard control in every state
// the style draws (Normal, Hover, Focus, Disabled, on and on-disabled for the controls that
// have an on state), drawn through the style exactly as the controls draw themselves, and
// below it a row of live controls with texts, a selection, a typed number and a focus.
// Laid out for 1920x1080 and scaled to the screen.
#include "toolkit/core/VyWidget.h"

class VyLineEdit;

class ControlGallery : public VyWidget {
    VY_OBJECT(ControlGallery, VyWidget)
public:
    // A top-level page covering the whole screen.
    explicit ControlGallery(int screenWidth, int screenHeight);

    // Shows the page with all its controls and gives the live line edit the focus.
    void showPage();
    VyLineEdit* focusedEdit() const { return m_focusedEdit; }

protected:
    void paintEvent(VyPaintEvent* e) override;

private:
    void buildStateMatrix();
    void buildLiveRow();
    int sx(int designX) const;
    int sy(int designY) const;

    float m_hScale;
    float m_vScale;
    VyLineEdit* m_focusedEdit = nullptr;
};
