#pragma once
// A button that is only a picture: a normal image, the hover image while the pointer is over
// it or it is held, and an optional second pair for its "on" state (record on, mute, a
// connection state). Images come from the style's image cache at the screen's scale.
#include "runtime/VyBitmap.h"
#include "runtime/VyString.h"
#include "toolkit/widgets/VyAbstractButton.h"

class ImageButton : public VyAbstractButton {
    VY_OBJECT(ImageButton, VyAbstractButton)
public:
    // With an empty hover path the hover image is the normal one with "-hover" before the
    // extension.
    ImageButton(const VyString& image, VyWidget* parent = nullptr,
                const VyString& hoverImage = VyString());

    void setImages(const VyString& image, const VyString& hoverImage = VyString());
    const VyString& imagePath() const { return m_image; }
    const VyString& hoverImagePath() const { return m_hover; }
    // The image this button shows now.
    const VyString& shownImagePath() const;
    static VyString hoverNameOf(const VyString& image);
    // A disabled button shows its image at this opacity (of 255).
    static constexpr int kDisabledAlpha = 90;
    static VyBitmap dimmed(const VyBitmap& image);

protected:
    void paintEvent(VyPaintEvent* e) override;

private:
    VyString m_image;
    VyString m_hover;
};
