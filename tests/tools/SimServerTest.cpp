// The simulator's transport against the real client and against a raw, misbehaving one.
#include "SimServer.h"
#include "ipc/IpcClient.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

class SimServerTest : public ::testing::Test {
protected:
    void SetUp() override {
        char dir[] = "/tmp/sim-test-XXXXXX";
        ASSERT_TRUE(::mkdtemp(dir));
        m_dir = dir;
        path = m_dir + "/IPC_UI";
        server.addHandler(600, 0, [](SimServer& s, const SimMessage& m) {
            if (m.body.size() != 12)
                return false;
            std::vector<uint8_t> record(64, m.body[0]);
            return s.reply(m, record.data(), uint32_t(record.size()));
        });
        ASSERT_TRUE(server.listen(path));
        ASSERT_TRUE(server.start());
    }
    void TearDown() override {
        server.stop();
        ::rmdir(m_dir.c_str());
    }

    // A client that writes whatever bytes a test gives it.
    int connectRaw() {
        int fd = ::socket(AF_UNIX, SOCK_STREAM, 0);
        sockaddr_un addr{};
        addr.sun_family = AF_UNIX;
        std::strncpy(addr.sun_path, path.c_str(), sizeof addr.sun_path - 1);
        EXPECT_EQ(::connect(fd, reinterpret_cast<sockaddr*>(&addr), sizeof addr), 0);
        return fd;
    }
    static void writeHeader(int fd, IpcMsgHeader h, const std::vector<uint8_t>& body) {
        std::vector<uint8_t> bytes(kIpcHeaderSize + body.size());
        h.dataLen = uint32_t(body.size());
        ipcEncodeHeader(h, bytes.data());
        std::copy(body.begin(), body.end(), bytes.begin() + kIpcHeaderSize);
        ASSERT_EQ(::write(fd, bytes.data(), bytes.size()), ssize_t(bytes.size()));
    }
    // The next message's header from the server, or a zeroed one when the server closed.
    static IpcMsgHeader readReply(int fd, std::vector<uint8_t>& body) {
        uint8_t raw[kIpcHeaderSize];
        if (::recv(fd, raw, sizeof raw, MSG_WAITALL) != ssize_t(sizeof raw))
            return IpcMsgHeader{0, 0, 0, 0, 0, 0, 0, 0};
        IpcMsgHeader h = ipcDecodeHeader(raw);
        body.resize(h.dataLen);
        if (h.dataLen)
            ::recv(fd, body.data(), h.dataLen, MSG_WAITALL);
        return h;
    }

    std::string path;
    SimServer server;

private:
    std::string m_dir;
};

} // namespace

TEST_F(SimServerTest, AnswersTheClientsRequestsAndNotifiesIt) {
    IpcClient client;
    IpcClientConfig config;
    config.socketPath = path;
    config.joinableThreads = true;
    ASSERT_TRUE(client.UI_IPC_ClientInit(nullptr, config));
    ASSERT_TRUE(server.waitForClient());

    testing::internal::CaptureStdout();
    const uint8_t get[12] = {21, 0, 0, 0, 64, 0, 0, 0, 0, 1, 0, 0};
    std::vector<uint8_t> record;
    ASSERT_TRUE(client.request(record, 600, 0, get, sizeof get));
    ASSERT_TRUE(server.notify(1000, 1, 5));
    EXPECT_TRUE(client.waitForStage(1));
    std::string log = testing::internal::GetCapturedStdout();

    EXPECT_EQ(record, std::vector<uint8_t>(64, 21));
    EXPECT_NE(log.find("sim <- (600,0) seq=1 len=12\nsim -> (600,0) seq=1 len=64\n"),
              std::string::npos)
        << log;
    EXPECT_NE(log.find("sim -> (1000,1) value=5 len=0\n"), std::string::npos) << log;
    client.stop();
}

TEST_F(SimServerTest, RefusesMalformedRequestsAndKeepsServing) {
    testing::internal::CaptureStdout();
    int fd = connectRaw();
    IpcMsgHeader h;
    h.MainType = 600;
    h.validFlag = 0; // skipped, header only
    h.seqNumber = 1;
    writeHeader(fd, h, {});
    h.validFlag = 1;
    h.seqNumber = 2;
    writeHeader(fd, h, {1, 2, 3, 4, 5}); // the handler wants 12 bytes
    h.seqNumber = 3;
    writeHeader(fd, h, std::vector<uint8_t>(12, 7));
    std::vector<uint8_t> body;
    IpcMsgHeader reply = readReply(fd, body);
    EXPECT_EQ(reply.seqNumber, 3u);
    EXPECT_EQ(body, std::vector<uint8_t>(64, 7));

    // A length no request can have: the stream is dropped, the next GUI is served.
    h.seqNumber = 4;
    h.dataLen = 0x7FFFFFFF;
    uint8_t raw[kIpcHeaderSize];
    ipcEncodeHeader(h, raw);
    ASSERT_EQ(::write(fd, raw, sizeof raw), ssize_t(sizeof raw));
    EXPECT_EQ(readReply(fd, body).seqNumber, 0u); // closed without an answer
    ::close(fd);

    fd = connectRaw();
    h.seqNumber = 5;
    writeHeader(fd, h, std::vector<uint8_t>(12, 9));
    EXPECT_EQ(readReply(fd, body).seqNumber, 5u);
    ::close(fd);
    std::string log = testing::internal::GetCapturedStdout();
    EXPECT_NE(log.find("sim: refused malformed header (600,0) seq=1: validFlag 0"),
              std::string::npos)
        << log;
    EXPECT_NE(log.find("sim: refused malformed request (600,0) seq=2 len=5"), std::string::npos);
    EXPECT_NE(log.find("sim: refused malformed header (600,0) seq=4: dataLen 2147483647 above"),
              std::string::npos);
    EXPECT_EQ(log.find("seq=4 len="), std::string::npos);
}
