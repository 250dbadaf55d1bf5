#include "SoakRun.h"

#include "SimUsers.h"
#include "SoakChild.h"
#include "SoakMouse.h"
#include "SoakRandom.h"

#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <mutex>
#include <sstream>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;

// Device keys a person or a remote can press; the address keys (90, 91) are left out, since
// an address entered by chance makes the recorder ignore every later key by design.
std::vector<int> pressableKeys() {
    std::vector<int> keys;
    for (int k = 3; k <= 149; ++k) {
        if (k != 90 && k != 91)
            keys.push_back(k);
    }
    return keys;
}

constexpr int kEscapeKey = 96;
constexpr int kLockEscapeKey = 49; // one of the two keys a locked screen lets through
constexpr int kEscapesAtEnd = 10;
constexpr uint16_t kShutdownSubType = 280; // ends the GUI on purpose: never sent

// A GUI state answer: "state: seq=S windows=A,B modal=M focus=F queue=Q peak=P".
struct GuiState {
    unsigned seq = 0;
    std::string windows;
    int modal = 0;
    int queue = 0;
    int peak = 0;
    long heapKb = -1; // in use; -1 when the GUI does not say (a sanitizer's allocator)
    long heldKb = -1; // taken from the system
};

bool parseState(const std::string& line, GuiState* out) {
    char windows[1024];
    char focus[128];
    GuiState s;
    const int fields = std::sscanf(
        line.c_str(),
        "state: seq=%u windows=%1023s modal=%d focus=%127s queue=%d peak=%d heap=%ld held=%ld",
        &s.seq, windows, &s.modal, focus, &s.queue, &s.peak, &s.heapKb, &s.heldKb);
    if (fields < 6)
        return false;
    s.windows = windows;
    *out = s;
    return true;
}

std::string hex(const std::vector<uint8_t>& bytes) {
    static const char* digits = "0123456789ABCDEF";
    std::string out;
    for (uint8_t b : bytes) {
        out += digits[b >> 4];
        out += digits[b & 15];
    }
    return out;
}

void putLe(std::vector<uint8_t>* out, uint32_t v, int bytes) {
    for (int i = 0; i < bytes; ++i)
        out->push_back(static_cast<uint8_t>(v >> (8 * i)));
}

// A 24-byte frame header as the wire has it.
std::vector<uint8_t> header(int16_t validFlag, uint16_t mainType, uint16_t subType,
                            uint32_t dataLen, uint32_t value) {
    std::vector<uint8_t> h;
    putLe(&h, 1, 4);
    putLe(&h, static_cast<uint16_t>(validFlag), 2);
    putLe(&h, 1, 2);
    putLe(&h, mainType, 2);
    putLe(&h, subType, 2);
    putLe(&h, dataLen, 4);
    putLe(&h, 0, 4);
    putLe(&h, value, 4);
    return h;
}

class SoakDriver {
public:
    explicit SoakDriver(const SoakOptions& options)
        : m_options(options)
        , m_random(options.seed)
        , m_keys(pressableKeys()) {
        m_report.seed = options.seed;
    }
    ~SoakDriver() {
        m_gui.stop();
        m_sim.stop();
        if (m_listenFd >= 0)
            close(m_listenFd);
        if (m_controlFd >= 0)
            close(m_controlFd);
        // A failed run keeps its logs: the failure line names the folder.
        if (!m_dir.empty() && m_report.failure.empty() && std::getenv("VY_SOAK_KEEP") == nullptr)
            std::system(("rm -rf '" + m_dir + "'").c_str());
    }

    SoakReport run();

private:
    bool fail(const std::string& what) {
        if (m_report.failure.empty()) {
            std::ostringstream s;
            s << what << " (seed " << m_options.seed << ", step " << m_step << ", logs in " << m_dir
              << ")";
            m_report.failure = s.str();
        }
        return false;
    }
    bool setUp();
    bool listenSocket();
    bool startSim();
    bool startGui();
    void watchGui(const std::string& line);
    void watchSim(const std::string& line);
    bool control(const std::string& line);
    bool simCommand(const std::string& line);
    // Waits until the simulator has carried out every command sent to it, so that the
    // notifications of a batch are on their way before the GUI is asked for its state.
    bool simCaughtUp();
    bool probe(GuiState* state);
    // A person at a locked recorder logs in: the administrator, or the ordinary user when
    // wrong passwords typed at random have locked the administrator out for a while.
    bool unlock();
    bool loginAs(const char* name, const char* password, bool* loggedIn);
    bool checkpoint(bool warmUpEnds);
    void noteMemory(const GuiState& state, bool warmUpEnds);
    bool tourScreens();
    void randomInput();
    void randomNotification();
    bool restartSim();
    bool finish();

    SoakOptions m_options;
    SoakRandom m_random;
    std::vector<int> m_keys;
    SoakReport m_report;
    std::string m_dir;
    std::string m_socket;
    int m_listenFd = -1;
    int m_controlFd = -1;
    SoakMouse m_mouse;
    SoakChild m_sim;
    SoakChild m_gui;
    int m_step = 0;
    int m_simGeneration = 0;
    bool m_warmUpOver = false;
    std::string m_startWindows;

    std::mutex m_mutex; // guards the fields below, written by the output readers
    std::condition_variable m_changed;
    GuiState m_lastState;
    std::string m_sanitizerLine;
    int m_simListening = 0;
    long m_simDone = 0; // console commands the current simulator has carried out
    long m_simSent = 0; // ... and sent to it
    unsigned m_asked = 0;
    int m_loginAnswers = 0; // "login:" lines seen
    bool m_lastLoginOk = false;
};

bool SoakDriver::setUp() {
    char tmpl[] = "/tmp/vy-soak-XXXXXX";
    const char* made = mkdtemp(tmpl);
    if (made == nullptr)
        return fail("cannot make a temporary folder");
    m_dir = made;
    m_socket = m_dir + "/ipc.sock";
    const std::string fifo = m_dir + "/control";
    if (mkfifo(fifo.c_str(), 0600) != 0)
        return fail("cannot make the control FIFO");
    // Held read-write: the GUI may open its end later, and writes never find it missing.
    m_controlFd = open(fifo.c_str(), O_RDWR | O_CLOEXEC);
    if (m_controlFd < 0)
        return fail("cannot open the control FIFO");
    if (!m_mouse.open())
        return fail("cannot open a pseudo-terminal for the mouse");
    return listenSocket() && startSim() && startGui();
}

bool SoakDriver::listenSocket() {
    // The driver owns the listening socket and hands it to each simulator it starts, so a
    // GUI that reconnects while one simulator ends and the next starts finds it listening.
    m_listenFd = socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un addr{};
    addr.sun_family = AF_UNIX;
    if (m_listenFd < 0 || m_socket.size() >= sizeof addr.sun_path)
        return fail("cannot make the socket");
    std::memcpy(addr.sun_path, m_socket.c_str(), m_socket.size() + 1);
    if (bind(m_listenFd, reinterpret_cast<sockaddr*>(&addr), sizeof addr) != 0 ||
        listen(m_listenFd, 8) != 0)
        return fail("cannot listen on " + m_socket);
    return true;
}

bool SoakDriver::startSim() {
    const int generation = ++m_simGeneration;
    std::vector<std::string> argv = m_options.execPrefix;
    argv.push_back(m_options.buildDir + "/tools/recorder-sim/recorder-sim");
    const std::map<std::string, std::string> env = {
        {"VY_IPC_SOCKET", m_socket},
        {"VY_SIM_LISTEN_FD", std::to_string(m_listenFd)},
        {"VY_SIM_STORE", m_dir + "/sim.params"},
    };
    // The listening socket must survive exec in the child only.
    fcntl(m_listenFd, F_SETFD, 0);
    const bool started = m_sim.start(argv, m_dir, env, m_dir + "/recorder-sim.log",
                                     [this](const std::string& l) { watchSim(l); });
    fcntl(m_listenFd, F_SETFD, FD_CLOEXEC);
    if (!started)
        return fail("cannot start recorder-sim");
    std::unique_lock<std::mutex> lock(m_mutex);
    const bool up = m_changed.wait_for(lock, std::chrono::seconds(m_options.answerTimeoutSec),
                                       [&] { return m_simListening >= generation; });
    return up || fail("recorder-sim did not start listening");
}

bool SoakDriver::startGui() {
    std::vector<std::string> argv = m_options.execPrefix;
    argv.push_back(m_options.buildDir + "/src/app/dvrgui");
    const std::map<std::string, std::string> env = {
        {"VY_IPC_SOCKET", m_socket},
        {"VY_FBDEV_NODE", "mem:1280x720"},
        {"VY_MOUSE_DEVICE", m_mouse.devicePath()},
        {"VY_CONTROL_FIFO", m_dir + "/control"},
    };
    if (!m_gui.start(argv, m_options.resourcesDir, env, m_dir + "/dvrgui.log",
                     [this](const std::string& l) { watchGui(l); }))
        return fail("cannot start dvrgui");
    // The first screen: the main view shown, with whatever start-up put over it.
    const auto deadline = Clock::now() + std::chrono::seconds(m_options.answerTimeoutSec);
    GuiState state;
    for (;;) {
        if (!probe(&state))
            return false;
        if (state.windows.find("MainViewWindow") != std::string::npos)
            break;
        if (Clock::now() > deadline)
            return fail("the main view did not appear (windows " + state.windows + ")");
        // Start-up takes seconds; asking again at once would only fill the log.
        std::unique_lock<std::mutex> lock(m_mutex);
        m_changed.wait_for(lock, std::chrono::milliseconds(50));
    }
    m_startWindows = state.windows;
    return true;
}

void SoakDriver::watchGui(const std::string& line) {
    if (line.rfind("login: ", 0) == 0) {
        std::lock_guard<std::mutex> lock(m_mutex);
        ++m_loginAnswers;
        m_lastLoginOk = line == "login: ok";
        m_changed.notify_all();
        return;
    }
    GuiState state;
    const bool isState = line.rfind("state: ", 0) == 0 && parseState(line, &state);
    const bool sanitizer = line.find("ERROR: AddressSanitizer") != std::string::npos ||
                           line.find("ERROR: LeakSanitizer") != std::string::npos ||
                           line.find("WARNING: ThreadSanitizer") != std::string::npos ||
                           line.find("runtime error:") != std::string::npos;
    if (!isState && !sanitizer)
        return;
    std::lock_guard<std::mutex> lock(m_mutex);
    if (isState)
        m_lastState = state;
    if (sanitizer && m_sanitizerLine.empty())
        m_sanitizerLine = line;
    m_changed.notify_all();
}

void SoakDriver::watchSim(const std::string& line) {
    // Each console command ends with one of these lines, once it has taken effect.
    const bool done = line.rfind("sim: > ", 0) == 0 || line.rfind("sim: cannot run", 0) == 0;
    const bool listening = line.rfind("sim: listening on", 0) == 0;
    if (!done && !listening)
        return;
    std::lock_guard<std::mutex> lock(m_mutex);
    if (done)
        ++m_simDone;
    if (listening)
        ++m_simListening;
    m_changed.notify_all();
}

bool SoakDriver::simCommand(const std::string& line) {
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        ++m_simSent;
    }
    return m_sim.send(line) || fail("cannot write to recorder-sim");
}

bool SoakDriver::simCaughtUp() {
    std::unique_lock<std::mutex> lock(m_mutex);
    const bool caughtUp = m_changed.wait_for(lock, std::chrono::seconds(m_options.answerTimeoutSec),
                                             [&] { return m_simDone >= m_simSent; });
    return caughtUp || fail("recorder-sim stopped carrying out its commands");
}

bool SoakDriver::control(const std::string& line) {
    const std::string text = line + "\n";
    return write(m_controlFd, text.data(), text.size()) == static_cast<ssize_t>(text.size()) ||
           fail("cannot write to the control FIFO");
}

bool SoakDriver::probe(GuiState* state) {
    const unsigned wanted = ++m_asked;
    if (!control("state"))
        return false;
    const auto deadline = Clock::now() + std::chrono::seconds(m_options.answerTimeoutSec);
    std::unique_lock<std::mutex> lock(m_mutex);
    while (m_lastState.seq < wanted) {
        if (!m_sanitizerLine.empty())
            return fail("sanitizer: " + m_sanitizerLine);
        if (Clock::now() > deadline)
            return fail("the GUI stopped answering");
        lock.unlock();
        const bool alive = m_gui.alive();
        lock.lock();
        if (!alive)
            return fail("the GUI ended (status " + std::to_string(m_gui.exitStatus()) + ")");
        m_changed.wait_for(lock, std::chrono::milliseconds(100));
    }
    if (!m_sanitizerLine.empty())
        return fail("sanitizer: " + m_sanitizerLine);
    *state = m_lastState;
    return true;
}

// The large screens are built on first use and reuse what their first opening cached
// (images, shaped texts, glyphs): each is opened once before the random input starts, so
// memory taken at the end of the warm-up already holds them, and each must close again with
// Escape from the state a person finds it in.
bool SoakDriver::tourScreens() {
    for (const char* screen : {"playback", "settings", "backup", "analytics", "wizard"}) {
        if (!control(std::string("open ") + screen))
            return false;
        // A screen may open only after a request of its own (the user list): the state is
        // asked for until it shows.
        const auto deadline = Clock::now() + std::chrono::seconds(m_options.answerTimeoutSec);
        GuiState state;
        do {
            if (!probe(&state))
                return false;
            if (Clock::now() > deadline)
                return fail(std::string("the ") + screen + " screen did not open");
        } while (state.windows == m_startWindows);
        for (int i = 0; i < kEscapesAtEnd && state.windows != m_startWindows; ++i)
            if (!control("key " + std::to_string(kEscapeKey)) || !probe(&state))
                return false;
        if (state.windows != m_startWindows)
            return fail(std::string("the ") + screen +
                        " screen did not close with Escape (windows " + state.windows + ")");
    }
    return true;
}

bool isLocked(const GuiState& state) {
    return ("," + state.windows + ",").find(",ScreenLockWindow,") != std::string::npos;
}

bool SoakDriver::loginAs(const char* name, const char* password, bool* loggedIn) {
    int wanted = 0;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        wanted = m_loginAnswers + 1;
    }
    if (!control(std::string("login ") + name + " " + password))
        return false;
    // Mouse samples still on their way may open the login dialog over the login's own wait;
    // the login then returns only once that dialog is gone, so it is closed as a person
    // would close it.
    const auto deadline = Clock::now() + std::chrono::seconds(m_options.answerTimeoutSec);
    for (;;) {
        {
            std::unique_lock<std::mutex> lock(m_mutex);
            m_changed.wait_for(lock, std::chrono::milliseconds(200),
                               [&] { return m_loginAnswers >= wanted; });
            if (m_loginAnswers >= wanted) {
                *loggedIn = m_lastLoginOk;
                return true;
            }
        }
        if (Clock::now() > deadline)
            return fail("the GUI did not answer a login");
        GuiState state;
        if (!probe(&state))
            return false;
        if (state.windows.find("UserLoginDialog") != std::string::npos &&
            !control("key " + std::to_string(kLockEscapeKey)))
            return false;
    }
}

bool SoakDriver::unlock() {
    bool in = false;
    if (!loginAs(SimUsers::kAdminName, SimUsers::kAdminPassword, &in))
        return false;
    if (!in && !loginAs(SimUsers::kUserName, SimUsers::kUserPassword, &in))
        return false;
    in ? ++m_report.unlocks : ++m_report.refusedUnlocks;
    return true;
}

// Flatness is judged on anonymous memory (file pages come and go with the fonts a language
// switch maps, which is not growth of the program), and only at probes that find the GUI at
// rest, with the windows of the start alone: two large screens open at once are a peak of
// use, not growth, and the same state compared with itself shows what creeps.
void SoakDriver::noteMemory(const GuiState& state, bool warmUpEnds) {
    const long anon = m_gui.statusKb("RssAnon:");
    const long rss = m_gui.statusKb("VmRSS:");
    m_warmUpOver = m_warmUpOver || warmUpEnds;
    if (m_warmUpOver) {
        m_report.busyPeakKb = std::max(m_report.busyPeakKb, anon);
        m_report.peakRssKb = std::max(m_report.peakRssKb, rss);
        if (state.windows == m_startWindows) {
            if (m_report.warmKb == 0)
                m_report.warmKb = anon;
            m_report.peakKb = std::max(m_report.peakKb, anon);
        }
    }
    m_report.finalKb = anon;
    m_report.finalRssKb = rss;
}

bool SoakDriver::checkpoint(bool warmUpEnds) {
    GuiState state;
    if (!simCaughtUp() || !probe(&state))
        return false;
    if (isLocked(state) && (!unlock() || !probe(&state)))
        return false;
    m_report.longestQueue = std::max(m_report.longestQueue, state.peak);
    if (state.peak > m_options.queueBound)
        return fail("the posted-event queue reached " + std::to_string(state.peak) +
                    " events, above its bound of " + std::to_string(m_options.queueBound));
    noteMemory(state, warmUpEnds);
    if (std::getenv("VY_SOAK_TRACE") != nullptr)
        std::printf("vy-soak: step %d anon %ld kB heap %ld kB held %ld kB windows %s\n", m_step,
                    m_report.finalKb, state.heapKb, state.heldKb, state.windows.c_str());
    return true;
}

void SoakDriver::randomInput() {
    ++m_report.inputs;
    const int kind = m_random.range(0, 99);
    if (kind < 40) {
        control("key " + std::to_string(m_keys[static_cast<size_t>(
                             m_random.range(0, static_cast<int>(m_keys.size()) - 1))]));
        return;
    }
    const int dx = m_random.range(-60, 60);
    const int dy = m_random.range(-60, 60);
    bool ok = true;
    if (kind < 65) {
        ok = m_mouse.packet(0, dx, dy, 0);
    } else if (kind < 77) { // a click, left or right
        const int button = m_random.chance(75) ? 1 : 2;
        ok = m_mouse.packet(button, 0, 0, 0) && m_mouse.packet(0, 0, 0, 0);
    } else if (kind < 82) { // a double click
        ok = m_mouse.packet(1, 0, 0, 0) && m_mouse.packet(0, 0, 0, 0) &&
             m_mouse.packet(1, 0, 0, 0) && m_mouse.packet(0, 0, 0, 0);
    } else if (kind < 90) {
        ok = m_mouse.packet(0, 0, 0, m_random.chance(50) ? 1 : -1);
    } else { // a drag: press, a few moves, release
        ok = m_mouse.packet(1, 0, 0, 0);
        for (int i = 0, n = m_random.range(1, 6); ok && i < n; ++i)
            ok = m_mouse.packet(1, m_random.range(-40, 40), m_random.range(-40, 40), 0);
        ok = ok && m_mouse.packet(0, 0, 0, 0);
    }
    if (!ok)
        fail("the GUI stopped reading its mouse device");
}

void SoakDriver::randomNotification() {
    ++m_report.notifications;
    const int kind = m_random.range(0, 99);
    std::ostringstream cmd;
    auto randomBody = [this](std::ostringstream& out) {
        if (!m_random.chance(50))
            return;
        std::vector<uint8_t> body(static_cast<size_t>(m_random.range(1, 700)));
        for (uint8_t& b : body)
            b = static_cast<uint8_t>(m_random.chance(50) ? 0 : m_random.range(0, 255));
        out << " " << hex(body);
    };
    if (kind < 55) { // a system notification of any routed SubType, body of any size
        int sub = m_random.range(8, 308);
        if (sub == kShutdownSubType)
            sub = 116;
        cmd << "notify 1000 " << sub << " "
            << (m_random.chance(80) ? m_random.range(0, 70) : m_random.range(0, 0x7FFFFFFF));
        randomBody(cmd);
    } else if (kind < 63) {
        cmd << "changed " << m_random.range(0, 64);
    } else if (kind < 68) {
        static const char* const zones[] = {"CST-8", "GMT0", "EST5EDT", "JST-9", "IST-5:30"};
        cmd << "tz " << zones[m_random.range(0, 4)] << " " << m_random.range(0, 90);
    } else if (kind < 70) {
        cmd << "lang " << m_random.range(0, 40);
    } else if (kind < 76) {
        cmd << "net " << m_random.range(0, 4);
    } else if (kind < 80) {
        cmd << "led " << m_random.range(0, 8);
    } else if (kind < 88) { // another family (preview, playback, parameters, unknown)
        static const int families[] = {100, 300, 600, 2000, 0, 65535};
        cmd << "notify " << families[m_random.range(0, 5)] << " " << m_random.range(0, 400) << " "
            << m_random.range(0, 100);
        randomBody(cmd);
    } else { // a broken frame
        ++m_report.malformed;
        // A header marked invalid (dropped, as App's own are), or one whose length no
        // message can have, after which the GUI must drop the connection and come back.
        const bool tooLarge = m_random.chance(10);
        cmd << "raw "
            << hex(tooLarge ? header(1, 1000, 116, 0x7FFFFFFFu, 1)
                            : header(static_cast<int16_t>(m_random.range(-5, 0)), 1000, 116, 0, 1));
    }
    simCommand(cmd.str());
}

bool SoakDriver::restartSim() {
    ++m_report.restarts;
    if (!simCaughtUp())
        return false;
    m_sim.stop();
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_simDone = m_simSent = 0;
    }
    return startSim();
}

bool SoakDriver::finish() {
    for (int i = 0; i < kEscapesAtEnd; ++i) {
        if (!control("key " + std::to_string(kEscapeKey)))
            return false;
        GuiState state;
        if (!probe(&state))
            return false;
    }
    GuiState state;
    if (!probe(&state))
        return false;
    m_report.finalWindows = state.windows;
    noteMemory(state, false);
    // Every window left must have been there at the start: the main view and what lives
    // with it for the whole run.
    // A locked screen is the one state Escape must not leave: the lock and its login prompt
    // stay, and what lies under them is reached again after a login, not by Escape.
    const bool locked = isLocked(state);
    m_report.endedLocked = locked;
    std::istringstream left(locked ? std::string() : state.windows);
    for (std::string w; std::getline(left, w, ',');) {
        if (("," + m_startWindows + ",").find("," + w + ",") == std::string::npos)
            return fail("window " + w + " still open after " + std::to_string(kEscapesAtEnd) +
                        " Escapes (windows " + state.windows + ", at the start " + m_startWindows +
                        ")");
    }
    if (!locked && state.modal > 0)
        return fail("a modal window is still open after the Escapes");
    const int status = m_gui.stop(30000);
    std::lock_guard<std::mutex> lock(m_mutex);
    if (!m_sanitizerLine.empty())
        return fail("sanitizer: " + m_sanitizerLine);
    if (status != 0)
        return fail("the GUI did not end cleanly (status " + std::to_string(status) + ")");
    return true;
}

SoakReport SoakDriver::run() {
    const auto start = Clock::now();
    if (!setUp() || !tourScreens())
        return m_report;
    const int total = m_options.inputEvents + m_options.notifications;
    const int warmUpEnd = total / 4;
    auto spread = [total](int count, int step) {
        return count > 0 && step > 0 && step % (total / (count + 1) + 1) == 0;
    };
    int inputsLeft = m_options.inputEvents;
    int notesLeft = m_options.notifications;
    for (m_step = 1; m_step <= total && m_report.failure.empty(); ++m_step) {
        if (m_random.range(1, inputsLeft + notesLeft) <= inputsLeft) {
            --inputsLeft;
            randomInput();
        } else {
            --notesLeft;
            randomNotification();
        }
        if (spread(m_options.connectionDrops, m_step) &&
            m_report.drops < m_options.connectionDrops) {
            ++m_report.drops;
            simCommand("drop");
        }
        if (spread(m_options.simRestarts, m_step + total / 7) &&
            m_report.restarts < m_options.simRestarts && !restartSim())
            break;
        const bool warmUpEnds = m_step == warmUpEnd;
        if ((m_step % m_options.batch == 0 || warmUpEnds) && !checkpoint(warmUpEnds))
            break;
    }
    if (m_report.failure.empty() && checkpoint(false))
        finish();
    m_report.seconds = std::chrono::duration<double>(Clock::now() - start).count();
    if (m_report.failure.empty() && m_options.checkMemory && m_report.warmKb > 0 &&
        m_report.peakKb - m_report.warmKb > m_options.flatKb)
        fail("anonymous resident memory grew by " +
             std::to_string(m_report.peakKb - m_report.warmKb) + " kB after the warm-up");
    m_report.ok = m_report.failure.empty();
    return m_report;
}

} // namespace

std::string SoakReport::summary() const {
    std::ostringstream s;
    s << (ok ? "soak ok" : "soak FAILED") << ": seed " << seed << ", " << inputs << " inputs, "
      << notifications << " notifications (" << malformed << " broken frames, " << drops
      << " dropped connections, " << restarts << " simulator restarts) in " << seconds << " s";
    if (seconds > 0)
        s << " (" << static_cast<long>(inputs / seconds) << " inputs/s, "
          << static_cast<long>(notifications / seconds) << " notifications/s)";
    s << "; anonymous resident at rest " << warmKb << " kB after warm-up, peak " << peakKb
      << " kB; with screens open peak " << busyPeakKb << " kB; final " << finalKb
      << " kB (whole resident set: peak " << peakRssKb << " kB, final " << finalRssKb
      << " kB); longest queue " << longestQueue << " events";
    s << "; " << unlocks << " logins at the lock";
    if (refusedUnlocks > 0)
        s << " (" << refusedUnlocks << " refused)";
    if (!finalWindows.empty())
        s << "; windows at the end " << finalWindows << (endedLocked ? " (screen locked)" : "");
    if (!ok)
        s << "\n  " << failure;
    return s.str();
}

SoakReport runSoak(const SoakOptions& options) {
    SoakDriver driver(options);
    return driver.run();
}
