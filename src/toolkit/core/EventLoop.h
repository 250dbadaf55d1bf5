#pragma once
// A nested event loop for the GUI thread: exec() keeps dispatching the application's posted
// events (timers included, as they arrive as events) until quit() is called, typically from
// a slot or handler running inside it. It runs whether or not VyApplication::exec does.
#include "toolkit/core/VyObject.h"

class EventLoop : public VyObject {
    VY_OBJECT(EventLoop, VyObject)
public:
    explicit EventLoop(VyObject* parent = nullptr);

    // Returns 0 after quit(); 1 at once when this loop is already running.
    int exec();
    // The loop ends after the event now being handled.
    void quit() { m_running = false; }
    bool isRunning() const { return m_running; }

private:
    bool m_running = false;
};
