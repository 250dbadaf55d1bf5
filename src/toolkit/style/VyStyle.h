#pragma once
// The process-wide appearance of the standard controls: one record per control class, read
// from the common style sheet "style/commonstyle.ini" with its widths and fonts scaled to the
// screen, and read again whenever the screen geometry changes. Controls take a copy of
// option() (cheap, shared) and draw from the record of their class and the slot of their
// state. GUI thread only.
#include "runtime/VyBitmap.h"
#include "runtime/VyList.h"
#include "runtime/VyMap.h"
#include "runtime/VyRect.h"
#include "runtime/VySize.h"
#include "runtime/VyString.h"
#include "runtime/VyStringList.h"
#include "toolkit/core/VyObject.h"
#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/style/VyStyleOption.h"

#include <vector>

class VyCanvas;
class VyIniSettings;
class VyScreen;

class VyStyle : public VyObject {
    VY_OBJECT(VyStyle, VyObject)

public:
    static constexpr const char* kCommonStyleFile = "style/commonstyle.ini";
    // Pixel metrics are designed for 1920x1080 and scaled by the screen's factors.
    static constexpr int kDesignFontPixelSize = 17; // pixels at scale 1.0

    enum ArrowDirection { ArrowDown, ArrowUp, ArrowLeft, ArrowRight };

    explicit VyStyle(VyObject* parent = nullptr);
    ~VyStyle() override;

    // The style the standard controls use; created on first use and kept for the whole run.
    static VyStyle* instance();

    const VyStyleOption& option() const { return m_option; }
    void setOption(const VyStyleOption& option) { m_option = option; }

    // Reads the common style sheet below the resources root and applies it with these scale
    // factors. False when the file could not be read (every colour is then unset).
    bool reload(float horizontalScale, float verticalScale);
    bool loadCommonStyle(const VyString& path, float horizontalScale, float verticalScale);
    // Replaces the records with those described by an already read style sheet.
    void apply(const VyIniSettings& settings, float horizontalScale, float verticalScale);

    // Loads the common style at the screen's scale now and again after each geometry change.
    void followScreen(VyScreen* screen);
    VyScreen* followedScreen() const { return m_screen; }

    // A filled arrow triangle in the rectangle, drawn as one line per pixel row (columns for
    // left and right arrows) in one colour (0xAARRGGBB).
    virtual void drawArrow(VyCanvas* canvas, ArrowDirection direction, const VyRect& rect,
                           vyargb colour) const;
    // The lines drawArrow fills, each one pixel thick, in drawing order.
    static VyList<VyRect> arrowSpans(ArrowDirection direction, const VyRect& rect);

    // The bitmap of a fixed image path below the resources root; null when it is missing or
    // unreadable (one log line per path). Decoded once per path and kept, so that reloading
    // the style is cheap.
    VyBitmap image(const VyString& path);
    // The "-max" variant of an image ("images/a-max.png" for "images/a.png") on outputs wider
    // than the design width, when the device ships it; the image itself otherwise.
    VyBitmap imageForScale(const VyString& path, float horizontalScale);

    // Scale factors of the last apply(); control metrics designed for 1920x1080 follow them.
    float horizontalScale() const { return m_horizontalScale; }
    float verticalScale() const { return m_verticalScale; }
    // A design-size metric at the current scale (at least 1 pixel for a positive metric).
    int scaled(int designPixels) const;
    int scaledHeight(int designPixels) const;

    // Per-state colours and fonts: the style's value for the slot, else its Normal value for
    // Hover and Focus, else the built-in default.
    static vyargb color(const VySTOptArray<VySTColor, 8>& row, int slot, vyargb fallback);
    static int fontSize(const VySTOptArray<VySTFont, 8>& row, int slot);

    // Drawing of the standard controls from their class's record and the slot of their state
    // (VyStyleSlot). Rectangles are in the canvas's (the control's) coordinates; nothing is
    // drawn outside them. Texts that do not fit are elided.
    virtual void drawLabel(VyCanvas* canvas, const VyRect& rect, int slot,
                           const VyStringList& lines, int alignment) const;
    // `images` are the button's own normal and hover images (null when it has none).
    virtual void drawPushButton(VyCanvas* canvas, const VyRect& rect, int slot, bool pressed,
                                bool checked, const VyString& text, const VyBitmap& icon,
                                const VyBitmap& image) const;
    virtual void drawCheckBox(VyCanvas* canvas, const VyRect& rect, int slot, bool checked,
                              const VyString& text) const;
    virtual void drawRadioButton(VyCanvas* canvas, const VyRect& rect, int slot, bool checked,
                                 const VyString& text) const;
    virtual void drawGroupBox(VyCanvas* canvas, const VyRect& rect, int slot, const VyString& title,
                              bool checkable, bool checked) const;
    // The height of a group box's title row (its text, and its check box when checkable).
    int groupBoxTitleHeight(bool checkable) const;
    // Positions are pixels from the left of the text area; cursorX < 0 draws no cursor and an
    // empty selection range none.
    struct LineEditText {
        VyString text; // as shown (password echo already applied), scrolled by `scroll`
        VyString placeholder;
        int scroll = 0;
        int cursorX = -1;
        int selectionFromX = 0;
        int selectionToX = 0;
    };
    virtual void drawLineEdit(VyCanvas* canvas, const VyRect& rect, int slot,
                              const LineEditText& content) const;
    // The area inside a line edit's frame where its text goes.
    VyRect lineEditTextRect(const VyRect& rect) const;
    enum SpinPart { SpinNone = 0, SpinUp = 1, SpinDown = 2 };
    virtual void drawSpinBox(VyCanvas* canvas, const VyRect& rect, int slot, const VyString& text,
                             int pressedPart, bool upEnabled, bool downEnabled) const;
    // Which arrow of a spin box lies under a point (SpinNone for the text field).
    int spinBoxPartAt(const VyRect& rect, VyPoint pos) const;
    // Sliders and scroll bars: `handle` is the handle's (slider's) rectangle the control
    // computed from its value with sliderHandleLength / scrollBarSliderRect.
    virtual void drawSlider(VyCanvas* canvas, const VyRect& rect, int slot, bool horizontal,
                            const VyRect& handle) const;
    int sliderHandleLength() const { return scaled(kSliderHandleDesign); }
    virtual void drawScrollBar(VyCanvas* canvas, const VyRect& rect, int slot, bool horizontal,
                               const VyRect& slider) const;
    // `percent` is clamped to 0..100; `text` is drawn centred when not empty.
    virtual void drawProgressBar(VyCanvas* canvas, const VyRect& rect, int percent,
                                 const VyString& text) const;
    virtual void drawToolTip(VyCanvas* canvas, const VyRect& rect, const VyStringList& lines) const;
    // A tool tip's size for these lines.
    VySize toolTipSize(const VyStringList& lines) const;
    int toolTipFontSize() const;

    // Item views: combo boxes and their popups, lists, tables with headers, date and time
    // fields (VyStyleViews.cpp). Rows of every item view share one height.
    int itemHeight() const { return scaledHeight(kItemHeightDesign); }
    // The field of a combo box with its drop-down button at the right.
    virtual void drawComboBox(VyCanvas* canvas, const VyRect& rect, int slot,
                              const VyString& text) const;
    VyRect comboBoxButtonRect(const VyRect& rect) const;
    // The popup's background and border, and one of its rows (`chosen` is the highlighted one).
    virtual void drawComboPopup(VyCanvas* canvas, const VyRect& rect) const;
    virtual void drawComboPopupItem(VyCanvas* canvas, const VyRect& rect, const VyString& text,
                                    bool chosen) const;
    int comboPopupBorderWidth() const;
    // A list or table frame: the border of the Normal or Focus state around the background.
    virtual void drawItemViewFrame(VyCanvas* canvas, const VyRect& rect, bool focused, bool enabled,
                                   bool table) const;
    struct ItemLook {
        VyString text;
        VyBitmap icon;
        int alignment = VyCanvas::AlignLeft | VyCanvas::AlignVCenter;
        bool checkable = false;
        bool checked = false;
        bool selected = false;
        bool current = false; // the row the keys move (outlined while the view has the focus)
        bool focused = false; // the view has the focus
        bool enabled = true;
        vyargb foreground = 0; // 0: the style's
    };
    virtual void drawListItem(VyCanvas* canvas, const VyRect& rect, const ItemLook& item) const;
    // The check box of a list row sits at the row's left, this wide.
    int listCheckWidth() const { return indicatorSize() + 2 * indicatorSpacing(); }
    // One cell of a table; `item.current` outlines it in "VyTableWidget/Cell/Border/Focus".
    virtual void drawTableCell(VyCanvas* canvas, const VyRect& rect, const ItemLook& item) const;
    // A header section; sortOrder 0 draws no indicator, 1 ascending, 2 descending.
    virtual void drawHeaderSection(VyCanvas* canvas, const VyRect& rect, const VyString& text,
                                   int sortOrder, bool horizontal) const;
    // A date or time field: the text with the focused section highlighted (pixel range
    // sectionFromX..sectionToX of the text area, empty for none) and, when `dropDown`, the
    // calendar button.
    virtual void drawDateEdit(VyCanvas* canvas, const VyRect& rect, int slot, const VyString& text,
                              int sectionFromX, int sectionToX, bool dropDown) const;
    VyRect dateEditTextRect(const VyRect& rect, bool dropDown) const;
    VyRect dateEditButtonRect(const VyRect& rect) const;

    // Menus draw on the combo box popup's background and border (drawComboPopup); an item has
    // an optional icon, its text and, for a sub-menu, an arrow at the right.
    virtual void drawMenuItem(VyCanvas* canvas, const VyRect& rect, const VyString& text,
                              const VyBitmap& icon, bool highlighted, bool enabled,
                              bool subMenu) const;
    virtual void drawMenuSeparator(VyCanvas* canvas, const VyRect& rect) const;
    int menuSeparatorHeight() const { return scaledHeight(kMenuSeparatorDesign); }
    // One tab of a tab bar; the bar's base line is drawn by drawTabBarBase.
    virtual void drawTab(VyCanvas* canvas, const VyRect& rect, const VyString& text, bool current,
                         bool focused, bool hovered, bool enabled) const;
    virtual void drawTabBarBase(VyCanvas* canvas, const VyRect& rect) const;

    // Charts (VyStyleCharts.cpp). The chart control works out the geometry: the plot area,
    // where each value tick and category label goes; the style draws it.
    struct ChartAxes {
        VyRect plot;                 // inside the axes
        std::vector<int> tickY;      // value ticks, top to bottom or not
        VyStringList tickLabels;     // one per tick, drawn left of the plot
        std::vector<int> categoryX;  // centre of each category label
        VyStringList categoryLabels; // empty texts are left out
    };
    virtual void drawChartAxes(VyCanvas* canvas, const VyRect& rect, const ChartAxes& axes) const;
    // Series colours repeat after kChartPaletteSize series.
    static constexpr int kChartPaletteSize = 8;
    static vyargb chartSeriesColour(int series);
    virtual void drawChartBar(VyCanvas* canvas, const VyRect& bar, int series) const;
    // A polyline through the points with a small mark on each; fewer than two points draw
    // only the marks.
    virtual void drawChartLine(VyCanvas* canvas, const std::vector<VyPoint>& points,
                               int series) const;
    virtual void drawLegendItem(VyCanvas* canvas, const VyRect& rect, const VyString& text,
                                int series) const;
    int chartFontSize() const;
    // The heat colour of t = 0 (cold, blue) to 1 (hot, red) through cyan, green and
    // yellow; t outside 0..1 is clamped. `alpha` is the colour's alpha.
    static vyargb heatColour(double t, int alpha = 255);
    // A vertical colour scale, hot at the top, with its top and bottom labels beside it.
    virtual void drawColorScale(VyCanvas* canvas, const VyRect& rect, const VyString& high,
                                const VyString& low) const;
    // The width the bar of a colour scale takes in drawColorScale's rectangle.
    int colorScaleBarWidth() const { return scaled(kColorScaleBarDesign); }
    static constexpr int kColorScaleBarDesign = 24;

    // The side of the check box and radio button indicators, and the gap to their text.
    int indicatorSize() const { return scaled(kIndicatorDesign); }
    int indicatorSpacing() const { return scaled(kIndicatorSpacingDesign); }

    static constexpr int kSliderHandleDesign = 20; // pixels at 1920x1080
    static constexpr int kIndicatorDesign = 22;
    static constexpr int kIndicatorSpacingDesign = 8;
    static constexpr int kFieldPaddingDesign = 8;
    static constexpr int kItemHeightDesign = 36;
    static constexpr int kMenuSeparatorDesign = 9;

private:
    template <typename Option>
    void drawIndicatorControl(VyCanvas* canvas, const VyRect& rect, int slot, bool checked,
                              const VyString& text, bool round) const;
    void onScreenGeometryChanged();
    void onScreenDestroyed();

    // The drawn stand-ins for a missing indicator image.
    void drawIndicatorShape(VyCanvas* canvas, const VyRect& box, bool round, bool checked,
                            vyargb border, vyargb mark) const;

    VyStyleOption m_option;
    VyScreen* m_screen = nullptr;
    float m_horizontalScale = 1.0f;
    float m_verticalScale = 1.0f;
    VyMap<VyString, VyBitmap> m_images; // by resolved file path
};
