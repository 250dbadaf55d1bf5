#include "ui/liveview/MainViewVideo.h"

#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/events/VyMouseEvent.h"
#include "toolkit/events/VyPaintEvent.h"
#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/style/VyStyle.h"
#include "ui/UiLook.h"
#include "ui/liveview/CountBadge.h"
#include "ui/liveview/LiveViewLook.h"
#include "ui/liveview/RecordFlagBox.h"
#include "ui/liveview/VideoLabel.h"

#include <algorithm>

namespace {

constexpr int kBorderPx = 1;
constexpr int kLabelMarginPx = 4; // from the cell's edges, at 1920x1080
constexpr int kStartIconPx = 48;  // the start-preview icon
constexpr int kOfferIconPx = 28;  // edit, add, pairing
constexpr int kOfferGapPx = 12;
constexpr int kMinCellForOffersPx = 120; // smaller cells show the start icon only

const char* const kStartPreviewIcon = "images/mainview-startpreview.png";
const char* const kOfferIcons[] = {"images/edit-camera.png", "images/add-camera.png",
                                   "images/pairing2.png"};

VyBitmap image(const char* path) {
    VyApplication* app = VyApplication::instance();
    const float scale = app && app->screen() ? app->screen()->horizontalScale() : 1.0f;
    return VyStyle::instance()->imageForScale(VyString(path), scale);
}

} // namespace

MainViewVideo::MainViewVideo(VyWidget* parent)
    : Video(parent)
    , m_label(new VideoLabel(this))
    , m_flags(new RecordFlagBox(this))
    , m_counts(new CountBadge(this)) {
    // The first cell reads the border table; the others share it.
    (void)LiveViewLook::instance();
    m_label->hide();
    // Shown over a picture only: it is transparent where no flag is.
    m_flags->hide();
}

void MainViewVideo::setChannel(int channel) {
    Video::setChannel(channel);
    m_counts->setChannel(channel == kNoChannel ? -1 : channel);
    refreshLabel();
}

void MainViewVideo::setChannelState(const ChannelState& state) {
    const bool cameraChanged = state.camera != m_state.camera;
    const bool nameChanged = !(state.name == m_state.name) || state.known != m_state.known;
    m_state = state;
    m_flags->setFlags(state.camera ? state.flags : 0);
    const bool flagsShown = state.camera && channel() != kNoChannel;
    if (m_flags->isVisible() != flagsShown)
        m_flags->setVisible(flagsShown);
    if (nameChanged)
        refreshLabel();
    // A camera coming or going changes the whole cell (icons, transparency, border).
    if (cameraChanged)
        update();
}

void MainViewVideo::setSelected(bool selected) {
    if (m_selected == selected)
        return;
    m_selected = selected;
    update();
}

void MainViewVideo::setEnlarged(bool enlarged) {
    if (m_enlarged == enlarged)
        return;
    m_enlarged = enlarged;
    update();
}

vyargb MainViewVideo::borderColour() const {
    const LiveViewLook& look = LiveViewLook::instance();
    if (channel() == kNoChannel)
        return look.borderUnused;
    if (m_enlarged)
        return look.borderEnlarged;
    if (!m_state.camera)
        return m_selected ? look.borderNoCameraSelected : look.borderNoCameraNotSelected;
    return m_selected ? look.borderNormalSelected : look.borderNormalNotSelected;
}

VyString MainViewVideo::labelText() const {
    if (channel() == kNoChannel)
        return VyString();
    VyString number = VyString::number(channel() + 1);
    if (number.size() < 2)
        number = VyString("0") + number;
    const VyString name = m_state.name.isEmpty()
                              ? VyTranslation::tr(TextId::LiveView::ChannelName).arg(channel() + 1)
                              : m_state.name;
    return VyString("%1[%2]").arg(name).arg(number);
}

void MainViewVideo::refreshLabel() {
    const VyString text = labelText();
    m_label->setText(text);
    m_label->setVisible(!text.isEmpty());
    placeDecorations();
}

void MainViewVideo::placeDecorations() {
    const int margin = UiLook::scaledX(kLabelMarginPx);
    const int labelHeight = VideoLabel::fontPixelSize() + UiLook::scaledY(6);
    const int labelWidth = std::min(m_label->preferredWidth(), width() - 2 * margin);
    m_label->setGeometry(margin, margin, std::max(0, labelWidth), labelHeight);
    const int boxWidth = std::min(RecordFlagBox::boxWidth(), std::max(0, width() - 2 * margin));
    // Top right, level with the label: the task bar may cover the bottom of the lowest row.
    m_flags->setGeometry(width() - margin - boxWidth,
                         margin + (labelHeight - RecordFlagBox::iconSize()) / 2, boxWidth,
                         RecordFlagBox::iconSize());
    const int countsWidth = std::min(m_counts->preferredWidth(), width() - 2 * margin);
    m_counts->setGeometry(margin, 2 * margin + labelHeight, std::max(0, countsWidth), labelHeight);
}

void MainViewVideo::resizeEvent(VyResizeEvent*) {
    placeDecorations();
}

VyRect MainViewVideo::offerRect(Offer offer) const {
    if (offer == OfferNone || std::min(width(), height()) < UiLook::scaledY(kMinCellForOffersPx))
        return VyRect();
    const int size = UiLook::scaledY(kOfferIconPx);
    const int gap = UiLook::scaledX(kOfferGapPx);
    const int rowWidth = 3 * size + 2 * gap;
    const int x = (width() - rowWidth) / 2 + int(offer) * (size + gap);
    const int y = height() / 2 + UiLook::scaledY(kStartIconPx) / 2 + gap;
    return VyRect(x, y, size, size);
}

MainViewVideo::Offer MainViewVideo::offerAt(VyPoint pos) const {
    if (channel() == kNoChannel || m_state.camera)
        return OfferNone;
    for (Offer o : {OfferEdit, OfferAdd, OfferPairing}) {
        if (offerRect(o).contains(pos))
            return o;
    }
    return OfferNone;
}

void MainViewVideo::mouseReleaseEvent(VyMouseEvent* e) {
    const Offer o = e->button() == VyMouseEvent::LeftButton ? offerAt(e->pos()) : OfferNone;
    if (o == OfferNone)
        return;
    m_lastOffer = o;
    emitSignal(this, &offerClicked);
}

void MainViewVideo::paintEvent(VyPaintEvent* e) {
    VyCanvas* c = canvas();
    if (c == nullptr)
        return;
    const bool picture = channel() != kNoChannel && m_state.camera;
    if (picture) {
        for (const VyRect& r : e->region().rects())
            clearToVideo(c, r);
    } else {
        c->fillRect(rect(), LiveViewLook::instance().emptyCell);
        if (channel() != kNoChannel) {
            const int size = UiLook::scaledY(kStartIconPx);
            const VyBitmap start = image(kStartPreviewIcon);
            if (!start.isNull())
                c->drawImage(VyRect((width() - size) / 2, (height() - size) / 2, size, size),
                             start);
            for (Offer o : {OfferEdit, OfferAdd, OfferPairing}) {
                const VyRect r = offerRect(o);
                const VyBitmap icon = image(kOfferIcons[o]);
                if (!r.isEmpty() && !icon.isNull())
                    c->drawImage(r, icon);
            }
        }
    }
    c->setPenWidth(m_selected ? 2 * kBorderPx : kBorderPx);
    c->drawRect(rect(), LiveViewLook::opaque(borderColour()));
    c->setPenWidth(1);
}
