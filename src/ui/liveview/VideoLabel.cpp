#include "ui/liveview/VideoLabel.h"

#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/graphics/VyFbCanvas.h"
#include "ui/UiLook.h"
#include "ui/liveview/LiveViewLook.h"

namespace {
constexpr int kPaddingPx = 6; // at 1920x1080, either side of the text
constexpr int kDesignFontPx = 16;
} // namespace

VideoLabel::VideoLabel(VyWidget* parent)
    : VyWidget(parent) {
    setAttribute(TransparentForMouse);
}

int VideoLabel::fontPixelSize() {
    return UiLook::scaledY(kDesignFontPx);
}

void VideoLabel::setText(const VyString& text) {
    if (m_text == text)
        return;
    m_text = text;
    update();
}

int VideoLabel::preferredWidth() const {
    return VyFbCanvas::textWidth(m_text, fontPixelSize()) + 2 * UiLook::scaledX(kPaddingPx);
}

void VideoLabel::paintEvent(VyPaintEvent*) {
    VyCanvas* c = canvas();
    if (c == nullptr)
        return;
    const LiveViewLook& look = LiveViewLook::instance();
    c->fillRect(rect(), LiveViewLook::opaque(look.labelBackground));
    const int pad = UiLook::scaledX(kPaddingPx);
    const VyRect textRect(pad, 0, width() - 2 * pad, height());
    c->drawText(textRect, VyCanvas::AlignLeft | VyCanvas::AlignVCenter, m_text, fontPixelSize(),
                look.labelForeground);
}
