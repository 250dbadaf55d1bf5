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
#include "runtime/VyString.h"
#include "toolkit/core/VyObject.h"
#include "toolkit/style/VyStyleOption.h"

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
    // unreadable. Decoded once per path and kept, so that reloading the style is cheap.
    VyBitmap image(const VyString& path);

private:
    void onScreenGeometryChanged();
    void onScreenDestroyed();

    VyStyleOption m_option;
    VyScreen* m_screen = nullptr;
    VyMap<VyString, VyBitmap> m_images;
};
