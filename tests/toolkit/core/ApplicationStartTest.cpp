#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyMouseReader.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/events/VyEvent.h"

#include <gtest/gtest.h>

#include <condition_variable>
#include <cstdlib>
#include <mutex>
#include <string>
#include <unistd.h>

namespace {

// A mouse reader that notes what the application did with it.
class RecordingReader : public VyMouseReader {
public:
    explicit RecordingReader(VyObject* owner)
        : owner(owner) {}
    ~RecordingReader() override { wait(); }
    void setBounds(int minX, int minY, int maxX, int maxY) override {
        bounds = VyRect::fromEdges(minX, minY, maxX, maxY);
        boundsBeforeStart = !isRunning();
    }
    void moveTo(int, int, int, int, bool) override {}
    void run() override {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_ran = true;
        m_ranCond.notify_all();
    }
    void waitUntilRun() {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_ranCond.wait(lock, [this] { return m_ran; });
    }

    VyObject* owner;
    VyRect bounds;
    bool boundsBeforeStart = false;

private:
    std::mutex m_mutex;
    std::condition_variable m_ranCond;
    bool m_ran = false;
};

RecordingReader* g_made = nullptr;

std::unique_ptr<VyMouseReader> makeRecordingReader(VyObject* owner) {
    auto reader = std::make_unique<RecordingReader>(owner);
    g_made = reader.get();
    return reader;
}

} // namespace

TEST(ApplicationStart, UnopenableDisplayExitsWithStatusOneAndSaysWhatToSet) {
    EXPECT_EXIT(
        {
            dup2(STDERR_FILENO, STDOUT_FILENO); // the message goes to standard output
            VyApplication::setDisplayDevice("nonsense:0x0");
            VyApplication app;
        },
        testing::ExitedWithCode(1),
        "\\[GUI-FRAMEWORK\\]: open \\(nonsense:0x0\\) failed, set \"VY_FBDEV_NODE\" env or call "
        "VyApplication::setDisplayDevice\\(\\) !!!");
}

TEST(ApplicationStart, EnvironmentChoosesTheDeviceWhenNoneWasSet) {
    VyApplication::setDisplayDevice(VyString());
    setenv("VY_FBDEV_NODE", "mem:64x48", 1);
    {
        VyApplication app;
        ASSERT_NE(app.screen(), nullptr);
        EXPECT_EQ(app.screen()->width(), 64);
        EXPECT_EQ(app.screen()->height(), 48);
        EXPECT_EQ(VyApplication::instance(), &app);
        VyApplication::postEvent(&app,
                                 std::make_unique<VyEvent>(VyEvent::Show)); // left undelivered
        testing::internal::CaptureStdout();
    }
    std::string out = testing::internal::GetCapturedStdout();
    EXPECT_NE(out.find("All events in the list was distroyed !\n"), std::string::npos);
    unsetenv("VY_FBDEV_NODE");
    EXPECT_EQ(VyApplication::instance(), nullptr);
}

TEST(ApplicationStart, MakesTheMouseReaderOverTheScreenAndStartsIt) {
    VyApplication::setDisplayDevice("mem:64x48");
    {
        VyApplication withoutFactory;
        EXPECT_EQ(withoutFactory.mouseWatcher(), nullptr);
    }
    VyMouseReader::setFactory(&makeRecordingReader);
    {
        VyApplication app;
        ASSERT_NE(g_made, nullptr);
        EXPECT_EQ(app.mouseWatcher(), g_made);
        EXPECT_EQ(g_made->owner, &app);
        EXPECT_EQ(g_made->bounds, VyRect::fromEdges(0, 0, 63, 47));
        EXPECT_TRUE(g_made->boundsBeforeStart);
        g_made->waitUntilRun();
    }
    VyMouseReader::setFactory(nullptr);
    g_made = nullptr;
}
