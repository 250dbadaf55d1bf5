#include "app/ControlChannel.h"

#include "model/UserAccess.h"
#include "runtime/VyLog.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyPostedEventQueue.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VyWidget.h"
#include "toolkit/events/DvrKeyEvent.h"
#include "toolkit/graphics/VyWindowSurface.h"
#include "toolkit/input/VyKeyManager.h"
#include "ui/ShellActions.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <malloc.h>
#include <pthread.h>
#include <sstream>
#include <string.h> // explicit_bzero
#include <string>
#include <unistd.h>

namespace {

constexpr int kControlLineEventType = 1201; // the GUI's own, next to the quit event
constexpr size_t kMaxLine = 256;            // longer lines are dropped whole

class ControlLineEvent : public VyEvent {
public:
    explicit ControlLineEvent(std::string line)
        : VyEvent(kControlLineEventType)
        , text(std::move(line)) {}
    std::string text;
};

} // namespace

bool ControlChannel::startFromEnvironment() {
    const char* path = std::getenv("VY_CONTROL_FIFO");
    if (path == nullptr || *path == '\0')
        return false;
    // Read-write, so that the FIFO never reports end of file between two writers.
    m_fd = ::open(path, O_RDWR | O_CLOEXEC);
    if (m_fd < 0) {
        vySystemLine("control: cannot open %s (%d)\n", path, errno);
        return false;
    }
    pthread_t thread;
    if (pthread_create(&thread, nullptr, &ControlChannel::readLoop, this) != 0) {
        ::close(m_fd);
        m_fd = -1;
        return false;
    }
    pthread_detach(thread);
    vySystemLine("control: reading %s\n", path);
    return true;
}

void* ControlChannel::readLoop(void* self) {
    auto* channel = static_cast<ControlChannel*>(self);
    std::string line;
    bool overlong = false;
    char buffer[512];
    for (;;) {
        const ssize_t n = ::read(channel->m_fd, buffer, sizeof buffer);
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            return nullptr;
        for (ssize_t i = 0; i < n; ++i) {
            if (buffer[i] != '\n') {
                if (line.size() < kMaxLine)
                    line += buffer[i];
                else
                    overlong = true;
                continue;
            }
            if (overlong)
                vySystemLine("control: line over %zu bytes dropped\n", kMaxLine);
            else
                VyApplication::postEvent(channel, std::make_unique<ControlLineEvent>(line));
            line.clear();
            overlong = false;
        }
    }
}

void ControlChannel::customEvent(VyEvent* e) {
    if (e->type() != kControlLineEventType)
        return;
    e->accept();
    runCommand(VyString(static_cast<ControlLineEvent*>(e)->text.c_str()));
}

bool ControlChannel::runCommand(const VyString& line) {
    const std::string text = line.c_str();
    unsigned long key = 0;
    char tail = 0;
    if (std::sscanf(text.c_str(), "key %lu %c", &key, &tail) == 1) {
        VyKeyManager* keys = VyKeyManager::instance();
        if (keys != nullptr)
            VyApplication::postEvent(keys,
                                     std::make_unique<DvrKeyEvent>(static_cast<uint32_t>(key)));
        return true;
    }
    if (text.rfind("open ", 0) == 0)
        return openScreen(text.substr(5));
    if (text.rfind("login ", 0) == 0)
        return login(text.substr(6));
    if (text == "state") {
        ++m_stateSeq;
        std::printf("state: seq=%u %s\n", m_stateSeq, stateText().c_str());
        std::fflush(stdout);
        return true;
    }
    vySystemLine("control: unknown command \"%s\"\n", text.c_str());
    return false;
}

bool ControlChannel::openScreen(const std::string& name) {
    ShellActions* shell = ShellActions::instance();
    if (shell == nullptr) {
        vySystemLine("control: no window layer to open %s\n", name.c_str());
        return false;
    }
    if (name == "playback")
        shell->openPlayback(-1, 0);
    else if (name == "settings")
        shell->openSettings();
    else if (name == "backup")
        shell->openBackup();
    else if (name == "analytics")
        shell->openAnalytics();
    else if (name == "wizard")
        shell->openWizard();
    else {
        vySystemLine("control: no screen \"%s\" to open\n", name.c_str());
        return false;
    }
    return true;
}

bool ControlChannel::login(const std::string& arguments) {
    std::istringstream words(arguments);
    std::string name;
    std::string secret;
    std::string extra;
    words >> name >> secret >> extra;
    UserAccess* access = UserAccess::instance();
    bool ok = false;
    if (name.empty() || secret.empty() || !extra.empty())
        vySystemLine("control: login wants a name and a password\n");
    else if (access == nullptr)
        vySystemLine("control: no users to log in to\n");
    else
        ok = access->login(VyString(name.c_str()), VyString(secret.c_str())).outcome ==
             UserAccess::Outcome::LoggedIn;
    // A driver's test account, but wiped all the same, as the login dialog wipes its field.
    explicit_bzero(secret.data(), secret.size());
    explicit_bzero(extra.data(), extra.size());
    // Printed once the answer is in, so a driver that waits for it finds the user logged in.
    std::printf("login: %s\n", ok ? "ok" : "refused");
    std::fflush(stdout);
    return ok;
}

VyString ControlChannel::stateText() const {
    VyApplication* app = VyApplication::instance();
    if (app == nullptr)
        return VyString("no-application");
    std::string windows;
    VyScreen* screen = app->screen();
    for (int i = 0; screen != nullptr && i < screen->windowCount(); ++i) {
        const VyWindowSurface* window = screen->windowAt(i);
        if (window == nullptr || !window->isShown() || window->owner() == nullptr)
            continue;
        if (!windows.empty())
            windows += ',';
        windows += window->owner()->className().c_str();
    }
    const VyWidget* focus = app->focusWidget();
    // The heap in use beside what the allocator holds from the system: a soak whose resident
    // memory grows tells from these whether objects pile up or freed memory is kept.
    const struct mallinfo2 heap = mallinfo2();
    char buffer[224];
    std::snprintf(buffer, sizeof buffer, " modal=%d focus=%s queue=%d peak=%d heap=%zu held=%zu",
                  static_cast<int>(app->modalStack().size()),
                  focus != nullptr ? focus->className().c_str() : "none",
                  app->postedEvents()->size(), app->postedEvents()->peakWaiting(),
                  (heap.uordblks + heap.hblkhd) / 1024, (heap.arena + heap.hblkhd) / 1024);
    return VyString(
        ("windows=" + (windows.empty() ? std::string("none") : windows) + buffer).c_str());
}
