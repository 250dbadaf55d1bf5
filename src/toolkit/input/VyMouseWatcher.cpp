#include "toolkit/input/VyMouseWatcher.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include "platform/mouse/VyMouseDevice.h"
#include "runtime/VyLog.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VyScreenCursor.h"
#include "toolkit/events/VyRawMouseEvent.h"

namespace {

constexpr uint8_t kShiftForLevel[VyMouseWatcher::kMaxLevel + 1] = {14, 10, 8, 7, 6, 5, 4, 3, 2, 1};
constexpr int kReadChunk = 256; // bytes taken from the device per read

} // namespace

// The watcher's account of its samples in the application's queue.
struct VyMouseWatcher::PostedSamples {
    std::mutex mutex; // before the queue mutex
    VyObject* owner = nullptr;
    bool closed = false; // the watcher is gone: nothing more is posted
    int queued = 0;
    // A state not yet posted because the queue already held a sample of ours.
    bool owed = false;
    int x = 0;
    int y = 0;
    int buttons = 0;
    std::shared_ptr<PostedSamples> self() { return selfRef.lock(); }
    std::weak_ptr<PostedSamples> selfRef;

    void postLocked(int wheel);
};

namespace {

// A raw sample that tells the watcher's account when it has been handled (or dropped).
class WatcherSample : public VyRawMouseEvent {
public:
    WatcherSample(int x, int y, int buttons, int wheel,
                  std::shared_ptr<VyMouseWatcher::PostedSamples> posted)
        : VyRawMouseEvent(x, y, buttons, wheel)
        , m_posted(std::move(posted)) {}
    ~WatcherSample() override;

private:
    std::shared_ptr<VyMouseWatcher::PostedSamples> m_posted;
};

} // namespace

void VyMouseWatcher::PostedSamples::postLocked(int wheel) {
    // Without an application the post would delete the sample at once, inside this lock.
    if (!VyApplication::instance()) {
        owed = false;
        return;
    }
    ++queued;
    owed = false;
    VyApplication::postEvent(owner, std::make_unique<WatcherSample>(x, y, buttons, wheel, self()));
}

WatcherSample::~WatcherSample() {
    // The GUI thread is done with this sample: a state held back meanwhile goes out now.
    std::lock_guard<std::mutex> lock(m_posted->mutex);
    --m_posted->queued;
    if (m_posted->queued == 0 && m_posted->owed && !m_posted->closed)
        m_posted->postLocked(0);
}

VyMouseWatcher::VyMouseWatcher(VyObject* owner)
    : VyMouseWatcher(owner, std::make_unique<VyMouseDevice>()) {}

VyMouseWatcher::VyMouseWatcher(VyObject* owner, std::unique_ptr<VyMouseDevice> device)
    : m_owner(owner)
    , m_cursor(nullptr)
    , m_device(std::move(device))
    , m_posted(std::make_shared<PostedSamples>()) {
    m_posted->owner = owner;
    m_posted->selfRef = m_posted;
    VyApplication* app = VyApplication::instance();
    if (app && app->screen())
        m_cursor = app->screen()->cursor();
    if (::pipe2(m_wakePipe, O_CLOEXEC) != 0)
        vyFrameworkLog("mouse watcher: pipe failed !!!\n");
    m_deviceOpen = m_device->open();
}

VyMouseWatcher::~VyMouseWatcher() {
    stop();
    wait();
    {
        std::lock_guard<std::mutex> lock(m_posted->mutex);
        m_posted->closed = true;
    }
    for (int fd : m_wakePipe)
        if (fd >= 0)
            ::close(fd);
}

void VyMouseWatcher::install() {
    VyMouseReader::setFactory(&VyMouseWatcher::create);
}

std::unique_ptr<VyMouseReader> VyMouseWatcher::create(VyObject* owner) {
    return std::make_unique<VyMouseWatcher>(owner);
}

void VyMouseWatcher::stop() {
    m_stopRequested = true;
    if (m_wakePipe[1] >= 0) {
        const uint8_t token = 1;
        ssize_t rc;
        do {
            rc = ::write(m_wakePipe[1], &token, 1);
        } while (rc < 0 && errno == EINTR);
    }
}

bool VyMouseWatcher::waitForWake(int timeoutMs) {
    return m_device->wait(m_wakePipe[0], timeoutMs) == VyMouseDevice::Woken ||
           m_stopRequested.load();
}

void VyMouseWatcher::run() {
    if (!m_deviceOpen.load())
        return;
    uint8_t buffer[kReadChunk];
    while (!m_stopRequested.load()) {
        if (!m_device->isOpen()) {
            // Gone: look again now and then, asleep in between.
            if (waitForWake(m_reopenIntervalMs.load()))
                break;
            if (m_device->open(true)) {
                m_decoder.reset();
                m_deviceOpen = true;
                vyFrameworkLog("mouse device %s is back\n", m_device->path().c_str());
            }
            continue;
        }
        const VyMouseDevice::WaitResult ready = m_device->wait(m_wakePipe[0], -1);
        if (ready == VyMouseDevice::Woken || m_stopRequested.load())
            break;
        const ssize_t n = m_device->read(buffer, sizeof buffer);
        if (n <= 0) {
            // End of file or an unplugged device: reading again would only spin.
            vyFrameworkLog("mouse device %s went away !!!\n", m_device->path().c_str());
            m_device->close();
            m_deviceOpen = false;
            continue;
        }
        m_skipped += m_decoder.feed(buffer, static_cast<size_t>(n),
                                    [this](const VyMousePacket& p) { applyPacket(p); });
    }
}

int VyMouseWatcher::shiftForLevel(int level) {
    return kShiftForLevel[std::clamp(level, 0, kMaxLevel)];
}

int16_t VyMouseWatcher::accelerate(int16_t position, int delta, int shift) {
    const int sign = delta > 0 ? 1 : -1;
    const int extra = shift >= 32 ? 0 : (delta * delta) >> shift;
    return static_cast<int16_t>(position + delta + sign * extra);
}

void VyMouseWatcher::applyPacket(const VyMousePacket& p) {
    ++m_packets;
    int x;
    int y;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        x = accelerate(m_x, p.dx, m_shift);
        // The device counts upward; the screen counts downward.
        y = accelerate(m_y, -p.dy, m_shift);
    }
    moveTo(x, y, p.buttons, p.wheel, false);
}

void VyMouseWatcher::setBounds(int minX, int minY, int maxX, int maxY) {
    std::lock_guard<std::mutex> lock(m_mutex);
    m_minX = static_cast<int16_t>(minX);
    m_minY = static_cast<int16_t>(minY);
    m_maxX = static_cast<int16_t>(maxX);
    m_maxY = static_cast<int16_t>(maxY);
    // A pointer left outside a smaller screen is pulled in.
    const int16_t x = std::max(m_minX, std::min(m_x, m_maxX));
    const int16_t y = std::max(m_minY, std::min(m_y, m_maxY));
    if (x != m_x || y != m_y) {
        m_x = x;
        m_y = y;
        deliverLocked(0);
    }
}

void VyMouseWatcher::setAccelerationLevel(int level) {
    std::lock_guard<std::mutex> lock(m_mutex);
    m_shift = static_cast<uint8_t>(shiftForLevel(level));
}

int VyMouseWatcher::accelerationShift() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_shift;
}

void VyMouseWatcher::moveTo(int x, int y, int buttons, int wheel, bool force) {
    std::lock_guard<std::mutex> lock(m_mutex);
    const int16_t cx = x < m_minX ? m_minX : static_cast<int16_t>(std::min<int>(x, m_maxX));
    const int16_t cy = y < m_minY ? m_minY : static_cast<int16_t>(std::min<int>(y, m_maxY));
    if (cx == m_x && cy == m_y && buttons == m_buttons && wheel == 0 && !force)
        return;
    m_x = cx;
    m_y = cy;
    m_buttons = buttons;
    deliverLocked(wheel);
}

void VyMouseWatcher::deliverLocked(int wheel) {
    // The overlay follows the hand without waiting for the GUI thread.
    if (m_cursor)
        m_cursor->setPosition(m_x, m_y);
    PostedSamples& posted = *m_posted;
    std::lock_guard<std::mutex> lock(posted.mutex);
    const bool pureMove = wheel == 0 && m_buttons == posted.buttons;
    posted.x = m_x;
    posted.y = m_y;
    posted.buttons = m_buttons;
    if ((pureMove && posted.queued > 0) || posted.queued >= kMaxQueuedSamples) {
        posted.owed = true;
        return;
    }
    posted.postLocked(wheel);
}

VyPoint VyMouseWatcher::position() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return VyPoint(m_x, m_y);
}

int VyMouseWatcher::buttons() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_buttons;
}

bool VyMouseWatcher::isDeviceOpen() const {
    return m_deviceOpen.load();
}
