// A parameter get in waiter mode runs the event loop while it waits: what the loop does
// meanwhile (here, a window deleting itself) must leave the caller standing.
#include "ipc/IpcClient.h"
#include "ipc/IpcTestPeer.h"
#include "model/IpcRecorderLink.h"
#include "model/ParamAccess.h"
#include "model/RecorderLink.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyPointer.h"
#include "toolkit/core/VyWidget.h"
#include "toolkit/events/VyEvent.h"

#include <gtest/gtest.h>

#include <memory>
#include <thread>

namespace {

constexpr int kCloseYourself = VyEvent::User + 7;

// Deletes itself, signals blocked, when told to.
class SelfClosingWindow : public VyWidget {
    VY_OBJECT(SelfClosingWindow, VyWidget)
public:
    void customEvent(VyEvent* e) override {
        if (e->type() != kCloseYourself)
            return;
        blockSignals(true);
        delete this;
    }
};

class Sink : public VyObject {
    VY_OBJECT(Sink, VyObject)
};

} // namespace

TEST(ParamAccessWaiter, AWindowDeletedWhileAGetWaitsIsSurvived) {
    VyApplication::setDisplayDevice("mem:320x240");
    auto app = std::make_unique<VyApplication>();
    Sink sink;
    IpcTestPeer peer;
    ASSERT_TRUE(peer.ok());
    IpcClient client;
    IpcClientConfig config;
    config.socketPath = peer.path();
    config.joinableThreads = true;
    ASSERT_TRUE(client.UI_IPC_ClientInit(&sink, config));
    ASSERT_TRUE(peer.accept());
    client.setWaiterMode(true);
    IpcRecorderLink link(client);
    RecorderLink* previous = RecorderLink::instance();
    RecorderLink::setInstance(&link);

    std::thread answer([&peer] {
        IpcMsgHeader h;
        std::vector<uint8_t> body;
        if (peer.readMessage(h, body))
            peer.writeMessage(h.MainType, h.SubType, h.seqNumber, 0, {1, 2, 3, 4});
    });
    auto* window = new SelfClosingWindow;
    window->show();
    VyPointer<VyWidget> guard(window);
    // Queued ahead of the reply, so the wait's own loop delivers it.
    VyApplication::postEvent(window, std::make_unique<VyEvent>(kCloseYourself));
    uint8_t buffer[6];
    ParamAccess::getParam(40, buffer, sizeof buffer);
    answer.join();

    EXPECT_TRUE(guard.isNull());
    const uint8_t expected[6] = {1, 2, 3, 4, 0, 0};
    EXPECT_EQ(0, std::memcmp(buffer, expected, sizeof buffer));
    // The application goes on: painting and dispatch do not trip over the dead window.
    app->processPostedEvents();
    RecorderLink::setInstance(previous);
    client.stop();
}
