#include "toolkit/widgets/VyLabel.h"

#include <algorithm>

#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/style/VyStyle.h"
#include "toolkit/style/VyTextLayout.h"
#include "toolkit/widgets/VyControlState.h"

VyLabel::VyLabel(VyWidget* parent)
    : VyWidget(parent)
    , m_alignment(VyCanvas::AlignLeft | VyCanvas::AlignVCenter) {}

VyLabel::VyLabel(const VyString& text, VyWidget* parent)
    : VyLabel(parent) {
    setText(text);
}

void VyLabel::setText(const VyString& text) {
    m_textId = kNoTextId;
    if (m_text == text)
        return;
    m_text = text;
    updateGeometry();
    update();
}

void VyLabel::setTextId(uint32_t textId) {
    m_textId = textId;
    VyTranslation* translation = VyTranslation::instance();
    if (m_listenedTranslation != translation) {
        connect(translation, &translation->languageChanged, this, VY_SLOT(VyLabel, retranslate));
        m_listenedTranslation = translation;
    }
    retranslate();
}

void VyLabel::retranslate() {
    if (m_textId == kNoTextId)
        return;
    const VyString text = VyTranslation::tr(m_textId);
    if (text == m_text)
        return;
    m_text = text;
    updateGeometry();
    update();
}

void VyLabel::setPixmap(const VyBitmap& image) {
    m_pixmap = image;
    update();
}

void VyLabel::setAlignment(int alignment) {
    m_alignment = alignment;
    update();
}

void VyLabel::setWordWrap(bool on) {
    m_wordWrap = on;
    updateGeometry();
    update();
}

int VyLabel::fontPixelSize() const {
    return VyStyle::fontSize(VyStyle::instance()->option().get<VyLabelOption>().font,
                             VyStyleNormal);
}

VySize VyLabel::sizeHint() const {
    if (!m_pixmap.isNull())
        return VySize(m_pixmap.width(), m_pixmap.height());
    const int px = fontPixelSize();
    return VySize(VyTextLayout::width(m_text, px), VyTextLayout::lineHeight(px));
}

VyStringList VyLabel::displayLines() const {
    const int px = fontPixelSize();
    if (m_wordWrap)
        return VyTextLayout::wrapped(m_text, px, width());
    VyStringList lines;
    // Without word wrap a line break still starts a new line; each line is elided by the style.
    const std::u32string chars = m_text.toUcs4();
    size_t start = 0;
    while (start <= chars.size()) {
        size_t end = chars.find(U'\n', start);
        if (end == std::u32string::npos)
            end = chars.size();
        lines.append(VyTextLayout::elided(VyString::fromUcs4(chars.substr(start, end - start)), px,
                                          width()));
        start = end + 1;
    }
    return lines;
}

void VyLabel::paintEvent(VyPaintEvent*) {
    VyCanvas* c = canvas();
    if (!m_pixmap.isNull()) {
        // The image keeps its size and is placed by the alignment; the clip cuts what overhangs.
        const int w = m_pixmap.width(), h = m_pixmap.height();
        int x = 0, y = 0;
        if (m_alignment & VyCanvas::AlignHCenter)
            x = (width() - w) / 2;
        else if (m_alignment & VyCanvas::AlignRight)
            x = width() - w;
        if (m_alignment & VyCanvas::AlignVCenter)
            y = (height() - h) / 2;
        else if (m_alignment & VyCanvas::AlignBottom)
            y = height() - h;
        c->drawImage(x, y, m_pixmap);
        return;
    }
    VyStyle::instance()->drawLabel(c, rect(), vyControlStyleSlot(this, false), displayLines(),
                                   m_alignment);
}

void VyLabel::resizeEvent(VyResizeEvent*) {
    update();
}
