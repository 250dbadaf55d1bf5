#pragma once
// The single application object: owns the posted-event queue, the screen, the timer service
// and the worker threads, and runs the GUI thread's event loop. Every event that is not
// sent directly passes through its queue and its one dispatch routine, notify().
#include "runtime/VyList.h"
#include "runtime/VyPoint.h"
#include "runtime/VyString.h"
#include "toolkit/core/VyGuiThreads.h"
#include "toolkit/core/VyObject.h"
#include "toolkit/core/VyPostedEvent.h"
#include "toolkit/core/VyTimerCore.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

class VyDrag;
class VyEvent;
class VyMouseEvent;
class VyObjectGuard;
class VyPostedEventQueue;
class VyRawMouseEvent;
class VyScreen;
class VySingleShotTimer;
class VyTimer;
class VyTimerCore;
class VyTimerEvent;
class VyWidget;

class VyApplication : public VyObject {
    VY_OBJECT(VyApplication, VyObject)
public:
    // Opens the display (setDisplayDevice, else $VY_FBDEV_NODE, else "/dev/fb0") and exits
    // the process with status 1 when it cannot; then creates the mouse reader (through the
    // factory installed with VyMouseReader::setFactory, none without one), gives it the
    // screen as its range and starts it and the timer thread.
    explicit VyApplication(int argc = 0, char** argv = nullptr);
    ~VyApplication() override;

    static VyApplication* instance();
    // Must be called before the application object is made.
    static void setDisplayDevice(const VyString& path);
    static VyString displayDevice();
    // Must be called before the application object is made. With a clock set, the timer
    // core runs on it and no timer thread is started: the caller moves the clock and calls
    // timerCore()->fireExpired(). An empty function restores the monotonic clock and thread.
    static void setTimerClock(VyTimerCore::Clock clock);

    // Runs the loop until quit(). Returns 1 at once when already running: nested loops are
    // EventLoop's job.
    int exec();
    // Ends the main loop and every nested loop running inside it (a dialog waiting for an
    // answer must not keep a process that was told to stop).
    void quit() {
        m_running = false;
        m_quitting = true;
    }
    bool isRunning() const { return m_running; }
    // Set by quit() until the next exec(); nested loops leave while it is set.
    bool isQuitting() const { return m_quitting; }

    // Thread-safe; takes ownership of the event. Without an application the event is
    // dropped.
    static void postEvent(VyObject* receiver, std::unique_ptr<VyEvent> event);
    // Posts every entry in order under one lock of the queue and leaves `entries` empty
    // (its capacity kept). Thread-safe; entries without a receiver are dropped.
    static void postEvents(std::vector<VyPostedEvent>& entries);
    // Synchronous delivery through the application's filters, then the receiver's, then
    // event(); types from 1000 up go straight to customEvent.
    static bool sendEvent(VyObject* receiver, VyEvent* e);
    void removePostedEvents(VyObject* receiver);

    // Takes one event (sleeping while the queue is empty) and dispatches it.
    void processOneEvent();
    // Dispatches what is queued now, without sleeping; returns how many events ran. An
    // event posted while they run waits for the next call, so a 1 ms timer cannot keep it
    // busy forever.
    int processPostedEvents();
    // The one dispatch routine: raw mouse conversion, deferred deletes of widgets, modal and
    // popup redirection, mouse targets, hover and propagation to the parents.
    bool notify(VyObject* receiver, VyEvent* e);

    // Called from ~VyObject: clears every non-owning reference to the dying object.
    void objectDestroyed(VyObject* object);

    VyScreen* screen() const { return m_screen.get(); }
    VyTimerCore* timerCore() const { return m_threads.timerCore.get(); }
    VyPostedEventQueue* postedEvents() const { return m_postedEvents.get(); }
    VySingleShotTimer* singleShotTimer() const { return m_singleShotTimer.get(); }
    // The three application timers of the key and mouse handling.
    const VyList<VyTimer*>& timers() const { return m_timers; }
    // The mouse reader thread made in the constructor, or null.
    VyMouseReader* mouseWatcher() const { return m_threads.mouseWatcher.get(); }

    // The timer service; ids are never 0.
    uint32_t registerTimer(int ms, VyObject* receiver, int repeat);
    bool unregisterTimer(uint32_t id);
    void unregisterTimers(VyObject* receiver);

    // Seconds counted by the application's 1000 ms tick; `secondTick` is emitted after
    // each increment.
    uint32_t seconds() const { return m_seconds; }
    VySignal secondTick;

    // Idle counting: every tick adds one and hands the count to the inactivity triggers
    // (VyMouseTrigger); input sets it back to 0, at most once per wall-clock second.
    int idleCount() const { return m_idleCount; }
    void idleTick();
    // Input arrived (the mouse conversion calls it; the key handling must too).
    void noteInput();

    // Double clicks: a second press of the same button within this time and distance of
    // the first one is delivered as MouseButtonDblClick.
    static constexpr int kDoubleClickIntervalMs = 500;
    static constexpr int kDoubleClickDistance = 4; // pixels on either axis
    // Clocks of the input conversion: monotonic milliseconds for double clicks, wall-clock
    // seconds for the idle reset. Tests pass their own.
    using Clock = std::function<int64_t()>;
    void setInputClocks(Clock monotonicMs, Clock wallSeconds);

    // The cursor shape: the shape of the widget under the pointer, unless an override
    // (busy while a request waits in a nested loop, a drag) is in force. Overrides nest.
    void setOverrideCursor(int shape);
    void restoreOverrideCursor();
    int overrideCursorDepth() const { return static_cast<int>(m_overrideCursors.size()); }
    // Sets the screen cursor to the shape that should show now; force reloads it even when
    // the cursor already has that shape (after a drag drew its own image).
    void updateCursorShape(bool force = false);

    // The drag in progress (VyDrag::start), or null.
    VyDrag* activeDrag() const { return m_drag; }

    // A pointer sample from outside the mouse reader (App's remote pointer): moves the
    // reader's position when there is a reader, so the two never disagree; otherwise moves
    // the cursor and posts the raw sample itself.
    static void injectPointer(int x, int y, uint8_t buttons, int16_t wheel);

    // Widget side: focus, modal stack, hover and hit test.
    VyWidget* focusWidget() const { return m_focusWidget; }
    // The application's focus change; reason 8 never changes anything.
    void setFocusWidget(VyWidget* widget, int reason);
    VyWidget* activeModalWidget() const;
    VyWidget* activePopupWidget() const;
    const VyList<VyWidget*>& modalStack() const { return m_modalStack; }
    void pushModal(VyWidget* window);
    void removeModal(VyWidget* window);
    bool isBlockedByModal(const VyWidget* widget) const;
    VyWidget* hoverWidget() const { return m_hoverWidget; }
    VyPoint lastMousePos() const { return m_lastMousePos; }
    // The topmost shown window containing the screen point, skipping hidden (5) and
    // mouse-transparent (9) windows; null when none.
    VyWidget* topLevelAt(VyPoint global) const;
    // The deepest visible widget under the screen point.
    VyWidget* widgetAt(VyPoint global) const;

protected:
    void timerEvent(VyTimerEvent* e) override;
    // ScreenChange reaches the application's children and every top-level window, which
    // have no parent to pass it on.
    void broadcastEvent(VyEvent* e) override;

private:
    friend class VyObjectGuard;
    friend class VyDrag;
    void addGuard(VyObjectGuard* guard);
    void removeGuard(VyObjectGuard* guard);

    void screenGeometryChanged();
    void handleRawMouse(VyRawMouseEvent* e);
    // The press event type for a press of `button` at `pos`: a double click when it
    // completes one.
    int pressType(int button, VyPoint pos);
    // A drag in progress takes the mouse: true when it consumed the sample.
    bool dragHandlesRawMouse(VyPoint pos, int buttons);
    bool dispatchMouse(VyWidget* receiver, VyMouseEvent* e);
    bool dispatchWheel(VyWidget* receiver, VyEvent* e);
    void updateHover(VyWidget* widget, VyPoint global);
    bool deliverToTarget(VyWidget* target, VyEvent* e, VyPoint global);

    // Members, in the order of their meaning rather than size.
    VyList<VyTimer*> m_timers;
    uint32_t m_tickTimerId = 0;
    VyPoint m_lastMousePos;
    std::unique_ptr<VyScreen> m_screen;
    VyGuiThreads m_threads;
    VyWidget* m_hoverWidget = nullptr;
    // The last entry is the active modal window or popup.
    VyList<VyWidget*> m_modalStack;
    uint32_t m_seconds = 0;
    std::unique_ptr<VyPostedEventQueue> m_postedEvents;
    bool m_running = false;
    bool m_quitting = false;
    // Per mouse button (left, right, middle): the widget that took the press and gets the
    // moves and the release while that button is held.
    VyWidget* m_mouseGrab[3] = {nullptr, nullptr, nullptr};
    VyWidget* m_focusWidget = nullptr;
    // The last raw sample, to turn the next one into press/release/move/wheel.
    VyPoint m_rawPos{-1, -1};
    int m_rawButtons = 0;
    std::unique_ptr<VySingleShotTimer> m_singleShotTimer;
    std::vector<VyObjectGuard*> m_guards;

    int m_idleCount = 0;
    int64_t m_lastResetSecond = -1;
    Clock m_monotonicMs;
    Clock m_wallSeconds;
    // The last press that may start a double click: its button, where and when.
    int m_clickButton = 0;
    VyPoint m_clickPos;
    int64_t m_clickTimeMs = 0;
    std::vector<int> m_overrideCursors;
    VyDrag* m_drag = nullptr;
};
