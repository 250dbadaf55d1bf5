// Blocking requests and stage waits on a real socket, as start-up uses them (no
// application object, no event receiver).
#include "IpcTestPeer.h"
#include "ipc/IpcClient.h"

#include <gtest/gtest.h>

#include <thread>

namespace {

class IpcClientRequest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(peer.ok());
        IpcClientConfig config;
        config.socketPath = peer.path();
        config.joinableThreads = true;
        ASSERT_TRUE(client.UI_IPC_ClientInit(nullptr, config));
        ASSERT_TRUE(peer.accept());
    }
    void TearDown() override {
        client.stop(); // ends the peer's reads too
        if (peerThread.joinable())
            peerThread.join();
    }
    void waitForNotedStages(int n) {
        while (client.notedStageCount() != n)
            std::this_thread::yield();
    }

    IpcTestPeer peer;
    IpcClient client;
    std::thread peerThread;
};

} // namespace

TEST_F(IpcClientRequest, ReplyWithOtherTypesIsNotTakenAndTheRequestIsSentAgain) {
    client.setResendIntervalMs(20);
    peerThread = std::thread([this] {
        IpcMsgHeader h;
        std::vector<uint8_t> body;
        if (!peer.readMessage(h, body))
            return;
        // Right number, wrong SubType: must not end the wait.
        peer.writeMessage(600, 1, h.seqNumber, 0, {0xEE});
        // Only a re-send gets the real answer. Every re-send is answered: on a loaded
        // machine the client may send again before this thread gets to the first one, and
        // then only the newest number ends its wait.
        while (peer.readMessage(h, body))
            peer.writeMessage(600, 0, h.seqNumber, 0, {1, 2, 3, 4});
    });
    const uint8_t get[12] = {21, 0, 0, 0, 168, 0, 0, 0, 0, 1, 0, 0};
    testing::internal::CaptureStdout();
    IpcMsgBlock reply = client.blockingRequest(600, 0, nullptr, 0, get, sizeof get);
    std::string out = testing::internal::GetCapturedStdout();
    ASSERT_TRUE(reply);
    IpcMsgHeader h = ipcBlockHeader(reply.get());
    EXPECT_EQ(h.SubType, 0);
    EXPECT_GE(h.seqNumber, 2u);
    ASSERT_EQ(h.dataLen, 4u);
    EXPECT_EQ(ipcBlockBody(reply.get())[3], 4);
    EXPECT_NE(out.find("[GUI]: BlockWaiting data timeout(MainType:600, SubType:0, seqNumber:1), "
                       "request again, new seqNumber:2 .\n"),
              std::string::npos)
        << out;
}

TEST_F(IpcClientRequest, OutBufferGetsTheBodyAndKeepsWhatTheReplyDoesNotCover) {
    peerThread = std::thread([this] {
        IpcMsgHeader h;
        std::vector<uint8_t> body;
        if (peer.readMessage(h, body))
            peer.writeMessage(1000, 104, h.seqNumber, 0, {7, 0, 0, 0});
    });
    uint8_t out[8] = {0, 0, 0, 0, 0x55, 0x55, 0x55, 0x55};
    EXPECT_FALSE(client.blockingRequest(1000, 104, out, sizeof out, nullptr, 0));
    const uint8_t expected[8] = {7, 0, 0, 0, 0x55, 0x55, 0x55, 0x55};
    EXPECT_EQ(0, std::memcmp(out, expected, sizeof out));
}

TEST_F(IpcClientRequest, StageThatArrivesBeforeItsWaitIsKept) {
    ASSERT_TRUE(peer.writeMessage(1000, 1, 0, 0));
    waitForNotedStages(1);
    EXPECT_TRUE(client.waitForStage(1));
    EXPECT_EQ(client.notedStageCount(), 0);

    // And a wait that begins first is woken by the stage when it comes.
    peerThread = std::thread([this] { peer.writeMessage(1000, 3, 0, 0); });
    EXPECT_TRUE(client.waitForStage(3));
}

TEST_F(IpcClientRequest, StageDuringABlockingRequestWithoutReceiverIsDropped) {
    peerThread = std::thread([this] {
        IpcMsgHeader h;
        std::vector<uint8_t> body;
        if (!peer.readMessage(h, body))
            return;
        peer.writeMessage(1000, 3, 0, 0);
        peer.writeMessage(h.MainType, h.SubType, h.seqNumber, 0, {1});
    });
    EXPECT_TRUE(client.blockingRequest(1000, 33, nullptr, 0, nullptr, 0));
    EXPECT_EQ(client.notedStageCount(), 0);
    peerThread.join();

    // Later stages are noted again, and the dropped one is not among them.
    ASSERT_TRUE(peer.writeMessage(1000, 1, 0, 0));
    EXPECT_TRUE(client.waitForStage(1));
    EXPECT_EQ(client.notedStageCount(), 0);
}
