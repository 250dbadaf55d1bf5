#include "ui/liveview/CountBadge.h"

#include "model/AIManager.h"
#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/style/VyTextLayout.h"
#include "ui/UiLook.h"
#include "ui/liveview/VideoLabel.h"

namespace {

// Opaque: a translucent pixel keeps the cell's transparency and the video would show through.
constexpr vyargb kGround = 0xFF101214;
constexpr vyargb kOverGround = 0xFFC02020; // the limit is passed
constexpr vyargb kText = 0xFFFFFFFF;
constexpr int kPaddingDesign = 6; // pixels at 1920x1080

} // namespace

CountBadge::CountBadge(VyWidget* parent)
    : VyWidget(parent) {
    hide();
    if (AIManager* ai = AIManager::instance())
        VyObject::connect(ai, &ai->countsChanged, this, VY_SLOT(CountBadge, countsChanged));
}

void CountBadge::setChannel(int channel) {
    m_channel = channel;
    refresh();
}

void CountBadge::countsChanged() {
    const AIManager* ai = AIManager::instance();
    if (ai != nullptr && ai->lastCountChannel() == m_channel)
        refresh();
}

void CountBadge::refresh() {
    const AIManager* ai = AIManager::instance();
    const CountLiveNotice* n = ai != nullptr && m_channel >= 0 ? ai->liveCount(m_channel) : nullptr;
    VyString text;
    bool over = false;
    if (n != nullptr) {
        text = VyTranslation::tr(TextId::Analytics::In) + " " + VyString::number(n->in) + "  " +
               VyTranslation::tr(TextId::Analytics::Out) + " " + VyString::number(n->out);
        over = (n->flags & CountLiveNotice::kOverLimit) != 0;
    }
    if (text == m_text && over == m_over)
        return;
    m_text = text;
    m_over = over;
    // The cell places the badge; its width follows the text.
    const VyRect g = geometry();
    setGeometry(g.left, g.top, preferredWidth(), g.height());
    setVisible(!m_text.isEmpty());
    update();
}

int CountBadge::preferredWidth() const {
    return VyTextLayout::width(m_text, VideoLabel::fontPixelSize()) +
           2 * UiLook::scaledX(kPaddingDesign);
}

void CountBadge::paintEvent(VyPaintEvent*) {
    VyCanvas* c = canvas();
    c->fillRect(rect(), m_over ? kOverGround : kGround);
    c->drawText(rect(), VyCanvas::AlignCenter, m_text, VideoLabel::fontPixelSize(), kText);
}
