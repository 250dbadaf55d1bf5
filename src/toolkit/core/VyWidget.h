#pragma once
// The base of every visible element. A widget has a rectangle in its parent (a top-level
// window: on the screen), 32 attribute flags, a window type, a focus policy, size limits and
// an optional layout, and turns events into calls of its virtual handlers. Top-level
// windows paint into a window surface that the screen owns and composes.
#include "runtime/VyPoint.h"
#include "runtime/VyRect.h"
#include "runtime/VyRegion.h"
#include "runtime/VySize.h"
#include "toolkit/core/VyObject.h"

#include <cstdint>

class VyCanvas;
class VyCloseEvent;
class VyDragEnterEvent;
class VyDragLeaveEvent;
class VyDragMoveEvent;
class VyDropEvent;
class VyFocusEvent;
class VyHideEvent;
class VyHoverEvent;
class VyKeyEvent;
class VyLayout;
class VyMouseEvent;
class VyPaintEvent;
class VyResizeEvent;
class VyShowEvent;
class VyWheelEvent;
class VyWindowSurface;

class VyWidget : public VyObject {
    VY_OBJECT(VyWidget, VyObject)
public:
    // Attribute numbers with a meaning in the toolkit; the others are free for controls.
    enum Attribute {
        RefusesFocus = 0,
        MouseTracking = 2, // moves without a pressed button are delivered
        Visible = 4,
        Hidden = 5,              // left out of the hit test and of composition
        TransparentForMouse = 9, // left out of the hit test
        SurfaceCreated = 10,
        ExcludedFromScreen = 14, // left out of composition
        Modal = 18,
        AcceptDrops = 21, // a drop target: receives the drag events of a VyDrag
    };
    static constexpr int kAttributeCount = 32;

    // Bit 0 marks every top-level window.
    enum WindowType : uint8_t { Widget = 0, Window = 1, Dialog = 3, Popup = 5 };

    enum FocusPolicy {
        NoFocus = 0,
        KeyFocus = 1,   // keys and programmatic moves only
        ClickFocus = 2, // the bit that makes a mouse press take focus
        StrongFocus = 3,
    };

    // The value that means "no limit" in either direction.
    static constexpr int kMaxSize = 16777215;
    // A style font size that forces the style option to be read again.
    static constexpr int kStyleReloadSentinel = -123;

    // A widget without parent is a top-level window; so is one whose window type has bit 0.
    explicit VyWidget(VyWidget* parent = nullptr, int windowType = Widget);
    ~VyWidget() override;

    bool isWidgetType() const override { return true; }
    // Types 2 to 31 go to the handlers below; ScreenChange also drops the style cache and
    // reaches the children; everything else goes to VyObject::event.
    bool event(VyEvent* e) override;

    // The ten widget operations, between the object's and the handlers.
    virtual void setVisible(bool visible);
    virtual VySize sizeHint() const;
    virtual VySize minimumSizeHint() const;
    virtual bool hasHeightForWidth() const { return false; }
    virtual int heightForWidth(int width) const;
    // Tells the parent's layout that the hints changed.
    virtual void updateGeometry();
    // Key navigation hook: true when the widget moved the focus itself.
    virtual bool focusNextPrevChild(bool next);
    virtual bool acceptsFocus() const;
    // Whether a point in widget coordinates belongs to the widget (round or holed shapes).
    virtual bool hitTest(VyPoint pos) const;
    // Called after the style option cache was dropped (screen change, style reload).
    virtual void styleChanged() {}

    // The 22 event handlers; empty unless noted.
    virtual void paintEvent(VyPaintEvent* e);
    // The focus for a ClickFocus widget is taken before this runs.
    virtual void mousePressEvent(VyMouseEvent* e);
    virtual void mouseReleaseEvent(VyMouseEvent* e);
    virtual void mouseDoubleClickEvent(VyMouseEvent* e);
    virtual void mouseMoveEvent(VyMouseEvent* e);
    virtual void wheelEvent(VyWheelEvent* e);
    virtual void keyPressEvent(VyKeyEvent* e);
    virtual void keyReleaseEvent(VyKeyEvent* e);
    virtual void enterEvent(VyEvent* e);
    virtual void leaveEvent(VyEvent* e);
    virtual void focusInEvent(VyFocusEvent* e);
    virtual void focusOutEvent(VyFocusEvent* e);
    virtual void showEvent(VyShowEvent* e);
    virtual void hideEvent(VyHideEvent* e);
    virtual void resizeEvent(VyResizeEvent* e);
    virtual void hoverEnterEvent(VyHoverEvent* e);
    virtual void hoverLeaveEvent(VyHoverEvent* e);
    // Arrives accepted; a handler that calls ignore() keeps the window open.
    virtual void closeEvent(VyCloseEvent* e);
    virtual void dropEvent(VyDropEvent* e);
    virtual void dragMoveEvent(VyDragMoveEvent* e);
    virtual void dragEnterEvent(VyDragEnterEvent* e);
    virtual void dragLeaveEvent(VyDragLeaveEvent* e);

    // Visibility.
    void show();
    void hide();
    // Sends Close; unless the handler ignored it, the widget is hidden. Returns whether it
    // closed.
    bool close();
    bool isVisible() const { return testAttribute(Visible); }
    // A disabled widget takes no focus and its controls ignore input and draw their Disabled
    // state; disabling a parent disables its whole tree. Disabling drops the focus.
    void setEnabled(bool enabled);
    bool isEnabled() const;
    // Visible together with every ancestor up to its window.
    bool isVisibleOnScreen() const;
    void raise();

    // Attributes.
    void setAttribute(int attribute, bool on = true);
    bool testAttribute(int attribute) const;

    // Window type and tree.
    int windowType() const { return m_windowType; }
    bool isWindow() const { return (m_windowType & Window) != 0; }
    bool isPopup() const { return m_windowType == Popup; }
    VyWidget* window() const;
    VyWidget* parentWidget() const;
    VyWindowSurface* surface() const { return m_surface; }

    // Geometry: in the parent, a top-level window's on the screen.
    const VyRect& geometry() const { return m_geometry; }
    VySize size() const { return m_size; }
    int width() const { return m_size.width; }
    int height() const { return m_size.height; }
    VyRect rect() const { return VyRect(0, 0, m_size.width, m_size.height); }
    // Does nothing when all four edges stay; otherwise stores them, keeps the window
    // surface in step and sends Resize to a visible widget whose size changed.
    void setGeometry(const VyRect& rect);
    void setGeometry(int x, int y, int w, int h) { setGeometry(VyRect(x, y, w, h)); }
    void move(int x, int y) { setGeometry(VyRect(x, y, m_size.width, m_size.height)); }
    void resize(int w, int h) { setGeometry(VyRect(m_geometry.left, m_geometry.top, w, h)); }
    VyPoint mapToGlobal(VyPoint pos) const;
    VyPoint mapFromGlobal(VyPoint pos) const;
    // From this widget's coordinates to its window's.
    VyPoint mapToWindow(VyPoint pos) const;
    // The deepest visible descendant under a point in this widget's coordinates, or this
    // widget itself when no child contains it; null when the point is outside.
    VyWidget* childAt(VyPoint pos);

    // Size limits.
    VySize minimumSize() const { return m_minimumSize; }
    VySize maximumSize() const { return m_maximumSize; }
    void setMinimumSize(int w, int h);
    void setMinimumSize(VySize s) { setMinimumSize(s.width, s.height); }
    void setMaximumSize(int w, int h);
    void setMaximumSize(VySize s) { setMaximumSize(s.width, s.height); }
    void setFixedSize(int w, int h);

    // Layout.
    void setLayout(VyLayout* layout);
    VyLayout* layout() const { return m_layout; }

    // Focus.
    int focusPolicy() const { return m_focusPolicy; }
    void setFocusPolicy(int policy) { m_focusPolicy = policy; }
    bool tracksFocus() const { return m_tracksFocus; }
    void setTracksFocus(bool on) { m_tracksFocus = on; }
    void setFocus(int reason = 7);
    void clearFocus();
    bool hasFocus() const;
    // The widget of this window that last took focus (top-level windows only).
    VyWidget* focusChild() const { return m_focusChild; }
    bool isBlockedByModal() const;

    // Painting: marks the region (widget coordinates; the whole widget without one) dirty
    // on the screen, which paints and flushes it on its next UpdateRequest.
    void update();
    void update(const VyRegion& region);
    void update(const VyRect& rect) { update(VyRegion(rect)); }
    // The canvas of the window surface, set up for the widget being painted (origin at its
    // top-left, clipped to its visible part). Only valid inside paintEvent.
    VyCanvas* canvas() const;
    // Called by the screen for a dirty window before it composes: sends Paint events down
    // the window's tree, each with its own copy of the region in its own coordinates.
    static void paintWindow(VyWindowSurface* surface, const VyRegion& region);

    // The cursor shape (a VyScreenCursor::Shape) shown while the pointer is over the widget;
    // a widget without one of its own shows its parent's, a window without one the arrow.
    void setCursorShape(int shape);
    void unsetCursorShape();
    bool hasCursorShape() const { return m_cursorShape >= 0; }
    int cursorShape() const;

    // The widget's kind for the key navigation: a widget of kind 2 (a panel, a tab page)
    // keeps the arrow keys' focus search inside itself; kind 3 does so for Down and Left
    // when no kind-2 ancestor exists. 0 for everything else.
    enum WidgetKind { OrdinaryKind = 0, NavigationArea = 2, DownLeftArea = 3 };
    int widgetKind() const { return m_widgetKind; }
    void setWidgetKind(int kind) { m_widgetKind = uint8_t(kind); }

    int styleFontSize() const { return m_styleFontSize; }
    void setStyleFontSize(int size) { m_styleFontSize = size; }
    void invalidateStyle();

private:
    friend class VyLayout;
    void clearLayout() { m_layout = nullptr; }
    void focusChildDestroyed();
    void watchFocusChild(VyWidget* child);
    void paintTree(VyCanvas* canvas, const VyRegion& region, VyPoint offset, const VyRect& clip);
    void syncSurfaceFlags();
    void requestParentLayout();
    bool sizeHelper(int& w, int& h, bool minimum);

    VyRect m_geometry;
    VySize m_size{0, 0};
    uint8_t m_windowType = Widget;
    uint32_t m_attributes = 0;
    bool m_tracksFocus = true;
    bool m_enabled = true;
    int m_focusPolicy = NoFocus;
    VyWidget* m_focusChild = nullptr;
    // Owned by the screen; created on the first show of a top-level window.
    VyWindowSurface* m_surface = nullptr;
    VySize m_minimumSize{0, 0};
    VySize m_maximumSize{kMaxSize, kMaxSize};
    // A child object once set (the layout is deleted with the widget).
    VyLayout* m_layout = nullptr;
    int m_styleFontSize = kStyleReloadSentinel;
    int m_cursorShape = -1; // -1: the parent's
    uint8_t m_widgetKind = OrdinaryKind;
};
