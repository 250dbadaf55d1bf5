// The simulator's live view on a raw client socket: the roster and channel states it
// answers, alarms raised from its console, the preview record it keeps, and the pictures it
// draws into the video plane.
#include "SimLiveView.h"
#include "SimRecorder.h"
#include "SimServer.h"
#include "SimVideoPlane.h"
#include "ipc/IpcMsgBlock.h"
#include "protocol/ChannelStateNotice.h"
#include "protocol/DeviceState.h"
#include "protocol/DualTalkNotice.h"
#include "protocol/PreviewControl.h"
#include "protocol/PreviewRecord.h"
#include "protocol/PreviewZoom.h"
#include "protocol/TurnPageNotice.h"

#include <gtest/gtest.h>

#include <cstring>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

class SimLiveViewTest : public ::testing::Test {
protected:
    void SetUp() override {
        char dir[] = "/tmp/sim-live-XXXXXX";
        ASSERT_TRUE(::mkdtemp(dir));
        m_dir = dir;
        SimRecorderConfig config;
        config.channels = 4;
        config.channelNames[0] = "GATE";
        recorder = std::make_unique<SimRecorder>(config);
        recorder->attach(server);
        live = std::make_unique<SimLiveView>(*recorder, config);
        live->attach(server);
        ASSERT_TRUE(server.listen(m_dir + "/IPC_UI"));
        ASSERT_TRUE(server.start());
        fd = ::socket(AF_UNIX, SOCK_STREAM, 0);
        sockaddr_un addr{};
        addr.sun_family = AF_UNIX;
        std::strncpy(addr.sun_path, (m_dir + "/IPC_UI").c_str(), sizeof addr.sun_path - 1);
        ASSERT_EQ(::connect(fd, reinterpret_cast<sockaddr*>(&addr), sizeof addr), 0);
        ASSERT_TRUE(server.waitForClient());
    }
    void TearDown() override {
        ::close(fd);
        server.stop();
        live.reset();
        ::rmdir(m_dir.c_str());
    }
    void send(uint16_t main, uint16_t sub, const std::vector<uint8_t>& body) {
        IpcMsgHeader h{1, 1, 1, main, sub, uint32_t(body.size()), 7, 0};
        std::vector<uint8_t> bytes(kIpcHeaderSize + body.size());
        ipcEncodeHeader(h, bytes.data());
        std::copy(body.begin(), body.end(), bytes.begin() + kIpcHeaderSize);
        ASSERT_EQ(::write(fd, bytes.data(), bytes.size()), ssize_t(bytes.size()));
    }
    IpcMsgHeader receive(std::vector<uint8_t>& body) {
        uint8_t raw[kIpcHeaderSize];
        if (::recv(fd, raw, sizeof raw, MSG_WAITALL) != ssize_t(sizeof raw))
            return IpcMsgHeader{};
        const IpcMsgHeader h = ipcDecodeHeader(raw);
        body.resize(h.dataLen);
        if (h.dataLen)
            ::recv(fd, body.data(), h.dataLen, MSG_WAITALL);
        return h;
    }

    SimServer server;
    std::unique_ptr<SimRecorder> recorder;
    std::unique_ptr<SimLiveView> live;
    int fd = -1;

private:
    std::string m_dir;
};

} // namespace

TEST_F(SimLiveViewTest, AnswersTheRosterThenEveryChannelAndFollowsTheConsole) {
    testing::internal::CaptureStdout();
    send(1000, 298, {});
    std::vector<uint8_t> body;
    IpcMsgHeader h = receive(body);
    ASSERT_EQ(h.SubType, 298);
    ASSERT_EQ(body.size(), 8u);
    EXPECT_EQ(body[0], 0x3); // four channels: all but the last two have a camera
    for (int ch = 0; ch < 4; ++ch) {
        h = receive(body);
        ASSERT_EQ(h.SubType, 8);
        const auto n = ChannelStateNotice::decode(body.data(), uint32_t(body.size()));
        ASSERT_TRUE(n.has_value());
        EXPECT_EQ(n->channel, ch);
        EXPECT_EQ(n->nameText(), ch == 0 ? "GATE" : "CAMERA " + std::to_string(ch + 1));
    }
    h = receive(body);
    EXPECT_EQ(h.SubType, 10);

    EXPECT_TRUE(live->runCommand({"alarm", "2", "motion", "on"}));
    h = receive(body);
    const auto n = ChannelStateNotice::decode(body.data(), uint32_t(body.size()));
    ASSERT_TRUE(n.has_value());
    EXPECT_EQ(n->channel, 1);
    EXPECT_EQ(n->flags, ChannelStateNotice::kCamera | ChannelStateNotice::kMotion);
    EXPECT_TRUE(live->runCommand({"usb", "1"}));
    h = receive(body);
    EXPECT_EQ(h.msgValue, DeviceState::kUsbStick);
    // Channels count from 1 and stop at the channel count; unknown words are not ours.
    EXPECT_FALSE(live->runCommand({"alarm", "5", "motion", "on"}));
    EXPECT_FALSE(live->runCommand({"alarm", "1", "smoke", "on"}));
    EXPECT_FALSE(live->runCommand({"record", "0", "on"}));
    EXPECT_FALSE(live->runCommand({"fly", "1"}));
    testing::internal::GetCapturedStdout();
}

TEST_F(SimLiveViewTest, AnswersTalkBackKeepsTheZoomAndTurnsPagesFromTheConsole) {
    testing::internal::CaptureStdout();
    const auto talk = [&](uint8_t action) {
        PreviewControl c;
        c.command = PreviewControl::kTalkBack;
        c.channel = 2;
        c.action = action;
        std::vector<uint8_t> body(PreviewControl::kSize);
        c.encode(body.data());
        send(100, 20, body);
        std::vector<uint8_t> reply;
        const IpcMsgHeader h = receive(reply);
        EXPECT_EQ(h.SubType, 43);
        return DualTalkNotice::decode(h.msgValue);
    };
    EXPECT_EQ(talk(PreviewControl::kOn).state, DualTalkNotice::kTalking);
    EXPECT_EQ(talk(PreviewControl::kOn).channel, 2);
    EXPECT_TRUE(live->runCommand({"talk", "busy"}));
    EXPECT_EQ(talk(PreviewControl::kOn).state, DualTalkNotice::kBusy);
    EXPECT_EQ(talk(PreviewControl::kOff).state, DualTalkNotice::kIdle);

    PreviewZoom z;
    z.channel = 1;
    z.left = 2500;
    z.right = 7500;
    z.top = 0;
    z.bottom = 5000;
    std::vector<uint8_t> body(PreviewZoom::kSize);
    z.encode(body.data());
    send(100, 22, body);
    body[8] = 0; // right 0: before the left edge, refused
    body[9] = 0;
    send(100, 22, body);
    talk(PreviewControl::kOff); // answered after the two above were taken
    EXPECT_EQ(live->zoom(1).left, 2500);
    EXPECT_EQ(live->zoom(1).bottom, 5000);

    EXPECT_TRUE(live->runCommand({"page", "3"}));
    std::vector<uint8_t> reply;
    const IpcMsgHeader h = receive(reply);
    EXPECT_EQ(h.SubType, 170);
    EXPECT_EQ(TurnPageNotice::decode(h.msgValue).operation, TurnPageNotice::kGoto);
    EXPECT_EQ(TurnPageNotice::decode(h.msgValue).page, 2);
    EXPECT_FALSE(live->runCommand({"page", "0"}));
    EXPECT_FALSE(live->runCommand({"talk", "maybe"}));
    testing::internal::GetCapturedStdout();
}

TEST_F(SimLiveViewTest, KeepsThePreviewRecordAndRefusesAShortOne) {
    testing::internal::CaptureStdout();
    PreviewRecord r;
    r.layoutId = 1;
    r.cellCount = 4;
    r.outputWidth = 1920;
    r.outputHeight = 1080;
    r.cells[3].channel = 3;
    r.cells[3].right = 1919;
    std::vector<uint8_t> bytes(PreviewRecord::kSize);
    r.encode(bytes.data());
    send(100, 1, bytes);
    send(100, 0, std::vector<uint8_t>(100, 0));
    recorder->awaitMessages(100, 0, 1);
    EXPECT_EQ(live->previewCount(), 1);
    EXPECT_EQ(live->lastPreview().cells[3].channel, 3);
    EXPECT_EQ(live->lastPreview().cells[3].right, 1919);
    testing::internal::GetCapturedStdout();
}

TEST(SimVideoPlane, DrawsPicturesAndNoVideoCardsInsideTheirCellsOnly) {
    constexpr int kW = 320, kH = 180;
    PreviewRecord r;
    r.cellCount = 2;
    r.cells[0] = {0, 1, 0, 0, 0, 0, 159, 179};
    r.cells[1] = {1, 1, 0, 0, 160, 0, 239, 89};
    std::vector<SimVideoCell> channels = {{true, "A", PreviewZoom{}}, {false, "B", PreviewZoom{}}};
    std::vector<uint16_t> px(size_t(kW) * kH, 0xFFFF);
    SimVideoPlane::drawFrame(r, channels, 3, "12:00:00", px.data(), kW, kH);
    auto at = [&](int x, int y) { return px[size_t(y) * kW + size_t(x)]; };
    EXPECT_NE(at(5, 5), 0);
    EXPECT_EQ(at(165, 5), SimVideoPlane::rgb(24, 24, 28)); // the no-video card's ground
    EXPECT_EQ(at(300, 150), 0);                            // outside every cell
    EXPECT_EQ(at(200, 120), 0);
    // A cell beyond the plane is cut, not written past the end.
    r.cells[1] = {0, 1, 0, 0, 200, 100, 5000, 5000};
    SimVideoPlane::drawFrame(r, channels, 3, "12:00:00", px.data(), kW, kH);
    EXPECT_NE(at(319, 179), 0);
}

TEST(SimVideoPlane, AZoomedCellShowsItsPartScaledUp) {
    constexpr int kW = 200, kH = 100;
    std::vector<uint16_t> px(size_t(kW) * kH);
    for (int y = 0; y < kH; ++y)
        for (int x = 0; x < kW; ++x)
            px[size_t(y) * kW + size_t(x)] = uint16_t(y * 256 + x);
    const std::vector<uint16_t> before = px;
    PreviewZoom z; // the lower-right quarter of the cell at 100..199 x 0..99
    z.left = 5000;
    z.top = 5000;
    SimVideoPlane::zoomCell(px.data(), kW, kH, 100, 0, 199, 99, z);
    auto was = [&](int x, int y) { return before[size_t(y) * kW + size_t(x)]; };
    auto at = [&](int x, int y) { return px[size_t(y) * kW + size_t(x)]; };
    EXPECT_EQ(at(100, 0), was(150, 50));
    EXPECT_EQ(at(199, 99), was(199, 99));
    EXPECT_EQ(at(120, 40), was(160, 70));
    EXPECT_EQ(at(99, 50), was(99, 50)); // the neighbour is left alone
}
