#pragma once
// The models' view of the link to App: one-way sends, requests that wait for their reply,
// and the switch to waiter mode. Start-up installs the IPC client behind it; tests install
// a recording double, so routing and parameter logic run without a socket.
#include <cstdint>
#include <vector>

class VyObject;

class RecorderLink {
public:
    virtual ~RecorderLink() = default;

    // Returns the sequence number the message carried.
    virtual uint32_t send(uint16_t mainType, uint16_t subType, const void* body, uint32_t len) = 0;
    // Does not return before the reply arrived; its body replaces `reply`.
    virtual void request(uint16_t mainType, uint16_t subType, const void* body, uint32_t len,
                         std::vector<uint8_t>& reply) = 0;
    // From now on requests wait in a nested event loop instead of blocking the thread.
    virtual void setWaiterMode(bool on) = 0;
    // Every later message from App that answers no request is posted to `receiver` as an
    // IPC event (type 1000); the stage notifications noted so far are forgotten.
    virtual void setEventReceiver(VyObject* receiver) = 0;

    // The process-wide link; null until start-up (or a test) installs one.
    static RecorderLink* instance();
    static void setInstance(RecorderLink* link);

    // Requests now waiting for App (in waiter mode, each in a nested loop of the GUI thread).
    // A window must not delete a page while this is above 0: the page's code that asked may
    // be below on the stack, and would return into a deleted object.
    static int requestsWaiting();

protected:
    // Kept by a link around each request it waits for.
    struct WaitingScope {
        WaitingScope();
        ~WaitingScope();
        WaitingScope(const WaitingScope&) = delete;
        WaitingScope& operator=(const WaitingScope&) = delete;
    };
};
