// Messages becoming toolkit events: the receiver, waiter mode and the remote pointer, with a
// real application object on the in-memory display.
#include "IpcTestPeer.h"
#include "ipc/IpcClient.h"
#include "toolkit/core/EventLoop.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VyScreenCursor.h"
#include "toolkit/core/VySingleShotTimer.h"
#include "toolkit/events/CEvent.h"
#include "toolkit/events/VyMouseEvent.h"
#include "toolkit/events/VyWheelEvent.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <thread>

namespace {

// Checks every IPC event against the order the peer sent, and ends a loop after `expected`.
class IpcReceiver : public VyObject {
    VY_OBJECT(IpcReceiver, VyObject)
public:
    void customEvent(VyEvent* e) override {
        auto* ce = static_cast<CEvent*>(e);
        if (e->type() != UiEventType::IpcMessage || !ce->data()) {
            ++unexpected;
            return;
        }
        IpcMsgHeader h = ipcBlockHeader(ce->data());
        subTypes.push_back(h.SubType);
        cursorShapes.push_back(VyApplication::instance()->screen()->cursor()->shape());
        if (h.msgValue != nextValue || h.dataLen != 4 ||
            std::memcmp(ipcBlockBody(ce->data()), &h.msgValue, 4) != 0)
            ++outOfOrder;
        nextValue = h.msgValue + 1;
        if (++count == expected && loop)
            loop->quit();
    }

    EventLoop* loop = nullptr;
    int expected = -1;
    std::vector<int> cursorShapes; // the cursor's shape when each message arrived
    int count = 0;
    int unexpected = 0;
    int outOfOrder = 0;
    uint32_t nextValue = 0;
    std::vector<uint16_t> subTypes;
};

// Sees the mouse events the application makes of a pointer sample that hits no window.
class MouseSpy : public VyObject {
    VY_OBJECT(MouseSpy, VyObject)
public:
    bool eventFilter(VyObject*, VyEvent* e) override {
        if (e->type() == VyEvent::MouseMove) {
            moves.push_back(static_cast<VyMouseEvent*>(e)->globalPos());
        } else if (e->type() == VyEvent::MouseButtonPress) {
            ++presses;
        } else if (e->type() == VyEvent::Wheel) {
            wheel = static_cast<VyWheelEvent*>(e)->delta();
            loop->quit(); // the last of the sample's events
        }
        return false;
    }
    std::vector<VyPoint> moves;
    int presses = 0;
    int wheel = 0;
    EventLoop* loop = nullptr;
};

std::vector<uint8_t> le32(uint32_t v) {
    return {uint8_t(v), uint8_t(v >> 8), uint8_t(v >> 16), uint8_t(v >> 24)};
}

class IpcClientEvents : public ::testing::Test {
protected:
    void SetUp() override {
        VyApplication::setDisplayDevice("mem:320x240");
        app = std::make_unique<VyApplication>();
        receiver = std::make_unique<IpcReceiver>();
        ASSERT_TRUE(peer.ok());
        IpcClientConfig config;
        config.socketPath = peer.path();
        config.joinableThreads = true;
        ASSERT_TRUE(client.UI_IPC_ClientInit(receiver.get(), config));
        ASSERT_TRUE(peer.accept());
    }
    void TearDown() override {
        client.stop();
        if (peerThread.joinable())
            peerThread.join();
        receiver.reset();
        app.reset();
    }

    std::unique_ptr<VyApplication> app;
    std::unique_ptr<IpcReceiver> receiver;
    IpcTestPeer peer;
    IpcClient client;
    std::thread peerThread;
};

} // namespace

TEST_F(IpcClientEvents, FloodOfNotificationsArrivesCompleteAndInOrder) {
    constexpr uint32_t kCount = 100000;
    EventLoop loop;
    receiver->loop = &loop;
    receiver->expected = int(kCount);
    peerThread = std::thread([this] {
        // Batched writes: App outruns the GUI, so the list backs up.
        std::vector<uint8_t> batch;
        for (uint32_t i = 0; i < kCount; ++i) {
            IpcMsgHeader h;
            h.MainType = 1000;
            h.SubType = 8;
            h.msgValue = i;
            std::vector<uint8_t> frame = IpcTestPeer::frame(h, le32(i));
            batch.insert(batch.end(), frame.begin(), frame.end());
            if (batch.size() > 64 * 1024) {
                if (!peer.writeRaw(batch.data(), batch.size()))
                    return;
                batch.clear();
            }
        }
        peer.writeRaw(batch.data(), batch.size());
    });
    testing::internal::CaptureStderr(); // backlog warnings
    loop.exec();
    testing::internal::GetCapturedStderr();
    EXPECT_EQ(receiver->count, int(kCount));
    EXPECT_EQ(receiver->outOfOrder, 0);
    EXPECT_EQ(receiver->unexpected, 0);
}

TEST_F(IpcClientEvents, WaiterModeRequestLetsOtherEventsFlowWhileItWaits) {
    client.setWaiterMode(true);
    peerThread = std::thread([this] {
        IpcMsgHeader h;
        std::vector<uint8_t> body;
        for (int round = 0; round < 2 && peer.readMessage(h, body); ++round) {
            uint32_t base = uint32_t(round) * 4;
            // Same number, other SubType: an ordinary event, not the reply.
            peer.writeMessage(600, 1, h.seqNumber, base, le32(base));
            for (uint32_t v = base + 1; v < base + 4; ++v)
                peer.writeMessage(1000, 8, 0, v, le32(v));
            peer.writeMessage(h.MainType, h.SubType, h.seqNumber, 0, {uint8_t(10 + round), 2});
        }
    });
    std::vector<uint8_t> out;
    const uint8_t get[12] = {12, 0, 0, 0, 96, 1, 0, 0, 0, 1, 0, 0};
    ASSERT_TRUE(client.request(out, 600, 0, get, sizeof get));
    EXPECT_EQ(out, (std::vector<uint8_t>{10, 2}));
    // Everything sent before the reply was handled inside the request's own loop.
    EXPECT_EQ(receiver->count, 4);

    uint8_t buffer[4] = {0, 0, 0xAA, 0xAA};
    ASSERT_TRUE(client.request(buffer, sizeof buffer, 600, 0, get, sizeof get));
    EXPECT_EQ(buffer[0], 11);
    EXPECT_EQ(buffer[2], 0xAA);
    EXPECT_EQ(receiver->count, 8);
    EXPECT_EQ(receiver->outOfOrder, 0);
    EXPECT_EQ(receiver->subTypes, (std::vector<uint16_t>{1, 8, 8, 8, 1, 8, 8, 8}));
    // The user saw the busy cursor while each request waited, and the arrow after.
    EXPECT_EQ(receiver->cursorShapes, std::vector<int>(8, VyScreenCursor::Busy));
    EXPECT_EQ(app->screen()->cursor()->shape(), VyScreenCursor::Arrow);
}

TEST_F(IpcClientEvents, WaiterModeRequestIsSentAgainAfterAppDropsTheConnection) {
    // App reads the get and goes away before answering; the GUI reconnects, and the get it
    // still waits for must go out again, or the nested loop would wait for ever.
    client.setWaiterMode(true);
    peerThread = std::thread([this] {
        IpcMsgHeader h;
        std::vector<uint8_t> body;
        if (!peer.readMessage(h, body))
            return;
        peer.closeClient();
        if (!peer.accept() || !peer.readMessage(h, body))
            return;
        peer.writeMessage(h.MainType, h.SubType, h.seqNumber, 0, {7, 7});
    });
    testing::internal::CaptureStderr(); // the reconnect's lines
    std::vector<uint8_t> out;
    const uint8_t get[12] = {12, 0, 0, 0, 96, 1, 0, 0, 0, 1, 0, 0};
    const bool answered = client.request(out, 600, 0, get, sizeof get);
    testing::internal::GetCapturedStderr();
    ASSERT_TRUE(answered);
    EXPECT_EQ(out, (std::vector<uint8_t>{7, 7}));
}

TEST_F(IpcClientEvents, WaiterModeRequestGivesUpWhenTheApplicationQuits) {
    // App never answers; the process is told to stop while the request waits.
    client.setWaiterMode(true);
    peerThread = std::thread([this] {
        IpcMsgHeader h;
        std::vector<uint8_t> body;
        peer.readMessage(h, body);
    });
    VySingleShotTimer::singleShot(0, app.get(), VY_SLOT(VyApplication, quit));
    std::vector<uint8_t> out;
    const uint8_t get[12] = {12, 0, 0, 0, 96, 1, 0, 0, 0, 1, 0, 0};
    testing::internal::CaptureStderr();
    EXPECT_FALSE(client.request(out, 600, 0, get, sizeof get));
    EXPECT_NE(testing::internal::GetCapturedStderr().find("not asked again"), std::string::npos);
    EXPECT_TRUE(app->isQuitting());
}

TEST_F(IpcClientEvents, RemotePointerIsScaledToTheScreen) {
    MouseSpy spy;
    EventLoop loop;
    spy.loop = &loop;
    app->installEventFilter(&spy);
    // 1920x1080 reference, (961, 539) -> (160.17, 119.78) on 320x240; wheel -120, left button.
    ASSERT_TRUE(peer.writeMessage(
        1000, 134, 0, 0, {0x80, 0x07, 0x38, 0x04, 0xC1, 0x03, 0x1B, 0x02, 0x88, 0xFF, 0x01}));
    loop.exec();
    app->removeEventFilter(&spy);
    ASSERT_EQ(spy.moves.size(), 1u);
    EXPECT_EQ(spy.moves[0], VyPoint(160, 120));
    EXPECT_EQ(spy.presses, 1);
    EXPECT_EQ(spy.wheel, -120);
    EXPECT_EQ(receiver->count, 0); // never reaches the receiver as a message
}
