#pragma once
// The software mouse cursor: an image drawn straight into the framebuffer over whatever
// the last flush left there, with the covered pixels saved beneath it so that moving or
// hiding the cursor puts them back exactly.
//
// Locks: the screen's framebuffer mutex first, then the cursor's own mutex. The mouse
// thread moves the cursor (setPosition); the GUI thread flushes, which restores the saved
// pixels before it writes and saves and draws again afterwards.
#include <cstdint>
#include <mutex>
#include <utility>
#include <vector>

#include "runtime/VyBitmap.h"
#include "runtime/VyGlobal.h"
#include "runtime/VyPoint.h"
#include "runtime/VyRect.h"
#include "runtime/VyString.h"
#include "toolkit/core/VyMouseTrigger.h"

class VyScreen;

// An inactivity trigger too: it hides itself after kHideAfterIdleTicks application ticks
// without input, so that it does not sit over live video, and shows again on the next
// input.
class VyScreenCursor : public VyMouseTrigger {
public:
    enum Shape {
        Arrow,
        UpArrow,
        Cross,
        Wait,
        IBeam,
        SizeVer,
        SizeHor,
        VSplit,
        HSplit,
        Hand,
        Forbidden,
        WhatsThis,
        Busy,
        OpenHand,
        CloseHand,
        ShapeCount
    };

    // Outputs at least this wide (right edge minus left edge) use the "-max" images and
    // doubled hotspots.
    static constexpr int kLargeScreenSpan = 1920; // pixels
    // Images used as they are, whatever the output's size: drag and drop's drop cursor and
    // the playback view's open hand.
    static constexpr const char* kDropImage = "cursor-image/cursor-drop.png";
    static constexpr const char* kOpenHandImage = "cursor-image/cursor-openhand.png";
    // Idle ticks (seconds) without input before the cursor hides.
    static constexpr int kHideAfterIdleTicks = 10;

    explicit VyScreenCursor(VyScreen* screen);
    ~VyScreenCursor() override;
    VY_DISABLE_COPY_MOVE(VyScreenCursor)

    // The shape's name ("arrow", "cursor-hand", ...); null for an unknown number.
    static const char* shapeName(int shape);
    // The image's resource path ("cursor-image/cursor-hand-max.png") and the hotspot in
    // image pixels, for a drawing area whose right minus left edge is span.
    static VyString imageName(int shape, int span);
    static VyPoint hotspot(int shape, int span);

    // Loads the shape's image; false (and a log line) when it cannot be read, in which
    // case the cursor draws nothing until another shape loads.
    bool setShape(int shape);
    int shape() const;
    // Uses a caller's image instead of a shape's (drag and drop).
    void setImage(const VyBitmap& image, VyPoint hotspot);

    // The pointer position (the hotspot lands on it). Any thread.
    void setPosition(int x, int y);
    VyPoint position() const;

    void show();
    void hide();
    bool isShown() const;
    // A key press hides the cursor; the next mouse move brings it back, whatever the idle
    // count says. GUI thread.
    void hideUntilMouseMoves();
    void mouseMoved();
    bool isHiddenUntilMouseMoves() const { return m_hiddenForKeys; }
    // The rectangle the image covers on screen now (unclipped), empty with no image.
    VyRect area() const;
    // The drawing area's right edge minus its left edge, which picks the image size.
    int span() const;

    void onActivity() override { show(); }
    void onIdleTimeout() override { hide(); }

private:
    friend class VyScreen;
    // Called by the screen with its framebuffer mutex held.
    void restoreLocked();
    void saveAndDrawLocked();
    // Takes the framebuffer base, pitch and size from the screen again; after a reopen
    // also reloads the shape when the output crossed the large-screen width.
    void reinitialiseLocked();
    // The framebuffer area the overlay has written since the last call (restores and
    // draws), for outputs that must be told what changed; empty when nothing was.
    VyRect takeTouchedArea();
    // Under m_mutex: true once per batch of touches, when the screen should hear of them.
    bool touchNeedsNotice();
    // Runs `change` under the framebuffer mutex and m_mutex; when it returns true, tells the
    // screen of the touched area once both locks are released.
    template <typename Change>
    void changeUnderLocks(Change change);
    // Under m_mutex: saves what the image covers and draws it, when shown on a mapping.
    void redrawIfShown();

    void restore();
    // Saves what the image covers at topLeft and draws the image there.
    void saveAndDraw(VyPoint topLeft);
    void prepareSaveUnder();
    bool wholeOnScreen(VyPoint topLeft) const;
    // Moves the drawn image to `to` in one pass when neither place is clipped and the two
    // do not overlap; false (nothing done) otherwise.
    bool jumpWhole(VyPoint to);
    void jumpRuns(uint16_t* oldLine, uint16_t* newLine, size_t pitch, uint16_t* saved,
                  const uint16_t* ink) const;
    // The image as framebuffer pixels and, per row, its runs of drawn pixels.
    void prepareInk();
    VyRect clippedArea(VyPoint topLeft) const;
    bool loadShape(int shape);

    VyScreen* m_screen;
    bool m_hiddenForKeys = false; // GUI thread only
    // Guards everything below; taken after the screen's framebuffer mutex.
    mutable std::mutex m_mutex;
    uint8_t* m_base = nullptr;
    int m_lineLength = 0;
    int m_screenWidth = 0;
    int m_screenHeight = 0;
    int m_span = 0;
    int m_shape = Arrow;
    VyBitmap m_image;
    VyPoint m_hotspot;
    VyPoint m_position;
    VyPoint m_savedAt;
    bool m_saved = false;
    bool m_shown = true;
    VyRect m_touched;
    bool m_touchNoticed = false;
    std::vector<uint16_t> m_ink;
    std::vector<std::pair<int, int>> m_runs; // first column, length
    std::vector<int> m_rowRuns;              // row y's runs: [m_rowRuns[y], m_rowRuns[y + 1])
    bool m_opaque = false;                   // one run of the whole width on every row
    std::vector<uint16_t> m_saveUnder;
    int m_saveWidth = 0;
    int m_saveHeight = 0;
};
