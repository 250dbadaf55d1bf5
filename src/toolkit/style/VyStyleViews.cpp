// Drawing of the item views (combo boxes, lists, tables, headers) and the date and time fields.
#include <algorithm>

#include "runtime/VyBitmap.h"
#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/style/VyClipScope.h"
#include "toolkit/style/VyStyle.h"
#include "toolkit/style/VyStyleDefaults.h"
#include "toolkit/style/VyStyleSlot.h"
#include "toolkit/style/VyTextLayout.h"

namespace D = VyStyleDefaults;

namespace {

constexpr int kLeftVCenter = VyCanvas::AlignLeft | VyCanvas::AlignVCenter;
constexpr vyargb kSelectedBackground = 0xFF0078BE;
constexpr vyargb kSelectedForeground = 0xFFFFFFFF;
constexpr vyargb kTitleRow = 0xFF34383F;
constexpr vyargb kCellFocus = 0xFF28AFF0;

int stateIndex(int slot) {
    return slot >= 0 && slot < kVyStyleStateCount ? slot : VyStyleNormal;
}

VyRect inset(const VyRect& r, int d) {
    return VyRect::fromEdges(r.left + d, r.top + d, r.right - d, r.bottom - d);
}

void drawLine(VyCanvas* canvas, const VyRect& rect, int alignment, const VyString& text,
              int pixelSize, vyargb colour) {
    if (text.isEmpty() || rect.isEmpty())
        return;
    canvas->drawText(rect, alignment, VyTextLayout::elided(text, pixelSize, rect.width()),
                     pixelSize, colour);
}

// An image kept at its own size when the box holds it, else scaled down into the box.
void drawFitted(VyCanvas* canvas, const VyRect& box, const VyBitmap& image) {
    if (box.width() >= image.width() && box.height() >= image.height())
        canvas->drawImage(box.left + (box.width() - image.width()) / 2,
                          box.top + (box.height() - image.height()) / 2, image);
    else
        canvas->drawImage(box, image);
}

// A small arrow triangle centred in the box.
VyRect arrowBox(const VyRect& box, bool vertical) {
    const int side = std::max(1, std::min(box.width(), box.height()));
    const int w = std::max(5, side / 3) | 1;
    const int h = w / 2 + 1;
    return vertical
               ? VyRect(box.left + (box.width() - w) / 2, box.top + (box.height() - h) / 2, w, h)
               : VyRect(box.left + (box.width() - h) / 2, box.top + (box.height() - w) / 2, h, w);
}

} // namespace

VyRect VyStyle::comboBoxButtonRect(const VyRect& rect) const {
    const int w = std::min(rect.width(), std::max(8, rect.height()));
    return VyRect::fromEdges(rect.right - w + 1, rect.top, rect.right, rect.bottom);
}

void VyStyle::drawComboBox(VyCanvas* canvas, const VyRect& rect, int slot,
                           const VyString& text) const {
    const VyComboBoxOption& o = m_option.get<VyComboBoxOption>();
    const int s = stateIndex(slot);
    const VyClipScope clip(canvas, rect);
    canvas->fillRect(rect, color(o.background, s, D::kButtonBackground[s == VyStyleFocus ? 0 : s]));
    const VyRect button = comboBoxButtonRect(rect);
    canvas->fillRect(VyRect(button.left, rect.top + 1, 1, std::max(0, rect.height() - 2)),
                     color(o.dropDownBorder, s, D::kFieldBorder[s]));
    const VyRect arrowArea = inset(button, 2);
    if (o.dropDown.isSet(s)) {
        drawFitted(canvas, arrowArea, o.dropDown.at(s)->bitmap);
    } else {
        const vyargb arrow = s == VyStyleDisabled
                                 ? color(o.dropDownArrow, VyStyleDisabled, D::kTextDimmed)
                                 : color(o.foreground, s, D::kFieldForeground[s]);
        drawArrow(canvas, ArrowDown, arrowBox(arrowArea, true), arrow);
    }
    canvas->drawRect(rect, color(o.border, s, D::kFieldBorder[s]));
    const int pad = scaled(kFieldPaddingDesign);
    drawLine(canvas, VyRect::fromEdges(rect.left + pad, rect.top, button.left - pad, rect.bottom),
             kLeftVCenter, text, fontSize(o.font, s),
             color(o.foreground, s, D::kFieldForeground[s]));
}

int VyStyle::comboPopupBorderWidth() const {
    const VySTBorderWidth* w = m_option.get<VyComboBoxOption>().popupBorderWidth.at(0);
    return w && w->isSet() ? std::max(0, static_cast<int>(w->left)) : 1;
}

void VyStyle::drawComboPopup(VyCanvas* canvas, const VyRect& rect) const {
    const VyComboBoxOption& o = m_option.get<VyComboBoxOption>();
    const VyClipScope clip(canvas, rect);
    canvas->fillRect(rect, color(o.popupBackground, VyStyleNormal, D::kField));
    const int bw = comboPopupBorderWidth();
    if (bw <= 0)
        return;
    vyargb border = D::kAccent;
    if (const VySTBorderColor* c = o.popupBorderColor.at(VyStyleNormal))
        if (c->set)
            border = c->color.argb();
    canvas->setPenWidth(bw);
    canvas->drawRect(rect, border);
    canvas->setPenWidth(1);
}

void VyStyle::drawComboPopupItem(VyCanvas* canvas, const VyRect& rect, const VyString& text,
                                 bool chosen) const {
    const VyComboBoxOption& o = m_option.get<VyComboBoxOption>();
    const VyClipScope clip(canvas, rect);
    const int s = chosen ? VyStyleHover : VyStyleNormal;
    if (chosen)
        canvas->fillRect(rect, color(o.popupBackground, VyStyleHover, kSelectedBackground));
    const int pad = scaled(kFieldPaddingDesign);
    drawLine(canvas, VyRect::fromEdges(rect.left + pad, rect.top, rect.right - pad, rect.bottom),
             kLeftVCenter, text, fontSize(o.font, VyStyleNormal),
             color(o.popupForeground, s, chosen ? kSelectedForeground : D::kText));
}

void VyStyle::drawItemViewFrame(VyCanvas* canvas, const VyRect& rect, bool focused, bool enabled,
                                bool table) const {
    const VyClipScope clip(canvas, rect);
    canvas->fillRect(rect, enabled ? D::kField : D::kFieldDisabled);
    vyargb border;
    int width = 1;
    if (table) {
        const VyTableWidgetOption& o = m_option.get<VyTableWidgetOption>();
        border = color(o.border, focused ? VyStyleFocus : VyStyleNormal,
                       focused ? D::kAccent : D::kLine);
        if (const VySTBorderWidth* w = o.borderWidth.at(0))
            if (w->isSet())
                width = w->left;
    } else {
        const VyListWidgetOption& o = m_option.get<VyListWidgetOption>();
        border = color(o.colors, focused ? VyListBorderFocus : VyListBorderNormal,
                       focused ? D::kAccent : D::kLine);
    }
    if (!enabled)
        border = D::kLineDisabled;
    if (width <= 0)
        return;
    canvas->setPenWidth(width);
    canvas->drawRect(rect, border);
    canvas->setPenWidth(1);
}

void VyStyle::drawListItem(VyCanvas* canvas, const VyRect& rect, const ItemLook& item) const {
    const VyListWidgetOption& o = m_option.get<VyListWidgetOption>();
    const VyClipScope clip(canvas, rect);
    const int s = item.enabled ? VyStyleNormal : VyStyleDisabled;
    vyargb fg = item.enabled ? D::kText : D::kTextDimmed;
    if (item.selected) {
        canvas->fillRect(rect, color(o.colors, VyListSelectedBackground, kSelectedBackground));
        fg = color(o.colors, VyListSelectedForeground, kSelectedForeground);
    }
    if (item.foreground && !item.selected)
        fg = item.foreground;
    if (item.current && item.focused)
        canvas->drawRect(rect, color(o.colors, VyListSelectionExtra, kCellFocus));
    const int pad = scaled(kFieldPaddingDesign);
    int x = rect.left + pad;
    if (item.checkable) {
        const VyCheckBoxOption& cb = m_option.get<VyCheckBoxOption>();
        const VySTOptArray<VySTPixmap, 8>& images = item.checked ? cb.checked : cb.unchecked;
        const int side = std::min(indicatorSize(), rect.height());
        const VyRect box(rect.left + indicatorSpacing(), rect.top + (rect.height() - side) / 2,
                         side, side);
        if (images.isSet(s)) {
            drawFitted(canvas, box, images.at(s)->bitmap);
        } else {
            canvas->drawRect(box, color(cb.border, s, D::kIndicatorBorder[s]));
            if (item.checked)
                canvas->fillRect(inset(box, std::max(2, side / 4)), D::kAccent);
        }
        x = rect.left + listCheckWidth();
    }
    if (!item.icon.isNull()) {
        const int side = std::min(rect.height() - 4, std::max(1, item.icon.height()));
        drawFitted(canvas, VyRect(x, rect.top + (rect.height() - side) / 2, side, side), item.icon);
        x += side + pad / 2;
    }
    drawLine(canvas, VyRect::fromEdges(x, rect.top, rect.right - pad, rect.bottom), item.alignment,
             item.text, fontSize(o.font, s), fg);
}

void VyStyle::drawTableCell(VyCanvas* canvas, const VyRect& rect, const ItemLook& item) const {
    if (rect.isEmpty())
        return;
    const VyTableWidgetOption& o = m_option.get<VyTableWidgetOption>();
    const VyListWidgetOption& list = m_option.get<VyListWidgetOption>();
    const VyClipScope clip(canvas, rect);
    const int s = item.enabled ? VyStyleNormal : VyStyleDisabled;
    vyargb fg = item.enabled ? D::kText : D::kTextDimmed;
    // Tables select with the list widget's colours, so both views read alike on one page.
    if (item.selected) {
        canvas->fillRect(rect, color(list.colors, VyListSelectedBackground, kSelectedBackground));
        fg = color(list.colors, VyListSelectedForeground, kSelectedForeground);
    } else if (item.foreground) {
        fg = item.foreground;
    }
    // The grid: each cell draws its right and bottom edges.
    const vyargb grid = color(o.border, VyStyleNormal, D::kLine);
    canvas->fillRect(VyRect::fromEdges(rect.right, rect.top, rect.right, rect.bottom), grid);
    canvas->fillRect(VyRect::fromEdges(rect.left, rect.bottom, rect.right, rect.bottom), grid);
    const int pad = scaled(kFieldPaddingDesign) / 2 + 1;
    int x = rect.left + pad;
    if (!item.icon.isNull()) {
        const int side = std::min(rect.height() - 4, std::max(1, item.icon.height()));
        drawFitted(canvas, VyRect(x, rect.top + (rect.height() - side) / 2, side, side), item.icon);
        x += side + pad;
    }
    drawLine(canvas, VyRect::fromEdges(x, rect.top, rect.right - pad, rect.bottom - 1),
             item.alignment, item.text, fontSize(o.font, s), fg);
    if (item.current && item.focused) {
        canvas->setPenWidth(std::max(1, scaled(2)));
        canvas->drawRect(rect, color(o.cellBorder, VyStyleFocus, kCellFocus));
        canvas->setPenWidth(1);
    }
}

void VyStyle::drawHeaderSection(VyCanvas* canvas, const VyRect& rect, const VyString& text,
                                int sortOrder, bool horizontal) const {
    if (rect.isEmpty())
        return;
    const VyTableWidgetOption& o = m_option.get<VyTableWidgetOption>();
    const VyClipScope clip(canvas, rect);
    canvas->fillRect(rect, color(o.titleRowBackground, VyStyleNormal, kTitleRow));
    const vyargb grid = color(o.border, VyStyleNormal, D::kLine);
    canvas->fillRect(VyRect::fromEdges(rect.right, rect.top, rect.right, rect.bottom), grid);
    canvas->fillRect(VyRect::fromEdges(rect.left, rect.bottom, rect.right, rect.bottom), grid);
    const int pad = scaled(kFieldPaddingDesign) / 2 + 1;
    const int px = fontSize(o.font, VyStyleNormal);
    int right = rect.right - pad;
    if (sortOrder != 0 && horizontal) {
        const int w = std::max(5, px / 2) | 1;
        const VyRect box(rect.right - pad - w, rect.top + (rect.height() - w / 2) / 2, w,
                         w / 2 + 1);
        drawArrow(canvas, sortOrder == 1 ? ArrowUp : ArrowDown, box, D::kText);
        right = box.left - pad;
    }
    drawLine(canvas, VyRect::fromEdges(rect.left + pad, rect.top, right, rect.bottom),
             horizontal ? kLeftVCenter : VyCanvas::AlignCenter, text, px, D::kTextBright);
}

VyRect VyStyle::dateEditButtonRect(const VyRect& rect) const {
    const int w = std::min(rect.width(), std::max(8, rect.height()));
    return VyRect::fromEdges(rect.right - w + 1, rect.top, rect.right, rect.bottom);
}

VyRect VyStyle::dateEditTextRect(const VyRect& rect, bool dropDown) const {
    const int pad = scaled(kFieldPaddingDesign);
    const int right = dropDown ? dateEditButtonRect(rect).left - 1 : rect.right - pad;
    return VyRect::fromEdges(rect.left + pad, rect.top + 1, right, rect.bottom - 1);
}

void VyStyle::drawDateEdit(VyCanvas* canvas, const VyRect& rect, int slot, const VyString& text,
                           int sectionFromX, int sectionToX, bool dropDown) const {
    const VyDateEditOption& o = m_option.get<VyDateEditOption>();
    const int s = stateIndex(slot);
    const VyClipScope clip(canvas, rect);
    canvas->fillRect(rect, color(o.background, s, D::kFieldBackground[s]));
    const vyargb fg = color(o.foreground, s, D::kFieldForeground[s]);
    if (dropDown) {
        const VyRect button = dateEditButtonRect(rect);
        canvas->fillRect(VyRect(button.left, rect.top + 1, 1, std::max(0, rect.height() - 2)),
                         color(o.border, s, D::kFieldBorder[s]));
        const VyRect area = inset(button, 2);
        if (o.dropDown.isSet(s))
            drawFitted(canvas, area, o.dropDown.at(s)->bitmap);
        else
            drawArrow(canvas, ArrowDown, arrowBox(area, true), fg);
    }
    canvas->drawRect(rect, color(o.border, s, D::kFieldBorder[s]));
    const VyRect area = dateEditTextRect(rect, dropDown);
    const VyClipScope inner(canvas, area);
    if (sectionToX > sectionFromX)
        canvas->fillRect(VyRect::fromEdges(area.left + sectionFromX, area.top + 3,
                                           area.left + sectionToX - 1, area.bottom - 3),
                         color(o.border, VyStyleFocus, D::kFocus));
    canvas->drawText(area, kLeftVCenter, text, fontSize(o.font, s), fg);
}

void VyStyle::drawMenuItem(VyCanvas* canvas, const VyRect& rect, const VyString& text,
                           const VyBitmap& icon, bool highlighted, bool enabled,
                           bool subMenu) const {
    const VyComboBoxOption& o = m_option.get<VyComboBoxOption>();
    const VyClipScope clip(canvas, rect);
    const bool lit = highlighted && enabled;
    if (lit)
        canvas->fillRect(rect, color(o.popupBackground, VyStyleHover, kSelectedBackground));
    const vyargb fg = !enabled ? D::kTextDimmed
                               : color(o.popupForeground, lit ? VyStyleHover : VyStyleNormal,
                                       lit ? kSelectedForeground : D::kText);
    const int pad = scaled(kFieldPaddingDesign);
    const int px = fontSize(o.font, VyStyleNormal);
    // The icon column is kept whether or not the item has an icon, so texts line up.
    const int iconSide = std::max(1, std::min(rect.height() - 4, px + px / 2));
    if (!icon.isNull())
        drawFitted(
            canvas,
            VyRect(rect.left + pad, rect.top + (rect.height() - iconSide) / 2, iconSide, iconSide),
            icon);
    int right = rect.right - pad;
    if (subMenu) {
        const VyRect box = arrowBox(
            VyRect(rect.right - pad - iconSide + 1, rect.top, iconSide, rect.height()), false);
        drawArrow(canvas, ArrowRight, box, fg);
        right = rect.right - pad - iconSide;
    }
    drawLine(canvas,
             VyRect::fromEdges(rect.left + 2 * pad + iconSide, rect.top, right, rect.bottom),
             kLeftVCenter, text, px, fg);
}

void VyStyle::drawMenuSeparator(VyCanvas* canvas, const VyRect& rect) const {
    const VyClipScope clip(canvas, rect);
    const int pad = scaled(kFieldPaddingDesign);
    canvas->fillRect(VyRect(rect.left + pad, rect.top + rect.height() / 2,
                            std::max(0, rect.width() - 2 * pad), 1),
                     D::kLine);
}

void VyStyle::drawTabBarBase(VyCanvas* canvas, const VyRect& rect) const {
    const VyClipScope clip(canvas, rect);
    canvas->fillRect(VyRect::fromEdges(rect.left, rect.bottom, rect.right, rect.bottom), D::kLine);
}

void VyStyle::drawTab(VyCanvas* canvas, const VyRect& rect, const VyString& text, bool current,
                      bool focused, bool hovered, bool enabled) const {
    // Tabs are push buttons of the common sheet laid flat: the current one in the focus
    // colour's underline, the others plain.
    const VyPushButtonOption& o = m_option.get<VyPushButtonOption>();
    const VyClipScope clip(canvas, rect);
    const int s = !enabled ? VyStyleDisabled : hovered ? VyStyleHover : VyStyleNormal;
    if (current)
        canvas->fillRect(rect, color(o.background, VyStyleNormal, D::kControl));
    else if (hovered && enabled)
        canvas->fillRect(rect, color(o.background, VyStyleHover, D::kControlHover));
    const int bar = std::max(2, scaledHeight(3));
    if (current)
        canvas->fillRect(VyRect(rect.left, rect.bottom - bar + 1, rect.width(), bar),
                         enabled ? D::kAccent : D::kLineDisabled);
    if (current && focused)
        canvas->drawRect(rect, color(o.borderColor, VyStyleFocus, D::kAccent));
    const int pad = scaled(kFieldPaddingDesign);
    drawLine(canvas,
             VyRect::fromEdges(rect.left + pad, rect.top, rect.right - pad, rect.bottom - bar),
             VyCanvas::AlignCenter, text, fontSize(o.font, s),
             current && enabled ? D::kTextBright : color(o.foreground, s, D::kButtonForeground[s]));
}
