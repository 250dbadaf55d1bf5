#include "ui/liveview/ImageButton.h"

#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/style/VyStyle.h"

ImageButton::ImageButton(const VyString& image, VyWidget* parent, const VyString& hoverImage)
    : VyAbstractButton(parent) {
    setImages(image, hoverImage);
}

VyString ImageButton::hoverNameOf(const VyString& image) {
    const std::string s = image.c_str();
    const size_t dot = s.rfind('.');
    if (dot == std::string::npos)
        return VyString((s + "-hover").c_str());
    return VyString((s.substr(0, dot) + "-hover" + s.substr(dot)).c_str());
}

void ImageButton::setImages(const VyString& image, const VyString& hoverImage) {
    m_image = image;
    m_hover = hoverImage.isEmpty() ? hoverNameOf(image) : hoverImage;
    update();
}

const VyString& ImageButton::shownImagePath() const {
    return (isHovered() || isDown()) && isEnabled() ? m_hover : m_image;
}

VyBitmap ImageButton::dimmed(const VyBitmap& image) {
    VyBitmap out(image.width(), image.height());
    if (out.isNull())
        return image;
    const size_t n = size_t(image.width()) * size_t(image.height()) * 4;
    const uint8_t* src = image.constBits();
    uint8_t* dst = out.bits();
    for (size_t i = 0; i < n; i += 4) {
        dst[i] = src[i];
        dst[i + 1] = src[i + 1];
        dst[i + 2] = src[i + 2];
        dst[i + 3] = uint8_t(src[i + 3] * kDisabledAlpha / 255);
    }
    return out;
}

void ImageButton::paintEvent(VyPaintEvent*) {
    VyCanvas* c = canvas();
    if (c == nullptr)
        return;
    VyApplication* app = VyApplication::instance();
    const float scale = app && app->screen() ? app->screen()->horizontalScale() : 1.0f;
    VyBitmap image = VyStyle::instance()->imageForScale(shownImagePath(), scale);
    if (image.isNull())
        return;
    if (!isEnabled())
        image = dimmed(image);
    // Centred at its own size when it fits, scaled down into the button when not.
    int w = image.width();
    int h = image.height();
    if (w > width() || h > height()) {
        const float f = std::min(float(width()) / float(w), float(height()) / float(h));
        w = std::max(1, int(float(w) * f));
        h = std::max(1, int(float(h) * f));
    }
    c->drawImage(VyRect((width() - w) / 2, (height() - h) / 2, w, h), image);
}
