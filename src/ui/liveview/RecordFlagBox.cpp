#include "ui/liveview/RecordFlagBox.h"

#include "protocol/ChannelStateNotice.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/events/VyPaintEvent.h"
#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/style/VyStyle.h"
#include "ui/UiLook.h"
#include "ui/liveview/Video.h"

namespace {

constexpr int kDesignIconPx = 24; // the flag icons at 1920x1080
constexpr int kGapPx = 2;

struct FlagIcon {
    const char* path;
    uint32_t flag;
};

// Shown from the right edge inwards in this order: recording first, so it never moves.
const FlagIcon kIcons[RecordFlagBox::kIconCount] = {
    {"images/recording.png", ChannelStateNotice::kRecording},
    {"images/motion-alarm.png", ChannelStateNotice::kMotion},
    {"images/io-alarm.png", ChannelStateNotice::kSensor},
    {"images/pir-alarm.png", ChannelStateNotice::kPir},
    {"images/intelligent-alarm.png", ChannelStateNotice::kAnalytics},
    {"images/intelligent-alarm-re.png", ChannelStateNotice::kAnalyticsRe},
};

uint32_t shownBits() {
    uint32_t all = 0;
    for (const FlagIcon& i : kIcons)
        all |= i.flag;
    return all;
}

} // namespace

RecordFlagBox::RecordFlagBox(VyWidget* parent)
    : VyWidget(parent) {
    setAttribute(TransparentForMouse);
}

const char* RecordFlagBox::iconPath(int i) {
    return i >= 0 && i < kIconCount ? kIcons[i].path : "";
}

uint32_t RecordFlagBox::iconFlag(int i) {
    return i >= 0 && i < kIconCount ? kIcons[i].flag : 0;
}

int RecordFlagBox::iconSize() {
    return UiLook::scaledY(kDesignIconPx);
}

int RecordFlagBox::boxWidth() {
    return kIconCount * (iconSize() + UiLook::scaledX(kGapPx));
}

void RecordFlagBox::setFlags(uint32_t flags) {
    flags &= shownBits();
    if (flags == m_flags)
        return;
    m_flags = flags;
    update();
}

int RecordFlagBox::shownCount() const {
    int n = 0;
    for (const FlagIcon& i : kIcons)
        n += (m_flags & i.flag) != 0;
    return n;
}

void RecordFlagBox::paintEvent(VyPaintEvent*) {
    VyCanvas* c = canvas();
    if (c == nullptr)
        return;
    // The cell beneath has already painted this region (transparent over its picture, the
    // label where it reaches): only the icons are added.
    VyApplication* app = VyApplication::instance();
    const float scale = app && app->screen() ? app->screen()->horizontalScale() : 1.0f;
    const int size = iconSize();
    const int step = size + UiLook::scaledX(kGapPx);
    int x = width() - size;
    for (const FlagIcon& icon : kIcons) {
        if ((m_flags & icon.flag) == 0)
            continue;
        const VyBitmap image = VyStyle::instance()->imageForScale(VyString(icon.path), scale);
        if (!image.isNull())
            c->drawImage(VyRect(x, (height() - size) / 2, size, size), image);
        x -= step;
    }
}
