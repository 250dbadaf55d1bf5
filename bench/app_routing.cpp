// A notification from the socket to its receiver's handler: App writes (1000, 8), the IPC
// client's receive and dispatch threads post it, the UiManager routes it to the receiver
// registered for event 1018. Measured per message, against a bare write and read of the same
// 24 bytes over a socket pair in the same binary.
#include "ipc/IpcClient.h"
#include "model/SystemInfo.h"
#include "model/UiManager.h"
#include "model/UiModels.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/events/CEvent.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <string>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

class TimedReceiver : public VyObject {
    VY_OBJECT(TimedReceiver, VyObject)
public:
    void customEvent(VyEvent* e) override {
        arrived = Clock::now();
        ++count;
        e->accept();
    }
    Clock::time_point arrived;
    uint64_t count = 0;
};

void writeAll(int fd, const uint8_t* p, size_t n) {
    while (n > 0) {
        const ssize_t w = ::write(fd, p, n);
        if (w <= 0)
            std::abort();
        p += w;
        n -= size_t(w);
    }
}

void readAll(int fd, uint8_t* p, size_t n) {
    while (n > 0) {
        const ssize_t r = ::read(fd, p, n);
        if (r <= 0)
            std::abort();
        p += r;
        n -= size_t(r);
    }
}

void reportSamples(benchmark::State& state, std::vector<double>& us) {
    std::sort(us.begin(), us.end());
    state.counters["median_us"] = us[us.size() / 2];
    state.counters["p99_us"] = us[us.size() * 99 / 100];
}

std::vector<uint8_t> notificationBytes() {
    IpcMsgHeader h;
    h.MainType = 1000;
    h.SubType = 8; // forwarded as 1018
    h.msgValue = 1;
    std::vector<uint8_t> bytes(kIpcHeaderSize);
    ipcEncodeHeader(h, bytes.data());
    return bytes;
}

// The whole path inside the GUI process; with `viaManager` false the IPC client posts straight
// to the receiver, which shows what the UiManager's routing adds.
void notificationToReceiver(benchmark::State& state, bool viaManager) {
    char dir[] = "/tmp/app-bench-XXXXXX";
    if (!::mkdtemp(dir))
        std::abort();
    const std::string path = std::string(dir) + "/IPC_UI";
    const int listener = ::socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un addr{};
    addr.sun_family = AF_UNIX;
    std::snprintf(addr.sun_path, sizeof addr.sun_path, "%s", path.c_str());
    if (::bind(listener, reinterpret_cast<sockaddr*>(&addr), sizeof addr) != 0 ||
        ::listen(listener, 1) != 0)
        std::abort();

    VyApplication::setDisplayDevice("mem:64x64");
    auto app = std::make_unique<VyApplication>();
    std::memset(&SystemInfo::record(), 0, sizeof(SystemInfoRecord));
    IpcClient client;
    IpcClientConfig config;
    config.socketPath = path;
    config.joinableThreads = true;
    client.UI_IPC_ClientInit(nullptr, config);
    const int app_fd = ::accept(listener, nullptr, nullptr);
    // Without a link to App the manager's set-up reads zeros and sends nothing.
    auto models = std::make_unique<UiModels>();
    auto manager = std::make_unique<UiManager>(models.get(), nullptr);
    TimedReceiver receiver;
    manager->setReceiver(1018, &receiver);
    client.setEventReceiver(viaManager ? static_cast<VyObject*>(manager.get()) : &receiver);

    const std::vector<uint8_t> bytes = notificationBytes();
    std::vector<double> us;
    us.reserve(100000);
    for (auto _ : state) {
        const uint64_t before = receiver.count;
        const Clock::time_point sent = Clock::now();
        writeAll(app_fd, bytes.data(), bytes.size());
        while (receiver.count == before)
            app->processOneEvent();
        us.push_back(std::chrono::duration<double, std::micro>(receiver.arrived - sent).count());
    }
    reportSamples(state, us);
    ::close(app_fd);
    client.stop();
    manager.reset();
    models.reset();
    app.reset();
    ::close(listener);
    ::unlink(path.c_str());
    ::rmdir(dir);
}
void BM_NotificationToReceiver(benchmark::State& state) {
    notificationToReceiver(state, true);
}
BENCHMARK(BM_NotificationToReceiver)->Iterations(20000)->Unit(benchmark::kMicrosecond);

void BM_NotificationStraightToReceiver(benchmark::State& state) {
    notificationToReceiver(state, false);
}
BENCHMARK(BM_NotificationStraightToReceiver)->Iterations(20000)->Unit(benchmark::kMicrosecond);

// Baseline: the same bytes written and read back over a bare socket pair, one thread.
void BM_BareSocketWriteRead(benchmark::State& state) {
    int fds[2];
    if (::socketpair(AF_UNIX, SOCK_STREAM, 0, fds) != 0)
        std::abort();
    const std::vector<uint8_t> bytes = notificationBytes();
    uint8_t in[kIpcHeaderSize];
    std::vector<double> us;
    us.reserve(100000);
    for (auto _ : state) {
        const Clock::time_point sent = Clock::now();
        writeAll(fds[0], bytes.data(), bytes.size());
        readAll(fds[1], in, sizeof in);
        us.push_back(std::chrono::duration<double, std::micro>(Clock::now() - sent).count());
    }
    reportSamples(state, us);
    ::close(fds[0]);
    ::close(fds[1]);
}
BENCHMARK(BM_BareSocketWriteRead)->Iterations(20000)->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
