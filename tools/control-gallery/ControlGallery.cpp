#include "ControlGallery.h"

#include <algorithm>
#include <functional>
#include <string>

#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/style/VyStyle.h"
#include "toolkit/style/VyStyleDefaults.h"
#include "toolkit/style/VyStyleSlot.h"
#include "toolkit/style/VyTextLayout.h"
#include "toolkit/widgets/ProxyButton.h"
#include "toolkit/widgets/VyCheckBox.h"
#include "toolkit/widgets/VyGroupBox.h"
#include "toolkit/widgets/VyLabel.h"
#include "toolkit/widgets/VyLineEdit.h"
#include "toolkit/widgets/VyProgressBar.h"
#include "toolkit/widgets/VyPushButton.h"
#include "toolkit/widgets/VyRadioButton.h"
#include "toolkit/widgets/VyScrollBar.h"
#include "toolkit/widgets/VySlider.h"
#include "toolkit/widgets/VySpinBox.h"

namespace {

// Design metrics of the page (pixels at 1920x1080).
constexpr int kMargin = 40;
constexpr int kNameWidth = 190;
constexpr int kColumnLeft = kMargin + kNameWidth;
constexpr int kColumnStep = 275;
constexpr int kCellWidth = 245;
constexpr int kHeaderTop = 90;
constexpr int kFirstRowTop = 140;
constexpr int kRowStep = 58;
constexpr int kCellHeight = 40;

// One cell of the state matrix: the style draws a control's look for one state.
class StyleCell : public VyWidget {
    VY_OBJECT(StyleCell, VyWidget)
public:
    using Draw = std::function<void(VyCanvas*, const VyRect&)>;
    StyleCell(VyWidget* parent, Draw draw)
        : VyWidget(parent)
        , m_draw(std::move(draw)) {}

protected:
    void paintEvent(VyPaintEvent*) override { m_draw(canvas(), rect()); }

private:
    Draw m_draw;
};

struct Column {
    const char* title;
    int slot;
    bool on; // checked, pressed or, for the group box, ticked
};

const Column kColumns[] = {
    {"Normal", VyStyleNormal, false}, {"Hover", VyStyleHover, false},
    {"Focus", VyStyleFocus, false},   {"Disabled", VyStyleDisabled, false},
    {"On", VyStyleNormal, true},      {"On, disabled", VyStyleDisabled, true},
};

} // namespace

ControlGallery::ControlGallery(int screenWidth, int screenHeight)
    : VyWidget(nullptr)
    , m_hScale(static_cast<float>(screenWidth) / 1920.0f)
    , m_vScale(static_cast<float>(screenHeight) / 1080.0f) {
    setObjectName("ControlGallery");
    setGeometry(0, 0, screenWidth, screenHeight);
    buildStateMatrix();
    buildLiveRow();
}

namespace {

void showTree(VyWidget* w) {
    w->show();
    for (VyObject* child : w->children())
        if (child->isWidgetType())
            showTree(static_cast<VyWidget*>(child));
}

} // namespace

void ControlGallery::showPage() {
    showTree(this);
    m_focusedEdit->setFocus();
}

int ControlGallery::sx(int designX) const {
    return static_cast<int>(static_cast<float>(designX) * m_hScale);
}

int ControlGallery::sy(int designY) const {
    return static_cast<int>(static_cast<float>(designY) * m_vScale);
}

void ControlGallery::paintEvent(VyPaintEvent*) {
    // The window behind the controls; a dialog's background on the device.
    canvas()->fillRect(rect(), VyStyleDefaults::kControlDisabled);
}

void ControlGallery::buildStateMatrix() {
    VyStyle* style = VyStyle::instance();
    auto* title = new VyLabel("Standard controls in every state", this);
    title->setGeometry(sx(kMargin), sy(30), sx(900), sy(40));
    for (int c = 0; c < 6; ++c) {
        auto* head = new VyLabel(kColumns[c].title, this);
        head->setAlignment(VyCanvas::AlignHCenter | VyCanvas::AlignVCenter);
        head->setGeometry(sx(kColumnLeft + c * kColumnStep), sy(kHeaderTop), sx(kCellWidth),
                          sy(kCellHeight));
    }
    using DrawState = std::function<void(VyCanvas*, const VyRect&, int slot, bool on)>;
    struct Row {
        const char* name;
        DrawState draw;
        bool hasOn;
    };
    const Row rows[] = {
        {"VyPushButton",
         [style](VyCanvas* c, const VyRect& r, int slot, bool on) {
             style->drawPushButton(c, r, slot, on, false, "Record", VyBitmap(), VyBitmap());
         },
         true},
        {"VyCheckBox",
         [style](VyCanvas* c, const VyRect& r, int slot, bool on) {
             style->drawCheckBox(c, r, slot, on, "Motion alarm");
         },
         true},
        {"VyRadioButton",
         [style](VyCanvas* c, const VyRect& r, int slot, bool on) {
             style->drawRadioButton(c, r, slot, on, "Main stream");
         },
         true},
        {"VyGroupBox",
         [style](VyCanvas* c, const VyRect& r, int slot, bool on) {
             style->drawGroupBox(c, r, slot, "Schedule", true, on);
         },
         true},
        {"VyLineEdit",
         [style](VyCanvas* c, const VyRect& r, int slot, bool) {
             VyStyle::LineEditText t;
             t.text = "192.168.1.64";
             if (slot == VyStyleFocus)
                 t.cursorX = VyTextLayout::width(
                     t.text, VyStyle::fontSize(style->option().get<VyLineEditOption>().font, slot));
             style->drawLineEdit(c, r, slot, t);
         },
         false},
        {"VySpinBox",
         [style](VyCanvas* c, const VyRect& r, int slot, bool) {
             style->drawSpinBox(c, r, slot, "25 fps", VyStyle::SpinNone, true, true);
         },
         false},
        {"VySlider",
         [style](VyCanvas* c, const VyRect& r, int slot, bool) {
             const int len = std::min(style->sliderHandleLength(), r.height());
             const int x = r.left + (r.width() - len) * 3 / 5;
             style->drawSlider(c, r, slot, true,
                               VyRect(x, r.top + (r.height() - len) / 2, len, len));
         },
         false},
        {"VyScrollBar",
         [style](VyCanvas* c, const VyRect& r, int slot, bool) {
             const int t = std::max(1, style->scaled(VyScrollBar::kDesignThickness));
             const VyRect bar(r.left, r.top + (r.height() - t) / 2, r.width(), t);
             style->drawScrollBar(c, bar, slot, true,
                                  VyRect(bar.left + bar.width() / 4, bar.top, bar.width() / 3, t));
         },
         false},
        {"VyProgressBar",
         [style](VyCanvas* c, const VyRect& r, int, bool) {
             style->drawProgressBar(
                 c, VyRect(r.left, r.top + r.height() / 4, r.width(), r.height() / 2), 62, "62%");
         },
         false},
        {"VyLabel",
         [style](VyCanvas* c, const VyRect& r, int slot, bool) {
             VyStringList lines;
             lines.append("Channel 1 - Front door");
             style->drawLabel(c, r, slot, lines, VyCanvas::AlignLeft | VyCanvas::AlignVCenter);
         },
         false},
        {"VyToolTip",
         [style](VyCanvas* c, const VyRect& r, int, bool) {
             VyStringList lines;
             lines.append("Start recording");
             const VySize s = style->toolTipSize(lines);
             style->drawToolTip(c,
                                VyRect(r.left, r.top, std::min(s.width, r.width()),
                                       std::min(s.height, r.height())),
                                lines);
         },
         false},
    };
    int top = kFirstRowTop;
    for (const Row& row : rows) {
        auto* name = new VyLabel(row.name, this);
        name->setGeometry(sx(kMargin), sy(top), sx(kNameWidth - 10), sy(kCellHeight));
        for (int c = 0; c < 6; ++c) {
            const Column& col = kColumns[c];
            if (col.on && !row.hasOn)
                continue;
            const DrawState draw = row.draw;
            const int slot = col.slot;
            const bool on = col.on;
            // The tool tip has one look; show it once.
            if (std::string(row.name) == "VyToolTip" && c > 0)
                continue;
            auto* cell = new StyleCell(this, [draw, slot, on](VyCanvas* canvas, const VyRect& r) {
                draw(canvas, r, slot, on);
            });
            cell->setGeometry(sx(kColumnLeft + c * kColumnStep), sy(top), sx(kCellWidth),
                              sy(kCellHeight));
        }
        top += kRowStep;
    }
}

void ControlGallery::buildLiveRow() {
    const int top = kFirstRowTop + 11 * kRowStep + 10;
    auto* head = new VyLabel("Live controls", this);
    head->setGeometry(sx(kMargin), sy(top), sx(kNameWidth), sy(kCellHeight));

    auto* box = new VyGroupBox("Network", this);
    box->setCheckable(true);
    box->setGeometry(sx(kColumnLeft), sy(top), sx(520), sy(230));
    auto* address = new VyLineEdit(box);
    address->setValidator(VyValidator::IPv4Address);
    address->setText("192.168.1.64");
    address->setSelection(8, 4);
    address->setGeometry(sx(20), sy(40), sx(300), sy(kCellHeight));
    m_focusedEdit = address;
    auto* password = new VyLineEdit(box);
    password->setEchoMode(VyLineEdit::Password);
    password->setText("admin123");
    password->setGeometry(sx(20), sy(90), sx(300), sy(kCellHeight));
    auto* mail = new VyLineEdit(box);
    mail->setValidator(VyValidator::EmailAddress);
    mail->setPlaceholderText("name@example.com");
    mail->setGeometry(sx(20), sy(140), sx(300), sy(kCellHeight));
    auto* port = new VySpinBox(box);
    port->setRange(1, 65535);
    port->setValue(8000);
    port->setPrefix("Port ");
    port->setGeometry(sx(340), sy(40), sx(160), sy(kCellHeight));
    auto* dhcp = new VyCheckBox("DHCP", box);
    dhcp->setChecked(true);
    dhcp->setGeometry(sx(340), sy(90), sx(160), sy(kCellHeight));
    auto* apply = new VyPushButton("Apply", box);
    apply->setGeometry(sx(340), sy(140), sx(160), sy(kCellHeight));

    const int x2 = kColumnLeft + 560;
    auto* main = new VyRadioButton("Main stream", this);
    main->setChecked(true);
    main->setGeometry(sx(x2), sy(top + 10), sx(240), sy(kCellHeight));
    auto* sub = new VyRadioButton("Sub stream", this);
    sub->setGeometry(sx(x2), sy(top + 60), sx(240), sy(kCellHeight));
    auto* volume = new VySlider(this);
    volume->setRange(0, 100);
    volume->setValue(35);
    volume->setGeometry(sx(x2), sy(top + 115), sx(240), sy(kCellHeight));
    auto* progress = new VyProgressBar(this);
    progress->setValue(48);
    progress->setGeometry(sx(x2), sy(top + 170), sx(240), sy(24));

    const int x3 = x2 + 290;
    auto* wrapped = new VyLabel("Recording continues while the disk has room; the oldest "
                                "footage is overwritten when it is full.",
                                this);
    wrapped->setWordWrap(true);
    wrapped->setAlignment(VyCanvas::AlignLeft | VyCanvas::AlignTop);
    wrapped->setGeometry(sx(x3), sy(top + 10), sx(360), sy(100));
    auto* elided = new VyLabel("A label far too long for its box is elided at the end", this);
    elided->setGeometry(sx(x3), sy(top + 120), sx(360), sy(kCellHeight));
    auto* proxy = new ProxyButton(this);
    proxy->setText("Playback");
    proxy->setGeometry(sx(x3), sy(top + 170), sx(170), sy(kCellHeight));
    auto* disabled = new VyPushButton("Format disk", this);
    disabled->setEnabled(false);
    disabled->setGeometry(sx(x3 + 190), sy(top + 170), sx(170), sy(kCellHeight));

    auto* scroll = new VyScrollBar(VyAbstractSlider::Vertical, this);
    scroll->setRange(0, 90);
    scroll->setPageStep(30);
    scroll->setValue(30);
    scroll->setGeometry(sx(x3 + 400), sy(top + 10), sx(VyScrollBar::kDesignThickness), sy(200));
}
