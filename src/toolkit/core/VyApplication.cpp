// Construction, the event loop, posting and the timer service of the application.
#include "toolkit/core/VyApplication.h"

#include "runtime/VyLog.h"
#include "toolkit/core/VyDrag.h"
#include "toolkit/core/VyMouseTrigger.h"
#include "toolkit/core/VyPointer.h"
#include "toolkit/core/VyPostedEventQueue.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VyScreenCursor.h"
#include "toolkit/core/VySingleShotTimer.h"
#include "toolkit/core/VyTimer.h"
#include "toolkit/core/VyWidget.h"
#include "toolkit/events/VyEvent.h"
#include "toolkit/events/VyKeyEvent.h"
#include "toolkit/events/VyRawMouseEvent.h"
#include "toolkit/events/VyTimerEvent.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>

namespace {

constexpr int kTickIntervalMs = 1000; // ms between two counts of VyApplication::seconds
constexpr int kApplicationTimerCount = 3;
const char* const kDefaultDisplayDevice = "/dev/fb0";
constexpr int kEscapeKey = 0x1000000; // the toolkit key code of Escape / back

VyApplication* g_application = nullptr;

int64_t monotonicMilliseconds() {
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

int64_t wallClockSeconds() {
    using namespace std::chrono;
    return duration_cast<seconds>(system_clock::now().time_since_epoch()).count();
}

VyString& displayDevicePath() {
    static VyString path;
    return path;
}

VyTimerCore::Clock& timerClock() {
    static VyTimerCore::Clock clock;
    return clock;
}

} // namespace

VyApplication::VyApplication(int argc, char** argv)
    : m_monotonicMs(&monotonicMilliseconds)
    , m_wallSeconds(&wallClockSeconds) {
    (void)argc;
    (void)argv;
    VY_ASSERT(g_application == nullptr);
    g_application = this;
    m_postedEvents = std::make_unique<VyPostedEventQueue>();

    VyString device = displayDevicePath();
    if (device.isEmpty()) {
        const char* env = std::getenv("VY_FBDEV_NODE");
        device = env && *env ? VyString(env) : VyString(kDefaultDisplayDevice);
    }
    m_screen = std::make_unique<VyScreen>();
    if (!m_screen->open(device)) {
        vyFrameworkLog(
            "open (%s) failed, set \"VY_FBDEV_NODE\" env or call VyApplication::setDisplayDevice() "
            "!!!\n",
            device.c_str());
        std::exit(1);
    }
    vyFrameworkLog("open fbdev(%s) success !\n", device.c_str());
    // Widgets paint into their window surfaces when the screen flushes a batch.
    m_screen->setPaintHandler(&VyWidget::paintWindow);
    connect(m_screen.get(), &m_screen->geometryChanged, this,
            VY_SLOT(VyApplication, screenGeometryChanged));

    if (timerClock()) {
        // A test's clock: the test moves it and fires the timers itself, so no thread.
        m_threads.timerCore = std::make_unique<VyTimerCore>(timerClock());
    } else {
        m_threads.timerCore = std::make_unique<VyTimerCore>();
    }
    if (VyMouseReader::Factory makeReader = VyMouseReader::factory())
        m_threads.mouseWatcher = makeReader(this);
    if (m_threads.mouseWatcher) {
        const VyRect range = m_screen->clipRect();
        m_threads.mouseWatcher->setBounds(range.left, range.top, range.right, range.bottom);
        m_threads.mouseWatcher->start();
    }
    if (!timerClock())
        m_threads.timerCore->start();
    // A desktop window's own pointer takes the same path as the mouse device.
    m_screen->setPointerHandler([](int x, int y, int buttons, int wheel) {
        injectPointer(x, y, static_cast<uint8_t>(buttons), static_cast<int16_t>(wheel));
    });
    m_screen->startEventPump();
    m_singleShotTimer = std::make_unique<VySingleShotTimer>();
    m_tickTimerId = registerTimer(kTickIntervalMs, this, -1);
    for (int i = 0; i < kApplicationTimerCount; ++i)
        m_timers.append(new VyTimer);
}

VyApplication::~VyApplication() {
    // Worker threads first: nothing may post into a queue that is going away.
    if (m_threads.mouseWatcher)
        m_threads.mouseWatcher.reset();
    if (m_threads.timerCore)
        m_threads.timerCore->stop();
    for (VyTimer* timer : m_timers)
        delete timer;
    m_timers.clear();
    m_singleShotTimer.reset();
    m_screen.reset();
    m_threads.timerCore.reset();
    m_postedEvents.reset();
    for (VyObjectGuard* guard : m_guards) {
        guard->m_object = nullptr;
        guard->m_app = nullptr;
    }
    m_guards.clear();
    g_application = nullptr;
}

void VyApplication::setTimerClock(VyTimerCore::Clock clock) {
    timerClock() = std::move(clock);
}

VyApplication* VyApplication::instance() {
    return g_application;
}

void VyApplication::setDisplayDevice(const VyString& path) {
    displayDevicePath() = path;
}

VyString VyApplication::displayDevice() {
    return displayDevicePath();
}

int VyApplication::exec() {
    if (m_running)
        return 1;
    m_running = true;
    m_quitting = false;
    while (m_running)
        processOneEvent();
    return 0;
}

void VyApplication::postEvent(VyObject* receiver, std::unique_ptr<VyEvent> event) {
    if (!event)
        return;
    VyApplication* app = g_application;
    if (!app || !receiver) {
        VY_DEBUG("event", "postEvent: type %d dropped (%s)\n", event->type(),
                 app ? "no receiver" : "no application");
        return;
    }
    app->m_postedEvents->post(receiver, std::move(event));
}

void VyApplication::removePostedEvents(VyObject* receiver) {
    if (receiver && m_postedEvents)
        m_postedEvents->removePostedEvents(receiver);
}

void VyApplication::processOneEvent() {
    VyPostedEvent entry = m_postedEvents->take();
    notify(entry.receiver, entry.event.get());
}

int VyApplication::processPostedEvents() {
    int pending = m_postedEvents->size();
    int handled = 0;
    while (handled < pending) {
        VyPostedEvent entry = m_postedEvents->tryTake();
        if (!entry.event)
            break;
        notify(entry.receiver, entry.event.get());
        ++handled;
    }
    return handled;
}

bool VyApplication::sendEvent(VyObject* receiver, VyEvent* e) {
    if (!receiver || !e)
        return false;
    if (e->type() >= VyEvent::User) {
        receiver->customEvent(e);
        return true;
    }
    VyApplication* app = g_application;
    if (app && e->type() == VyEvent::KeyPress) {
        app->noteInput();
        // Escape ends a drag wherever the key was going.
        if (app->m_drag && static_cast<VyKeyEvent*>(e)->key() == kEscapeKey) {
            app->m_drag->cancel();
            e->setAccepted(true);
            return true;
        }
    }
    if (app) {
        // Indexed, not iterated: a filter may install or remove filters while it runs.
        for (int i = 0; i < int(app->m_eventFilters.size()); ++i) {
            VyObject* filter = app->m_eventFilters[size_t(i)].data();
            if (filter && filter->eventFilter(receiver, e)) {
                e->setAccepted(true);
                return true;
            }
        }
    }
    if (receiver != app) {
        for (int i = 0; i < int(receiver->m_eventFilters.size()); ++i) {
            VyObject* filter = receiver->m_eventFilters[size_t(i)].data();
            if (filter && filter->eventFilter(receiver, e)) {
                e->setAccepted(true);
                return true;
            }
        }
    }
    return receiver->event(e);
}

void VyApplication::postEvents(std::vector<VyPostedEvent>& entries) {
    VyApplication* app = g_application;
    if (!app) {
        VY_DEBUG("event", "postEvents: %zu events dropped (no application)\n", entries.size());
        entries.clear();
        return;
    }
    app->m_postedEvents->postMany(entries);
}

uint32_t VyApplication::registerTimer(int ms, VyObject* receiver, int repeat) {
    if (!m_threads.timerCore)
        return 0;
    return m_threads.timerCore->registerTimer(ms, receiver, repeat);
}

bool VyApplication::unregisterTimer(uint32_t id) {
    return m_threads.timerCore && m_threads.timerCore->unregisterTimer(id);
}

void VyApplication::unregisterTimers(VyObject* receiver) {
    if (m_threads.timerCore)
        m_threads.timerCore->unregisterTimers(receiver);
}

void VyApplication::timerEvent(VyTimerEvent* e) {
    if (static_cast<uint32_t>(e->timerId()) != m_tickTimerId)
        return;
    ++m_seconds;
    emitSignal(this, &secondTick);
    idleTick();
}

void VyApplication::idleTick() {
    ++m_idleCount;
    VyMouseTrigger::idleCountChanged(m_idleCount);
}

void VyApplication::noteInput() {
    // A flood of input would otherwise walk every trigger once per sample.
    const int64_t second = m_wallSeconds();
    if (second == m_lastResetSecond)
        return;
    m_lastResetSecond = second;
    m_idleCount = 0;
    VyMouseTrigger::idleCountChanged(0);
}

void VyApplication::setInputClocks(Clock monotonicMs, Clock wallSeconds) {
    m_monotonicMs = monotonicMs ? std::move(monotonicMs) : Clock(&monotonicMilliseconds);
    m_wallSeconds = wallSeconds ? std::move(wallSeconds) : Clock(&wallClockSeconds);
}

void VyApplication::screenGeometryChanged() {
    // The pointer's range follows the output; a pointer outside the new one is pulled in.
    if (m_threads.mouseWatcher) {
        const VyRect range = m_screen->clipRect();
        m_threads.mouseWatcher->setBounds(range.left, range.top, range.right, range.bottom);
    }
    VyEvent change(VyEvent::ScreenChange);
    sendEvent(this, &change);
}

void VyApplication::injectPointer(int x, int y, uint8_t buttons, int16_t wheel) {
    VyApplication* app = g_application;
    if (!app)
        return;
    if (app->m_threads.mouseWatcher) {
        app->m_threads.mouseWatcher->moveTo(x, y, buttons, wheel, false);
        return;
    }
    // As the mouse reader does: the overlay follows at once, the widgets when the GUI
    // thread gets to the sample. The cursor has its own lock.
    if (app->m_screen && app->m_screen->cursor())
        app->m_screen->cursor()->setPosition(x, y);
    postEvent(app, std::make_unique<VyRawMouseEvent>(x, y, buttons, wheel));
}

void VyApplication::addGuard(VyObjectGuard* guard) {
    m_guards.push_back(guard);
}

void VyApplication::removeGuard(VyObjectGuard* guard) {
    // From the back: most guards live on the stack of a dispatch and go in reverse order.
    auto it = std::find(m_guards.rbegin(), m_guards.rend(), guard);
    if (it != m_guards.rend())
        m_guards.erase(std::next(it).base());
}
