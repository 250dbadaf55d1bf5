#pragma once
// A button with a text and an optional icon, drawn by the style; a button may carry images of
// its own for the normal and the hover look, which replace the styled background.
#include "toolkit/widgets/VyAbstractButton.h"

class VyPushButton : public VyAbstractButton {
    VY_OBJECT(VyPushButton, VyAbstractButton)
public:
    explicit VyPushButton(VyWidget* parent = nullptr);
    VyPushButton(const VyString& text, VyWidget* parent = nullptr);

    void setImages(const VyBitmap& normal, const VyBitmap& hover);

    VySize sizeHint() const override;

protected:
    void paintEvent(VyPaintEvent* e) override;

private:
    VyBitmap m_normalImage;
    VyBitmap m_hoverImage;
};
