// The client's receive path on a real socket: framing, broken streams, reconnection. A
// collecting dispatch callback stands in for the application.
#include "IpcTestPeer.h"
#include "ipc/IpcClient.h"

#include <gtest/gtest.h>

#include <condition_variable>
#include <mutex>
#include <random>

namespace {

struct Received {
    IpcMsgHeader header;
    std::vector<uint8_t> body;
};

class Collector {
public:
    static int callback(IpcMsgBlock block, void* self) {
        auto* c = static_cast<Collector*>(self);
        if (!block)
            return -1;
        IpcMsgHeader h = ipcBlockHeader(block.get());
        const uint8_t* body = ipcBlockBody(block.get());
        std::lock_guard<std::mutex> lock(c->m_mutex);
        c->m_messages.push_back({h, std::vector<uint8_t>(body, body + h.dataLen)});
        c->m_cond.notify_all();
        return 0;
    }
    template <typename Pred>
    std::vector<Received> waitUntil(Pred done) {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_cond.wait(lock, [&] { return done(m_messages); });
        return m_messages;
    }
    std::vector<Received> waitFor(size_t n) {
        return waitUntil([n](const std::vector<Received>& m) { return m.size() >= n; });
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_cond;
    std::vector<Received> m_messages;
};

class IpcClientTransport : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(peer.ok());
        IpcClientConfig config;
        config.socketPath = peer.path();
        config.joinableThreads = true;
        config.dispatch = &Collector::callback;
        config.dispatchArg = &collector;
        ASSERT_TRUE(client.UI_IPC_ClientInit(nullptr, config));
        ASSERT_TRUE(peer.accept());
    }
    void TearDown() override { client.stop(); }

    IpcTestPeer peer;
    Collector collector;
    IpcClient client;
};

} // namespace

TEST_F(IpcClientTransport, SendsFramedMessagesNumberedFromOne) {
    const uint8_t hello[8] = {32, 0, 0, 0, 0xD8, 0x91, 0x0A, 0};
    EXPECT_EQ(client.send(1000, 0, hello, sizeof hello), 1u);
    EXPECT_EQ(client.send(1000, 105, nullptr, 0), 2u);

    IpcMsgHeader h;
    std::vector<uint8_t> body;
    ASSERT_TRUE(peer.readMessage(h, body));
    EXPECT_EQ(h.headTag, 1u);
    EXPECT_EQ(h.validFlag, 1);
    EXPECT_EQ(h.reserved6, 1);
    EXPECT_EQ(h.MainType, 1000);
    EXPECT_EQ(h.SubType, 0);
    EXPECT_EQ(h.seqNumber, 1u);
    EXPECT_EQ(body, std::vector<uint8_t>(hello, hello + 8));
    ASSERT_TRUE(peer.readMessage(h, body));
    EXPECT_EQ(h.SubType, 105);
    EXPECT_EQ(h.seqNumber, 2u);
    EXPECT_TRUE(body.empty());
}

TEST_F(IpcClientTransport, InvalidHeaderLeavesItsBodyInTheStream) {
    // The body of the refused header is itself a complete header: the client must read it
    // as the next message.
    IpcMsgHeader inner;
    inner.MainType = 1000;
    inner.SubType = 116;
    inner.msgValue = 7;
    std::vector<uint8_t> innerBytes = IpcTestPeer::frame(inner, {});
    IpcMsgHeader refused;
    refused.validFlag = 0;
    refused.MainType = 600;
    std::vector<uint8_t> bytes = IpcTestPeer::frame(refused, innerBytes);
    ASSERT_TRUE(peer.writeRaw(bytes.data(), bytes.size()));

    std::vector<Received> got = collector.waitFor(1);
    EXPECT_EQ(got[0].header.MainType, 1000);
    EXPECT_EQ(got[0].header.SubType, 116);
    EXPECT_EQ(got[0].header.msgValue, 7u);
}

TEST_F(IpcClientTransport, AbsurdLengthBreaksTheStreamAndTheClientReconnects) {
    testing::internal::CaptureStderr();
    IpcMsgHeader absurd;
    absurd.MainType = 1000;
    absurd.SubType = 8;
    absurd.dataLen = 0xFFFFFFF0u;
    uint8_t raw[kIpcHeaderSize];
    ipcEncodeHeader(absurd, raw);
    ASSERT_TRUE(peer.writeRaw(raw, sizeof raw));

    ASSERT_TRUE(peer.accept()); // the client gave up the stream and came back
    ASSERT_TRUE(peer.writeMessage(1000, 9, 0, 1));
    std::vector<Received> got = collector.waitFor(1);
    std::string log = testing::internal::GetCapturedStderr();
    ASSERT_EQ(got.size(), 1u);
    EXPECT_EQ(got[0].header.SubType, 9);
    EXPECT_NE(log.find("[IPC_UI_QT] func: [ClientStar], , line: ["), std::string::npos);
    EXPECT_NE(log.find("dataLen 4294967280 above limit 16777216"), std::string::npos);
}

// A peer that dies inside a message, or sends noise before dying, costs only what it
// failed to complete; everything complete arrives once and in order.
TEST_F(IpcClientTransport, SurvivesPeerRestartsAndGarbage) {
    ASSERT_TRUE(peer.writeMessage(1000, 10, 0, 1, {1, 2, 3}));
    IpcMsgHeader cut;
    cut.MainType = 1000;
    cut.SubType = 99;
    std::vector<uint8_t> partial = IpcTestPeer::frame(cut, std::vector<uint8_t>(100, 0xAB));
    ASSERT_TRUE(peer.writeRaw(partial.data(), 60)); // header and part of the body
    ASSERT_TRUE(peer.accept());

    ASSERT_TRUE(peer.writeMessage(1000, 11, 0, 2));
    std::mt19937 rng(1234);
    std::vector<uint8_t> noise(4096);
    for (uint8_t& b : noise)
        b = uint8_t(rng());
    ASSERT_TRUE(peer.writeRaw(noise.data(), noise.size()));
    ASSERT_TRUE(peer.accept());

    ASSERT_TRUE(peer.writeMessage(1000, 12, 0, 3, {9}));
    // The noise may decode as a few whole messages before the restart; the messages sent
    // whole before and after it come first and last, once each.
    std::vector<Received> got = collector.waitUntil([](const std::vector<Received>& m) {
        return !m.empty() && m.back().header.SubType == 12 && m.back().header.msgValue == 3;
    });
    ASSERT_GE(got.size(), 3u);
    EXPECT_EQ(got.front().header.SubType, 10);
    EXPECT_EQ(got.front().body, (std::vector<uint8_t>{1, 2, 3}));
    EXPECT_EQ(got[1].header.SubType, 11);
    EXPECT_EQ(got.back().body, std::vector<uint8_t>{9});
    int cutCount = 0;
    for (const Received& r : got)
        cutCount += r.header.SubType == 99;
    EXPECT_EQ(cutCount, 0);
}
