// Drawing of the standard controls from their style records.
#include <algorithm>
#include <cmath>

#include "runtime/VyBitmap.h"
#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/style/VyStyle.h"
#include "toolkit/style/VyStyleDefaults.h"
#include "toolkit/style/VyStyleSlot.h"
#include "toolkit/style/VyTextLayout.h"

namespace D = VyStyleDefaults;

namespace {

constexpr int kLeftVCenter = VyCanvas::AlignLeft | VyCanvas::AlignVCenter;

int stateIndex(int slot) {
    return slot >= 0 && slot < kVyStyleStateCount ? slot : VyStyleNormal;
}

// A disc (or ring of width `ring`, 0 = filled) fitted in the box, one span per row.
void fillDisc(VyCanvas* canvas, const VyRect& box, vyargb colour, int ring = 0) {
    const double r = std::min(box.width(), box.height()) / 2.0;
    const double cx = box.left + box.width() / 2.0;
    const double cy = box.top + box.height() / 2.0;
    for (int y = box.top; y <= box.bottom; ++y) {
        const double dy = y + 0.5 - cy;
        if (std::fabs(dy) >= r)
            continue;
        const double half = std::sqrt(r * r - dy * dy);
        const int x1 = static_cast<int>(std::lround(cx - half));
        const int x2 = static_cast<int>(std::lround(cx + half)) - 1;
        if (ring <= 0 || std::fabs(dy) >= r - ring) {
            canvas->fillRect(VyRect::fromEdges(x1, y, x2, y), colour);
            continue;
        }
        const double inner = std::sqrt((r - ring) * (r - ring) - dy * dy);
        const int i1 = static_cast<int>(std::lround(cx - inner));
        const int i2 = static_cast<int>(std::lround(cx + inner)) - 1;
        canvas->fillRect(VyRect::fromEdges(x1, y, i1 - 1, y), colour);
        canvas->fillRect(VyRect::fromEdges(i2 + 1, y, x2, y), colour);
    }
}

VyRect inset(const VyRect& r, int d) {
    return VyRect::fromEdges(r.left + d, r.top + d, r.right - d, r.bottom - d);
}

// One elided line in the rectangle, clipped to it.
void drawLine(VyCanvas* canvas, const VyRect& rect, int alignment, const VyString& text,
              int pixelSize, vyargb colour) {
    if (text.isEmpty() || rect.isEmpty())
        return;
    canvas->drawText(rect, alignment, VyTextLayout::elided(text, pixelSize, rect.width()),
                     pixelSize, colour);
}

// The canvas's clip narrowed to a rectangle in drawing coordinates, restored on scope exit.
class ClipScope {
public:
    ClipScope(VyCanvas* canvas, const VyRect& rect)
        : m_canvas(canvas)
        , m_saved(canvas->clipRect()) {
        const VyPoint o = canvas->origin();
        canvas->setClipRect(m_saved.intersected(rect.translated(o.x, o.y)));
    }
    ~ClipScope() { m_canvas->setClipRect(m_saved); }
    ClipScope(const ClipScope&) = delete;
    ClipScope& operator=(const ClipScope&) = delete;

private:
    VyCanvas* m_canvas;
    VyRect m_saved;
};

} // namespace

vyargb VyStyle::color(const VySTOptArray<VySTColor, 8>& row, int slot, vyargb fallback) {
    if (const VySTColor* c = row.at(slot))
        if (c->isSet())
            return c->color.argb();
    if ((slot == VyStyleHover || slot == VyStyleFocus) && row.isSet(VyStyleNormal))
        return row.at(VyStyleNormal)->color.argb();
    return fallback;
}

int VyStyle::fontSize(const VySTOptArray<VySTFont, 8>& row, int slot) {
    const VySTFont* f = row.at(stateIndex(slot));
    if (f && f->isSet() && f->font.pixelSize() > 0)
        return f->font.pixelSize();
    return kDesignFontPixelSize;
}

void VyStyle::drawLabel(VyCanvas* canvas, const VyRect& rect, int slot, const VyStringList& lines,
                        int alignment) const {
    const VyLabelOption& o = m_option.get<VyLabelOption>();
    const int s = stateIndex(slot);
    const vyargb fg = color(o.foreground, s, s == VyStyleDisabled ? D::kTextDimmed : D::kText);
    const int px = fontSize(o.font, s);
    const ClipScope clip(canvas, rect);
    const int lineH = VyTextLayout::lineHeight(px);
    const int total = lineH * lines.size();
    int top = rect.top;
    if (alignment & VyCanvas::AlignVCenter)
        top = rect.top + (rect.height() - total) / 2;
    else if (alignment & VyCanvas::AlignBottom)
        top = rect.bottom + 1 - total;
    top = std::max(top, rect.top);
    const int hAlign =
        alignment & (VyCanvas::AlignLeft | VyCanvas::AlignRight | VyCanvas::AlignHCenter);
    for (int i = 0; i < lines.size() && top <= rect.bottom; ++i, top += lineH)
        drawLine(canvas, VyRect(rect.left, top, rect.width(), lineH),
                 hAlign | VyCanvas::AlignVCenter, lines.at(i), px, fg);
}

void VyStyle::drawPushButton(VyCanvas* canvas, const VyRect& rect, int slot, bool pressed,
                             bool checked, const VyString& text, const VyBitmap& icon,
                             const VyBitmap& image) const {
    const VyPushButtonOption& o = m_option.get<VyPushButtonOption>();
    const int s = stateIndex(slot);
    const ClipScope clip(canvas, rect);
    if (!image.isNull()) {
        canvas->drawImage(rect, image);
    } else {
        // Pressed and checked buttons show the focus colour, so a toggled button reads as on.
        const int bgSlot = (pressed || checked) && s != VyStyleDisabled ? VyStyleFocus : s;
        canvas->fillRect(rect, color(o.background, bgSlot, D::kButtonBackground[bgSlot]));
    }
    if (pressed)
        canvas->fillRect(rect, 0x30000000); // a shade, whatever the style's colours
    if (const VySTBorderWidth* bw = o.borderWidth.at(s)) {
        if (bw->isSet() && bw->left > 0) {
            canvas->setPenWidth(bw->left);
            canvas->drawRect(rect, color(o.borderColor, s, D::kButtonBorder[s]));
            canvas->setPenWidth(1);
        }
    }
    int margin = scaled(kFieldPaddingDesign);
    if (const VySTMargin* m = o.margin.at(s))
        margin += m->left;
    VyRect content = inset(rect, margin);
    if (pressed)
        content = content.translated(1, 1);
    const int px = fontSize(o.font, s);
    const vyargb fg = color(o.foreground, s, D::kButtonForeground[s]);
    if (!icon.isNull()) {
        const int side = std::min(content.height(), std::max(1, px + px / 2));
        const int textW = text.isEmpty() ? 0
                                         : std::min(VyTextLayout::width(text, px),
                                                    content.width() - side - margin / 2);
        const int total = side + (text.isEmpty() ? 0 : margin / 2 + textW);
        const int x = content.left + std::max(0, (content.width() - total) / 2);
        canvas->drawImage(VyRect(x, content.top + (content.height() - side) / 2, side, side), icon);
        if (!text.isEmpty())
            drawLine(canvas,
                     VyRect::fromEdges(x + side + margin / 2, content.top, content.right,
                                       content.bottom),
                     kLeftVCenter, text, px, fg);
        return;
    }
    drawLine(canvas, content, VyCanvas::AlignCenter, text, px, fg);
}

void VyStyle::drawIndicatorShape(VyCanvas* canvas, const VyRect& box, bool round, bool checked,
                                 vyargb border, vyargb mark) const {
    const int pen = std::max(1, box.width() / 11);
    if (round) {
        fillDisc(canvas, box, border, pen);
        if (checked)
            fillDisc(canvas, inset(box, std::max(2, box.width() / 4)), mark);
        return;
    }
    canvas->setPenWidth(pen);
    canvas->drawRect(box, border);
    canvas->setPenWidth(1);
    if (checked)
        canvas->fillRect(inset(box, std::max(2, box.width() / 4)), mark);
}

namespace {

// The indicator box at the left of a check box or radio button, centred vertically.
VyRect indicatorBox(const VyRect& rect, int side) {
    side = std::min(side, rect.height());
    return VyRect(rect.left, rect.top + (rect.height() - side) / 2, side, side);
}

// Indicator images are made for the output's size class (normal or "-max"): drawn at their own
// size they stay crisp, and only a box too small for them scales them down.
void drawIndicatorImage(VyCanvas* canvas, const VyRect& box, const VyBitmap& image) {
    if (box.width() >= image.width() && box.height() >= image.height())
        canvas->drawImage(box.left + (box.width() - image.width()) / 2,
                          box.top + (box.height() - image.height()) / 2, image);
    else
        canvas->drawImage(box, image);
}

} // namespace

// Check and radio boxes differ only in their option record and the indicator's outline.
template <typename Option>
void VyStyle::drawIndicatorControl(VyCanvas* canvas, const VyRect& rect, int slot, bool checked,
                                   const VyString& text, bool round) const {
    const Option& o = m_option.get<Option>();
    const int s = stateIndex(slot);
    const ClipScope clip(canvas, rect);
    const VySTOptArray<VySTPixmap, 8>& images = checked ? o.checked : o.unchecked;
    const VyRect box =
        indicatorBox(rect, images.isSet(s) ? images.at(s)->bitmap.width() : indicatorSize());
    if (images.isSet(s))
        drawIndicatorImage(canvas, box, images.at(s)->bitmap);
    else
        drawIndicatorShape(canvas, box, round, checked, color(o.border, s, D::kIndicatorBorder[s]),
                           s == VyStyleDisabled ? D::kIndicatorBorder[s] : D::kAccent);
    const int fgSlot = s == VyStyleDisabled ? VyStyleDisabled : VyStyleNormal;
    drawLine(
        canvas,
        VyRect::fromEdges(box.right + 1 + indicatorSpacing(), rect.top, rect.right, rect.bottom),
        kLeftVCenter, text, fontSize(o.font, s),
        color(o.foreground, fgSlot, D::kButtonForeground[fgSlot]));
}

void VyStyle::drawCheckBox(VyCanvas* canvas, const VyRect& rect, int slot, bool checked,
                           const VyString& text) const {
    drawIndicatorControl<VyCheckBoxOption>(canvas, rect, slot, checked, text, false);
}

void VyStyle::drawRadioButton(VyCanvas* canvas, const VyRect& rect, int slot, bool checked,
                              const VyString& text) const {
    drawIndicatorControl<VyRadioButtonOption>(canvas, rect, slot, checked, text, true);
}

int VyStyle::groupBoxTitleHeight(bool checkable) const {
    const int text =
        VyTextLayout::lineHeight(fontSize(m_option.get<VyLabelOption>().font, VyStyleNormal));
    if (!checkable)
        return text;
    const VyCheckBoxOption& o = m_option.get<VyCheckBoxOption>();
    const int box = o.checked.isSet(VyStyleNormal) ? o.checked.at(VyStyleNormal)->bitmap.height()
                                                   : indicatorSize();
    return std::max(text, box);
}

void VyStyle::drawGroupBox(VyCanvas* canvas, const VyRect& rect, int slot, const VyString& title,
                           bool checkable, bool checked) const {
    // The group box has no record of its own: its frame is the line edit's border and its
    // title the label's text, so it matches the fields it groups.
    const VyLineEditOption& field = m_option.get<VyLineEditOption>();
    const VyLabelOption& label = m_option.get<VyLabelOption>();
    const int s = stateIndex(slot);
    const ClipScope clip(canvas, rect);
    const int px = fontSize(label.font, s);
    const int pad = scaled(kFieldPaddingDesign);
    const vyargb line = color(field.border, s, D::kFieldBorder[s]);
    int x = rect.left + pad;
    const int titleRoom = rect.width() - 2 * pad;
    const VyCheckBoxOption& cbo = m_option.get<VyCheckBoxOption>();
    const VySTOptArray<VySTPixmap, 8>& titleImages = checked ? cbo.checked : cbo.unchecked;
    const int side = titleImages.isSet(s) ? titleImages.at(s)->bitmap.width() : indicatorSize();
    const int titleH = groupBoxTitleHeight(checkable);
    const VyRect frame =
        VyRect::fromEdges(rect.left, rect.top + titleH / 2, rect.right, rect.bottom);
    const int boxW = checkable ? std::min(side, titleH) + indicatorSpacing() : 0;
    const int textW = title.isEmpty()
                          ? 0
                          : std::max(0, std::min(VyTextLayout::width(title, px), titleRoom - boxW));
    // The title interrupts the top line of the frame.
    const int gapFrom = textW + boxW > 0 ? x - pad / 2 : frame.right + 1;
    const int gapTo = textW + boxW > 0 ? x + boxW + textW + pad / 2 : frame.right + 1;
    canvas->fillRect(VyRect::fromEdges(frame.left, frame.top, gapFrom - 1, frame.top), line);
    canvas->fillRect(VyRect::fromEdges(gapTo, frame.top, frame.right, frame.top), line);
    canvas->fillRect(VyRect::fromEdges(frame.left, frame.top, frame.left, frame.bottom), line);
    canvas->fillRect(VyRect::fromEdges(frame.right, frame.top, frame.right, frame.bottom), line);
    canvas->fillRect(VyRect::fromEdges(frame.left, frame.bottom, frame.right, frame.bottom), line);
    if (checkable) {
        const VyCheckBoxOption& cb = m_option.get<VyCheckBoxOption>();
        const VyRect box(x, rect.top + (titleH - (boxW - indicatorSpacing())) / 2,
                         boxW - indicatorSpacing(), boxW - indicatorSpacing());
        const VySTOptArray<VySTPixmap, 8>& images = checked ? cb.checked : cb.unchecked;
        if (images.isSet(s))
            drawIndicatorImage(canvas, box, images.at(s)->bitmap);
        else
            drawIndicatorShape(canvas, box, false, checked,
                               color(cb.border, s, D::kIndicatorBorder[s]), D::kAccent);
        x += boxW;
    }
    const int fgSlot = s == VyStyleDisabled ? VyStyleDisabled : VyStyleNormal;
    drawLine(
        canvas, VyRect(x, rect.top, textW, titleH), kLeftVCenter, title, px,
        color(label.foreground, fgSlot, fgSlot == VyStyleDisabled ? D::kTextDimmed : D::kText));
}

VyRect VyStyle::lineEditTextRect(const VyRect& rect) const {
    const int pad = scaled(kFieldPaddingDesign);
    return VyRect::fromEdges(rect.left + pad, rect.top + 1, rect.right - pad, rect.bottom - 1);
}

void VyStyle::drawLineEdit(VyCanvas* canvas, const VyRect& rect, int slot,
                           const LineEditText& content) const {
    const VyLineEditOption& o = m_option.get<VyLineEditOption>();
    const int s = stateIndex(slot);
    const ClipScope clip(canvas, rect);
    canvas->fillRect(rect, color(o.background, s, D::kFieldBackground[s]));
    canvas->drawRect(rect, color(o.border, s, D::kFieldBorder[s]));
    const VyRect area = lineEditTextRect(rect);
    const ClipScope inner(canvas, area);
    const int px = fontSize(o.font, s);
    if (content.text.isEmpty() && !content.placeholder.isEmpty()) {
        drawLine(canvas, area, kLeftVCenter, content.placeholder, px,
                 color(o.foreground, VyStyleDisabled, D::kTextDimmed));
    } else {
        if (content.selectionToX > content.selectionFromX)
            canvas->fillRect(
                VyRect::fromEdges(area.left + content.selectionFromX - content.scroll, area.top + 2,
                                  area.left + content.selectionToX - content.scroll - 1,
                                  area.bottom - 2),
                color(o.border, VyStyleFocus, D::kFocus));
        // The text scrolls under the clip instead of being elided: the cursor must stay visible.
        canvas->drawText(VyRect(area.left - content.scroll, area.top, area.width() + content.scroll,
                                area.height()),
                         kLeftVCenter, content.text, px,
                         color(o.foreground, s, D::kFieldForeground[s]));
    }
    if (content.cursorX >= 0) {
        const int x = area.left + content.cursorX - content.scroll;
        const int h = std::min(area.height() - 4, px + px / 3);
        canvas->fillRect(VyRect(x, area.top + (area.height() - h) / 2, std::max(1, scaled(2)), h),
                         color(o.foreground, s, D::kFieldForeground[s]));
    }
}

int VyStyle::spinBoxPartAt(const VyRect& rect, VyPoint pos) const {
    const int buttonW = std::max(8, rect.height() * 4 / 5);
    if (!rect.contains(pos) || pos.x <= rect.right - buttonW)
        return SpinNone;
    return pos.y < rect.top + rect.height() / 2 ? SpinUp : SpinDown;
}

void VyStyle::drawSpinBox(VyCanvas* canvas, const VyRect& rect, int slot, const VyString& text,
                          int pressedPart, bool upEnabled, bool downEnabled) const {
    const VySpinBoxOption& o = m_option.get<VySpinBoxOption>();
    const int s = stateIndex(slot);
    const ClipScope clip(canvas, rect);
    const vyargb border = color(o.border, s, D::kFieldBorder[s]);
    canvas->fillRect(rect, color(o.background, s, D::kFieldBackground[s]));
    canvas->drawRect(rect, border);
    const int buttonW = std::max(8, rect.height() * 4 / 5);
    const VyRect buttons =
        VyRect::fromEdges(rect.right - buttonW + 1, rect.top, rect.right, rect.bottom);
    canvas->fillRect(VyRect(buttons.left, rect.top + 1, 1, rect.height() - 2), border);
    const int mid = rect.top + rect.height() / 2;
    const VyRect up = VyRect::fromEdges(buttons.left + 1, rect.top + 1, rect.right - 1, mid - 1);
    const VyRect down = VyRect::fromEdges(buttons.left + 1, mid, rect.right - 1, rect.bottom - 1);
    const vyargb fg = color(o.foreground, s, D::kFieldForeground[s]);
    auto arrow = [&](const VyRect& part, bool enabled, bool isPressed,
                     const VySTOptArray<VySTPixmap, 8>& images, ArrowDirection dir) {
        if (isPressed)
            canvas->fillRect(part, color(o.border, VyStyleFocus, D::kFocus));
        const int imgSlot = enabled && s != VyStyleDisabled ? VyStyleNormal : VyStyleDisabled;
        const int side = std::max(1, std::min(part.width(), part.height()) - 2);
        const VyRect box(part.left + (part.width() - side) / 2,
                         part.top + (part.height() - side) / 2, side, side);
        if (images.isSet(imgSlot)) {
            canvas->drawImage(box, images.at(imgSlot)->bitmap);
        } else {
            const int w = std::max(3, side / 2) | 1;
            const VyRect tri(box.left + (side - w) / 2, box.top + (side - w / 2) / 2, w, w / 2 + 1);
            drawArrow(canvas, dir, tri,
                      imgSlot == VyStyleDisabled
                          ? color(o.foreground, VyStyleDisabled, D::kTextDimmed)
                          : fg);
        }
    };
    arrow(up, upEnabled, pressedPart == SpinUp, o.upArrow, ArrowUp);
    arrow(down, downEnabled, pressedPart == SpinDown, o.downArrow, ArrowDown);
    const int pad = scaled(kFieldPaddingDesign);
    drawLine(canvas, VyRect::fromEdges(rect.left + pad, rect.top, buttons.left - pad, rect.bottom),
             kLeftVCenter, text, fontSize(o.font, s), fg);
}

void VyStyle::drawSlider(VyCanvas* canvas, const VyRect& rect, int slot, bool horizontal,
                         const VyRect& handle) const {
    const VySliderOption& o = m_option.get<VySliderOption>();
    const int s = stateIndex(slot);
    const ClipScope clip(canvas, rect);
    const int thick = std::max(2, scaled(6));
    const int half = sliderHandleLength() / 2;
    VyRect groove = horizontal ? VyRect(rect.left + half, rect.top + (rect.height() - thick) / 2,
                                        std::max(0, rect.width() - 2 * half), thick)
                               : VyRect(rect.left + (rect.width() - thick) / 2, rect.top + half,
                                        thick, std::max(0, rect.height() - 2 * half));
    canvas->fillRect(groove, color(o.grooveBackground, VyStyleNormal, D::kField));
    const int subSlot = s == VyStyleHover || s == VyStyleFocus ? VyStyleHover : VyStyleNormal;
    const vyargb sub = s == VyStyleDisabled
                           ? D::kLineDisabled
                           : color(o.subPageBackground, subSlot,
                                   subSlot == VyStyleHover ? D::kAccentLight : D::kAccent);
    // The sub-page runs from the minimum end (left, or bottom for a vertical slider) to the handle.
    if (horizontal)
        canvas->fillRect(VyRect::fromEdges(groove.left, groove.top,
                                           std::min(groove.right, handle.left + handle.width() / 2),
                                           groove.bottom),
                         sub);
    else
        canvas->fillRect(VyRect::fromEdges(groove.left,
                                           std::max(groove.top, handle.top + handle.height() / 2),
                                           groove.right, groove.bottom),
                         sub);
    canvas->drawRect(groove, color(o.border, s, D::kFieldBorder[s]));
    const int imgSlot = s == VyStyleDisabled ? VyStyleNormal : s;
    if (o.handle.isSet(imgSlot)) {
        canvas->drawImage(handle, o.handle.at(imgSlot)->bitmap);
    } else {
        fillDisc(canvas, handle, s == VyStyleDisabled ? D::kTextDimmed : D::kText);
        if (s == VyStyleHover || s == VyStyleFocus)
            fillDisc(canvas, inset(handle, handle.width() / 4), D::kAccent);
    }
}

void VyStyle::drawScrollBar(VyCanvas* canvas, const VyRect& rect, int slot, bool horizontal,
                            const VyRect& slider) const {
    (void)horizontal;
    const VyScrollBarOption& o = m_option.get<VyScrollBarOption>();
    // The scroll bar is styled for Normal, Hover and Focus; a disabled one looks normal.
    const int s = slot == VyStyleHover || slot == VyStyleFocus ? slot : VyStyleNormal;
    const ClipScope clip(canvas, rect);
    canvas->fillRect(rect, color(o.groove, s, D::kField));
    canvas->fillRect(rect, color(o.background, s, 0));
    const vyargb handle = slot == VyStyleDisabled ? D::kLineDisabled
                                                  : color(o.slider, s,
                                                          s == VyStyleNormal  ? D::kScrollSlider
                                                          : s == VyStyleFocus ? D::kAccent
                                                                              : D::kIndicatorLine);
    canvas->fillRect(slider, handle);
}

void VyStyle::drawProgressBar(VyCanvas* canvas, const VyRect& rect, int percent,
                              const VyString& text) const {
    const VyProgressBarOption& o = m_option.get<VyProgressBarOption>();
    const ClipScope clip(canvas, rect);
    percent = std::max(0, std::min(100, percent));
    canvas->fillRect(rect, D::kField); // the sheet styles no trough colour
    const VyRect inner = inset(rect, 1);
    const int filled = static_cast<int>(static_cast<int64_t>(inner.width()) * percent / 100);
    if (filled > 0)
        canvas->fillRect(VyRect(inner.left, inner.top, filled, inner.height()),
                         color(o.chunk, VyStyleNormal, D::kAccent));
    canvas->drawRect(rect, color(o.border, VyStyleNormal, D::kLine));
    drawLine(canvas, inner, VyCanvas::AlignCenter, text, fontSize(o.font, VyStyleNormal),
             color(o.foreground, VyStyleNormal, D::kText));
}

int VyStyle::toolTipFontSize() const {
    return fontSize(m_option.get<VyToolTipOption>().font, VyStyleNormal);
}

VySize VyStyle::toolTipSize(const VyStringList& lines) const {
    const int px = toolTipFontSize();
    int w = 0;
    for (int i = 0; i < lines.size(); ++i)
        w = std::max(w, VyTextLayout::width(lines.at(i), px));
    const int pad = scaled(kFieldPaddingDesign);
    return VySize(w + 2 * pad, VyTextLayout::lineHeight(px) * std::max(1, lines.size()) + pad);
}

void VyStyle::drawToolTip(VyCanvas* canvas, const VyRect& rect, const VyStringList& lines) const {
    const VyToolTipOption& o = m_option.get<VyToolTipOption>();
    const ClipScope clip(canvas, rect);
    canvas->fillRect(rect, color(o.background, VyStyleNormal, D::kTipBackground));
    int bw = 1;
    if (const VySTBorderWidth* w = o.borderWidth.at(0))
        if (w->isSet())
            bw = w->left;
    if (bw > 0) {
        vyargb border = D::kLineHover;
        if (const VySTBorderColor* c = o.borderColor.at(VyStyleNormal))
            if (c->set)
                border = c->color.argb();
        canvas->setPenWidth(bw);
        canvas->drawRect(rect, border);
        canvas->setPenWidth(1);
    }
    const int px = toolTipFontSize();
    const int pad = scaled(kFieldPaddingDesign);
    const int lineH = VyTextLayout::lineHeight(px);
    int y = rect.top + pad / 2;
    for (int i = 0; i < lines.size(); ++i, y += lineH)
        drawLine(canvas, VyRect(rect.left + pad, y, rect.width() - 2 * pad, lineH), kLeftVCenter,
                 lines.at(i), px, color(o.foreground, VyStyleNormal, D::kText));
}
