#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <linux/fb.h>
#include <sys/mman.h>
#include <unistd.h>
#include <vector>

#include "platform/display/VyDisplayDeviceName.h"
#include "platform/display/VyFbdevBackend.h"
#include "platform/display/VyFrameDump.h"
#include "platform/display/VyMemoryBackend.h"
#ifdef VY_HAVE_SDL
#include <SDL.h>

#include "platform/display/sdl/VySdlBackend.h"
#endif

TEST(ScreenDeviceName, AcceptsTheKnownFormsAndRejectsMalformedOnes) {
    VyDisplayDeviceName n = VyDisplayDeviceName::parse("mem:320x240");
    EXPECT_EQ(n.kind, VyDisplayDeviceName::Memory);
    EXPECT_EQ(n.width, 320);
    EXPECT_EQ(n.height, 240);
    EXPECT_TRUE(n.path.isEmpty());

    n = VyDisplayDeviceName::parse("mem:64x48:/tmp/fb file.raw");
    EXPECT_EQ(n.kind, VyDisplayDeviceName::Memory);
    EXPECT_EQ(n.path, "/tmp/fb file.raw");

    n = VyDisplayDeviceName::parse("window:1280x720");
    EXPECT_EQ(n.kind, VyDisplayDeviceName::Window);
    EXPECT_EQ(n.width, 1280);

    n = VyDisplayDeviceName::parse("/dev/fb1");
    EXPECT_EQ(n.kind, VyDisplayDeviceName::Framebuffer);
    EXPECT_EQ(n.path, "/dev/fb1");

    for (const char* bad : {"", "mem:", "mem:320", "mem:320x", "mem:x240", "mem:0x240", "mem:-3x4",
                            "mem:320x240junk", "mem:320x240:", "window:1x1:/tmp/x", "mem:99999x10",
                            "mem:320X240", "vnc:320x240", "mem: 320x240"}) {
        EXPECT_EQ(VyDisplayDeviceName::parse(bad).kind, VyDisplayDeviceName::Invalid) << bad;
    }
    EXPECT_EQ(VyDisplayBackend::create("tcp:1x1"), nullptr);
    EXPECT_NE(VyDisplayBackend::create("mem:4x4"), nullptr);
}

namespace {

// A stand-in for the kernel's framebuffer driver, reached by the system call table.
struct FakeFbdev {
    int opens = 0;
    int failRequest = 0; // the ioctl request that fails, 0 for none
    bool failMap = false;
    fb_var_screeninfo written{};
    int puts = 0;
    std::vector<uint8_t> memory = std::vector<uint8_t>(4096 * 3, 0xAB);
    size_t mappedLength = 0;
    int closes = 0;
};

FakeFbdev* g_fake = nullptr;

int fakeOpen(const char*, int) {
    ++g_fake->opens;
    return 42;
}

int fakeIoctl(int, unsigned long request, void* arg) {
    if (request == static_cast<unsigned long>(g_fake->failRequest)) {
        errno = EINVAL;
        return -1;
    }
    if (request == FBIOGET_FSCREENINFO) {
        auto* fix = static_cast<fb_fix_screeninfo*>(arg);
        fix->smem_len = static_cast<uint32_t>(g_fake->memory.size());
        fix->line_length = 128;
    } else if (request == FBIOGET_VSCREENINFO) {
        auto* var = static_cast<fb_var_screeninfo*>(arg);
        var->xres = 60;
        var->yres = 90;
        var->xoffset = 7;
        var->yoffset = 9;
        var->bits_per_pixel = 16;
    } else if (request == FBIOPUT_VSCREENINFO) {
        g_fake->written = *static_cast<fb_var_screeninfo*>(arg);
        ++g_fake->puts;
    }
    return 0;
}

void* fakeMmap(void*, size_t length, int, int, int, off_t) {
    if (g_fake->failMap)
        return MAP_FAILED;
    g_fake->mappedLength = length;
    return g_fake->memory.data();
}

int fakeMunmap(void*, size_t) {
    return 0;
}
int fakeClose(int) {
    ++g_fake->closes;
    return 0;
}

const VyFbdevSystemCalls kFakeCalls = {fakeOpen, fakeIoctl, fakeMmap, fakeMunmap, fakeClose};

class ScreenFbdev : public ::testing::Test {
protected:
    void SetUp() override { g_fake = &m_fake; }
    void TearDown() override { g_fake = nullptr; }
    FakeFbdev m_fake;
};

} // namespace

TEST_F(ScreenFbdev, OpensWithoutPanningUnlessReadOnly) {
    {
        VyFbdevBackend fb("/dev/fb0", false, kFakeCalls);
        ASSERT_TRUE(fb.open());
        EXPECT_EQ(m_fake.puts, 1);
        EXPECT_EQ(m_fake.written.xoffset, 0u);
        EXPECT_EQ(m_fake.written.yoffset, 0u);
        EXPECT_EQ(m_fake.written.xres, 60u);
        EXPECT_EQ(m_fake.mappedLength, m_fake.memory.size());
        EXPECT_EQ(fb.pixels(), m_fake.memory.data());
        EXPECT_EQ(fb.width(), 60);
        EXPECT_EQ(fb.lineLength(), 128);
        EXPECT_EQ(fb.height(), 90);
        EXPECT_TRUE(fb.open());
        EXPECT_EQ(m_fake.opens, 1);
    }
    EXPECT_EQ(m_fake.closes, 1);

    VyFbdevBackend readOnly("/dev/fb0", true, kFakeCalls);
    ASSERT_TRUE(readOnly.open());
    EXPECT_EQ(m_fake.puts, 1) << "a read-only open leaves the panning alone";
}

TEST_F(ScreenFbdev, AFailedStepKeepsTheDescriptorSoTheNextOpenSucceedsAtOnce) {
    struct Case {
        int request;
        bool failMap;
        const char* message;
    };
    const Case cases[] = {
        {FBIOGET_FSCREENINFO, false, "FBIOGET_FSCREENINFO failed"},
        {FBIOGET_VSCREENINFO, false, "FBIOGET_VSCREENINFO failed"},
        {FBIOPUT_VSCREENINFO, false, "FBIOPUT_VSCREENINFO failed"},
        {0, true, "mmap framebuffer failed"},
    };
    for (const Case& c : cases) {
        m_fake = FakeFbdev();
        m_fake.failRequest = c.request;
        m_fake.failMap = c.failMap;
        VyFbdevBackend fb("/dev/fb0", false, kFakeCalls);
        testing::internal::CaptureStderr();
        EXPECT_FALSE(fb.open());
        const std::string err = testing::internal::GetCapturedStderr();
        EXPECT_NE(err.find(c.message), std::string::npos) << err;
        EXPECT_TRUE(fb.holdsDevice());
        EXPECT_EQ(fb.pixels(), nullptr);
        EXPECT_TRUE(fb.open()) << c.message;
        EXPECT_EQ(m_fake.opens, 1) << c.message;
    }
}

TEST_F(ScreenFbdev, APitchTooShortForTheWidthOrMemoryTooShortForTheHeightIsClamped) {
    m_fake.memory.resize(128 * 40);
    VyFbdevBackend fb("/dev/fb0", false, kFakeCalls);
    ASSERT_TRUE(fb.open());
    EXPECT_EQ(fb.height(), 40);
    EXPECT_LE(static_cast<size_t>(fb.lineLength()) * fb.height(), fb.length());
}

TEST(ScreenFbdevDevice, AMissingNodeFailsWithoutHoldingAnything) {
    VyFbdevBackend fb("/nonexistent/fb9");
    EXPECT_FALSE(fb.open());
    EXPECT_FALSE(fb.holdsDevice());
}

TEST(ScreenMemoryBackend, ASharedFileShowsThePixelsToAnotherReader) {
    char path[] = "/tmp/vy-memfb-XXXXXX";
    const int tmp = mkstemp(path);
    ASSERT_GE(tmp, 0);
    close(tmp);
    {
        VyMemoryBackend fb(8, 4, path);
        ASSERT_TRUE(fb.open());
        EXPECT_EQ(fb.length(), 8u * 4 * 2);
        EXPECT_EQ(fb.lineLength(), 16);
        for (size_t i = 0; i < fb.length(); ++i)
            fb.pixels()[i] = static_cast<uint8_t>(i * 7);
        // Read through an unrelated descriptor while the mapping is still live.
        std::vector<uint8_t> seen(fb.length());
        const int fd = ::open(path, O_RDONLY);
        ASSERT_GE(fd, 0);
        ASSERT_EQ(read(fd, seen.data(), seen.size()), static_cast<ssize_t>(seen.size()));
        close(fd);
        EXPECT_EQ(0, std::memcmp(seen.data(), fb.pixels(), seen.size()));
    }
    unlink(path);

    VyMemoryBackend unreachable(8, 4, "/nonexistent-dir/fb.raw");
    EXPECT_FALSE(unreachable.open());
}

#ifdef VY_HAVE_SDL
TEST(ScreenWindowBackend, OpensPresentsHandsOnItsPointerAndCloses) {
    setenv("SDL_VIDEODRIVER", "dummy", 1);
    VySdlBackend window(64, 32);
    if (!window.open())
        GTEST_SKIP() << "no SDL video driver here";
    ASSERT_NE(window.pixels(), nullptr);
    const int before = window.presentCount();
    const VyRect rects[] = {VyRect(0, 0, 8, 8), VyRect(60, 30, 10, 10)};
    window.present(rects, 2);
    EXPECT_EQ(window.presentCount(), before + 1);
    EXPECT_FALSE(window.closeRequested());

    struct Sample {
        int x, y, buttons, wheel;
    };
    std::vector<Sample> got;
    window.setPointerHandler([&got](int x, int y, int buttons, int wheel) {
        got.push_back({x, y, buttons, wheel});
    });
    int w = 0;
    int h = 0;
    SDL_GetWindowSize(SDL_GetWindowFromID(1), &w, &h);
    ASSERT_GT(w, 0);
    // The middle of the window, wherever the desktop put its size, is the middle pixel.
    SDL_Event motion{};
    motion.type = SDL_MOUSEMOTION;
    motion.motion.x = w / 2;
    motion.motion.y = h / 2;
    ASSERT_EQ(SDL_PushEvent(&motion), 1);
    SDL_Event press{};
    press.type = SDL_MOUSEBUTTONDOWN;
    press.button.button = SDL_BUTTON_RIGHT;
    press.button.x = w - 1;
    press.button.y = h - 1;
    ASSERT_EQ(SDL_PushEvent(&press), 1);
    window.pumpEvents();
    ASSERT_EQ(got.size(), 2u);
    EXPECT_EQ(got[0].x, 32);
    EXPECT_EQ(got[0].y, 16);
    EXPECT_EQ(got[0].buttons, 0);
    EXPECT_EQ(got[1].x, 63);
    EXPECT_EQ(got[1].y, 31);
    EXPECT_EQ(got[1].buttons, 2);

    SDL_Event quit{};
    quit.type = SDL_QUIT;
    ASSERT_EQ(SDL_PushEvent(&quit), 1);
    window.pumpEvents();
    EXPECT_TRUE(window.closeRequested());
}
#endif

TEST(ScreenFrameDump, WidensChannelsByRepeatingTopBitsAndRefusesShortFiles) {
    // Pure red with the overlay bit, a mid grey without it, and black.
    const uint16_t pixels[3] = {0xfc00, 0x4210, 0x0000};
    const VyBitmap b = VyFrameDump::toBitmap(reinterpret_cast<const uint8_t*>(pixels), 3, 1, 6);
    ASSERT_FALSE(b.isNull());
    const uint8_t want[12] = {255, 0, 0, 255, 132, 132, 132, 255, 0, 0, 0, 255};
    EXPECT_EQ(0, std::memcmp(b.constBits(), want, sizeof want));

    char path[] = "/tmp/vy-dump-XXXXXX";
    const int fd = mkstemp(path);
    ASSERT_GE(fd, 0);
    ASSERT_EQ(write(fd, pixels, sizeof pixels), static_cast<ssize_t>(sizeof pixels));
    close(fd);
    EXPECT_FALSE(VyFrameDump::fromRawFile(path, 3, 1).isNull());
    EXPECT_TRUE(VyFrameDump::fromRawFile(path, 4, 1).isNull());
    EXPECT_TRUE(VyFrameDump::fromRawFile(path, 0, 1).isNull());
    unlink(path);
}
