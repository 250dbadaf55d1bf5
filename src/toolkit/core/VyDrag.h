#pragma once
// A drag and drop started by a widget (usually from its press or move handler). While it
// is active the pointer carries the drag's image with the drop cursor over it: the widgets
// under the pointer that accept drops (attribute AcceptDrops) receive DragEnter, DragMove
// and DragLeave, and the release drops on the widget that accepted the last DragEnter or
// DragMove. A release over nothing that accepts, or Escape, cancels. `finished` is emitted
// once at the end, accepted or not; result() then tells which.
#include "runtime/VyBitmap.h"
#include "runtime/VyPoint.h"
#include "toolkit/core/VyObject.h"
#include "toolkit/core/VyPointer.h"
#include "toolkit/events/VyMimeData.h"

class VyWidget;

class VyDrag : public VyObject {
    VY_OBJECT(VyDrag, VyObject)
public:
    explicit VyDrag(VyObject* parent = nullptr);
    // Cancels a drag still active.
    ~VyDrag() override;

    void setMimeData(const VyMimeData& data) { m_mimeData = data; }
    const VyMimeData& mimeData() const { return m_mimeData; }
    // The image carried under the cursor; hotspot is the point of it that follows the
    // pointer.
    void setImage(const VyBitmap& image, VyPoint hotspot = VyPoint());

    // Begins the drag at the pointer's position; false when another drag is active or
    // there is no application.
    bool start(int possibleActions);
    bool isActive() const { return m_active; }
    void cancel();

    // After the end: the action the target accepted (a VyDropEvent::DropAction), or
    // IgnoreAction for a cancelled drag.
    int result() const { return m_result; }
    // The widget that now accepts the drop (null over nothing that does).
    VyWidget* target() const { return m_target.data(); }
    bool targetAccepts() const { return m_accepted; }

    VySignal finished;

private:
    friend class VyApplication;
    void pointerMoved(VyPoint global, int buttons);
    void dropAt(VyPoint global);
    void finish(int action);
    // Redraws the cursor: the drag image with the drop cursor or the forbidden shape on top.
    void showCursor(bool accepted);
    VyWidget* dropTargetAt(VyPoint global) const;

    VyMimeData m_mimeData;
    VyBitmap m_image;
    VyPoint m_hotspot;
    int m_possibleActions = 0;
    bool m_active = false;
    int m_result = 0;
    VyPointer<VyWidget> m_target;
    bool m_accepted = false;
    int m_buttons = 0;
    VyPoint m_lastPos{-1, -1};
    // The cursor image composed for the accepted and refused states.
    VyBitmap m_cursorAccepted;
    VyBitmap m_cursorRefused;
    VyPoint m_cursorHotspot;
    VyPoint m_refusedHotspot;
    int m_shownState = -1;
};
