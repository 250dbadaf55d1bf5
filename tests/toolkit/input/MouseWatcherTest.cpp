#include <gtest/gtest.h>

#include <fcntl.h>

#include <random>
#include <thread>
#include <vector>

#include "FakeMouse.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyPostedEventQueue.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VyScreenCursor.h"
#include "toolkit/events/VyRawMouseEvent.h"
#include "toolkit/input/VyMouseWatcher.h"

namespace {

struct Sample {
    int x, y, buttons, wheel;
    bool operator==(const Sample& o) const {
        return x == o.x && y == o.y && buttons == o.buttons && wheel == o.wheel;
    }
};

std::ostream& operator<<(std::ostream& os, const Sample& s) {
    return os << "(" << s.x << ", " << s.y << ", buttons " << s.buttons << ", wheel " << s.wheel
              << ")";
}

// Stands in for the application as the owner of the watcher's raw samples.
class SampleRecorder : public VyObject {
    VY_OBJECT(SampleRecorder, VyObject)
public:
    bool event(VyEvent* e) override {
        if (e->type() != VyEvent::RawMouse)
            return VyObject::event(e);
        auto* raw = static_cast<VyRawMouseEvent*>(e);
        samples.push_back({raw->x(), raw->y(), raw->buttons(), raw->wheel()});
        return true;
    }
    std::vector<Sample> samples;
};

class MouseWatcherTest : public ::testing::Test {
protected:
    void SetUp() override {
        VyApplication::setDisplayDevice("mem:320x240");
        m_app = std::make_unique<VyApplication>();
    }
    void TearDown() override {
        watcher.reset();
        m_app.reset();
    }

    void startWatcher() {
        watcher = std::make_unique<VyMouseWatcher>(&recorder, mouse.device());
        watcher->start();
    }
    // The next sample the watcher posts; the GUI thread sleeps on the queue until then.
    Sample next() {
        const size_t before = recorder.samples.size();
        while (recorder.samples.size() == before)
            m_app->processOneEvent();
        return recorder.samples.back();
    }
    VyApplication* app() const { return m_app.get(); }

    FakeMouse mouse;
    SampleRecorder recorder;
    std::unique_ptr<VyMouseWatcher> watcher;

private:
    std::unique_ptr<VyApplication> m_app;
};

} // namespace

TEST(MouseAcceleration, TableAndFormulaKeepSignsAndSixteenBits) {
    EXPECT_EQ(VyMouseWatcher::shiftForLevel(-1), 14);
    EXPECT_EQ(VyMouseWatcher::shiftForLevel(0), 14);
    EXPECT_EQ(VyMouseWatcher::shiftForLevel(3), 7);
    EXPECT_EQ(VyMouseWatcher::shiftForLevel(9), 1);
    EXPECT_EQ(VyMouseWatcher::shiftForLevel(42), 1);
    EXPECT_EQ(VyMouseWatcher::accelerate(0, 10, 14), 10);
    EXPECT_EQ(VyMouseWatcher::accelerate(0, 10, 1), 60);
    EXPECT_EQ(VyMouseWatcher::accelerate(0, -3, 1), -7);
    EXPECT_EQ(VyMouseWatcher::accelerate(5, 0, 1), 5);
    EXPECT_EQ(VyMouseWatcher::accelerate(0, 127, 32), 127);
    EXPECT_EQ(VyMouseWatcher::accelerate(32767, 1, 14), -32768);
}

TEST_F(MouseWatcherTest, OpensReadWriteAndActivatesTheWheel) {
    startWatcher();
    EXPECT_TRUE(watcher->isDeviceOpen());
    ASSERT_FALSE(mouse.openFlags().empty());
    EXPECT_EQ(mouse.openFlags()[0] & O_ACCMODE, O_RDWR);
    // The watcher wrote before its thread started: the bytes are there.
    EXPECT_EQ(mouse.received(), std::vector<uint8_t>({0xF3, 0xC8, 0xF3, 0x64, 0xF3, 0x50}));
}

TEST_F(MouseWatcherTest, FallsBackToReadOnlyAndWithoutADeviceDoesNothing) {
    mouse.refuseReadWrite(true);
    startWatcher();
    EXPECT_TRUE(watcher->isDeviceOpen());
    EXPECT_EQ(mouse.openFlags().back() & O_ACCMODE, O_RDONLY);
    mouse.sendPacket(0, 3, 0);
    EXPECT_EQ(next(), (Sample{3, 0, 0, 0}));
    watcher.reset();

    mouse.unplug();
    testing::internal::CaptureStdout();
    watcher = std::make_unique<VyMouseWatcher>(&recorder, mouse.device("/dev/nomouse"));
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "Mouse device /dev/nomouse open failed !!!\n");
    EXPECT_FALSE(watcher->isDeviceOpen());
    watcher->start();
    watcher->wait(); // run() returns at once: no mouse, no thread left reading
    EXPECT_EQ(mouse.openFlags().size(), 4u);
}

TEST_F(MouseWatcherTest, PacketsMoveWithAccelerationClampAndCarryButtonsAndWheel) {
    startWatcher();
    mouse.sendPacket(0, 10, 0);
    EXPECT_EQ(next(), (Sample{10, 0, 0, 0}));
    watcher->setAccelerationLevel(9);
    mouse.sendPacket(0, 10, 0);
    EXPECT_EQ(next(), (Sample{70, 0, 0, 0}));
    mouse.sendPacket(0, -3, 0);
    EXPECT_EQ(next(), (Sample{63, 0, 0, 0}));
    watcher->setAccelerationLevel(0);
    watcher->moveTo(100, 100, 0, 0, false);
    EXPECT_EQ(next(), (Sample{100, 100, 0, 0}));
    mouse.sendPacket(0, 0, 5); // the device counts upward
    EXPECT_EQ(next(), (Sample{100, 95, 0, 0}));
    // Past the left edge and the top: held at the minimum.
    mouse.sendPacket(0, -127, 127);
    EXPECT_EQ(next(), (Sample{0, 0, 0, 0}));
    // A click where the pointer already is still is a change.
    mouse.sendPacket(1, 0, 0);
    EXPECT_EQ(next(), (Sample{0, 0, 1, 0}));
    mouse.sendPacket(1, 0, 0, 0xFF);
    EXPECT_EQ(next(), (Sample{0, 0, 1, -120}));
    // Nothing changed: no sample; the one after it comes next.
    mouse.sendPacket(1, 0, 0);
    mouse.sendPacket(0, 0, 0);
    EXPECT_EQ(next(), (Sample{0, 0, 0, 0}));
    // The application set the range from its 320x240 screen.
    watcher->setBounds(0, 0, 319, 239);
    mouse.sendPacket(0, 127, -127);
    mouse.sendPacket(0, 127, -127);
    mouse.sendPacket(0, 127, -127);
    mouse.sendPacket(4, 0, 0);
    while (next().buttons != 4) {
    }
    EXPECT_EQ(recorder.samples.back(), (Sample{319, 239, 4, 0}));
    // The overlay was told before the sample was queued.
    EXPECT_EQ(app()->screen()->cursor()->position(), VyPoint(319, 239));
    // Overflowing packets are dropped whole, and the framing holds after them.
    mouse.send({0x08 | 0x40, 50, 0, 0});
    mouse.sendPacket(0, -1, 0);
    EXPECT_EQ(next(), (Sample{318, 239, 0, 0}));
}

TEST_F(MouseWatcherTest, ALostByteCostsAFewPacketsNotTheRestOfTheStream) {
    startWatcher();
    watcher->moveTo(100, 100, 0, 0, false);
    EXPECT_EQ(next(), (Sample{100, 100, 0, 0}));
    std::vector<uint8_t> bytes;
    for (int i = 0; i < 20; ++i) {
        std::vector<uint8_t> p = FakeMouse::packet(0, i % 2 ? 2 : -2, i % 3 ? 1 : -1);
        if (i == 3)
            p.erase(p.begin() + 1); // a dx byte lost on the line
        bytes.insert(bytes.end(), p.begin(), p.end());
    }
    mouse.send(bytes);
    mouse.sendPacket(1, 0, 0);
    while (next().buttons != 1) {
    }
    // Then a known tail: the pointer must land where these packets put it.
    const VyPoint afterNoise = watcher->position();
    for (int i = 0; i < 10; ++i)
        mouse.sendPacket(1, 3, -2);
    mouse.sendPacket(0, 0, 0);
    while (next().buttons != 0) {
    }
    EXPECT_EQ(watcher->position(), afterNoise + VyPoint(30, 20));
    EXPECT_GT(watcher->skippedBytes(), 0);
    EXPECT_GE(watcher->packetCount(), 20 + 2 + 10 + 1 - 3);
}

TEST_F(MouseWatcherTest, RandomBytesNeverLeaveTheBounds) {
    watcher = std::make_unique<VyMouseWatcher>(&recorder, mouse.device());
    watcher->setBounds(0, 0, 319, 239);
    watcher->start();
    std::mt19937 rng(1234);
    std::vector<uint8_t> noise(20000);
    for (uint8_t& b : noise)
        b = static_cast<uint8_t>(rng());
    mouse.send(noise);
    // A marker that stands out of any state the noise can leave.
    mouse.send({0x08, 0, 0, 0, 0x08, 0, 0, 0});
    mouse.sendPacket(7, 0, 0, 5);
    while (next().wheel != 600) {
    }
    for (const Sample& s : recorder.samples) {
        EXPECT_TRUE(s.x >= 0 && s.x <= 319 && s.y >= 0 && s.y <= 239) << s;
        EXPECT_EQ(s.wheel % 120, 0);
    }
}

TEST_F(MouseWatcherTest, AVanishedDeviceIsLookedForAgainWithoutSpinning) {
    startWatcher();
    watcher->setReopenIntervalMs(5);
    mouse.sendPacket(0, 4, 4);
    EXPECT_EQ(next(), (Sample{4, 0, 0, 0}));
    mouse.unplug();
    // A watcher that kept reading end of file would never come back to open.
    mouse.waitForOpens(4);
    EXPECT_FALSE(watcher->isDeviceOpen());
    EXPECT_EQ(recorder.samples.size(), 1u);
    // Bytes sent before the watcher finds it again wait in the device.
    mouse.plug();
    mouse.sendPacket(0, 1, 0);
    EXPECT_EQ(next(), (Sample{5, 0, 0, 0}));
    EXPECT_TRUE(watcher->isDeviceOpen());
}

TEST_F(MouseWatcherTest, AFloodKeepsTheQueueShortAndEndsInTheLatestState) {
    watcher = std::make_unique<VyMouseWatcher>(&recorder, mouse.device());
    watcher->setBounds(0, 0, 10000, 10000);
    watcher->start();
    constexpr int kSamples = 100000;
    std::thread writer([this] {
        std::vector<uint8_t> bytes;
        bytes.reserve(kSamples * 4);
        for (int i = 0; i < kSamples; ++i) {
            // Moves with a click now and then, which may not be folded into a move.
            const int buttons = (i % 10000) == 5000 ? 1 : 0;
            const std::vector<uint8_t> p = FakeMouse::packet(buttons, i % 2 ? 1 : -1, 0);
            bytes.insert(bytes.end(), p.begin(), p.end());
        }
        mouse.send(bytes);
        mouse.sendPacket(2, 0, 0);
    });
    // The GUI thread is busy elsewhere while the whole flood arrives.
    while (watcher->buttons() != 2)
        std::this_thread::yield();
    writer.join();
    EXPECT_LE(app()->postedEvents()->size(), VyMouseWatcher::kMaxQueuedSamples + 1);
    while (recorder.samples.empty() || recorder.samples.back().buttons != 2)
        app()->processOneEvent();
    EXPECT_EQ(recorder.samples.back(), (Sample{1, 0, 2, 0}));
    EXPECT_LT(recorder.samples.size(), 100u);
    EXPECT_EQ(watcher->packetCount(), kSamples + 1);
}
