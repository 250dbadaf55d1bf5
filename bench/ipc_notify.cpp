// Notifications from the simulator (one write per message) to events handled on the GUI
// queue, against bare reads of the same messages (header, then body) from a socket, and
// the memory held across a million messages.
#include "IpcBenchSim.h"
#include "ipc/IpcClient.h"
#include "toolkit/core/CEvent.h"
#include "toolkit/core/EventLoop.h"
#include "toolkit/core/VyApplication.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr uint32_t kRoundMessages = 50000;
constexpr int kRounds = 15;

IpcBenchSim* g_bareSim = nullptr;
IpcBenchSim* g_ipcSim = nullptr;

class CountingReceiver : public VyObject {
    VY_OBJECT(CountingReceiver, VyObject)
public:
    void customEvent(VyEvent* e) override {
        auto* ce = static_cast<CEvent*>(e);
        if (ce->data() && ipcBlockHeader(ce->data()).msgValue != count)
            ++outOfOrder;
        if (++count == target && loop)
            loop->quit();
    }
    uint32_t count = 0;
    uint32_t target = 0;
    uint64_t outOfOrder = 0;
    EventLoop* loop = nullptr;
};

struct IpcSide {
    CountingReceiver receiver;
    IpcClient client;
    IpcSide() {
        IpcClientConfig config;
        config.socketPath = g_ipcSim->path();
        config.joinableThreads = true;
        client.init(&receiver, config);
    }
    ~IpcSide() { client.stop(); }

    double run(uint32_t messages) {
        EventLoop loop;
        receiver.loop = &loop;
        receiver.count = 0;
        receiver.target = messages;
        auto t0 = std::chrono::steady_clock::now();
        client.send(IpcBenchSim::kFloodMain, IpcBenchSim::kFloodSub, &messages, 4);
        loop.exec();
        auto t1 = std::chrono::steady_clock::now();
        return std::chrono::duration<double>(t1 - t0).count();
    }
};

class BareReader {
public:
    BareReader() {
        m_sock = ::socket(AF_UNIX, SOCK_STREAM, 0);
        sockaddr_un addr{};
        addr.sun_family = AF_UNIX;
        std::strncpy(addr.sun_path, g_bareSim->path().c_str(), sizeof addr.sun_path - 1);
        if (::connect(m_sock, reinterpret_cast<sockaddr*>(&addr), sizeof addr) != 0)
            std::abort();
    }
    ~BareReader() { ::close(m_sock); }

    double run(uint32_t messages) {
        IpcMsgHeader h;
        h.MainType = IpcBenchSim::kFloodMain;
        h.SubType = IpcBenchSim::kFloodSub;
        h.dataLen = 4;
        uint8_t request[kIpcHeaderSize + 4];
        ipcEncodeHeader(h, request);
        std::memcpy(request + kIpcHeaderSize, &messages, 4);
        auto t0 = std::chrono::steady_clock::now();
        if (::send(m_sock, request, sizeof request, MSG_NOSIGNAL) != ssize_t(sizeof request))
            std::abort();
        std::vector<uint8_t> body;
        for (uint32_t i = 0; i < messages; ++i) {
            uint8_t raw[kIpcHeaderSize];
            if (::recv(m_sock, raw, sizeof raw, MSG_WAITALL) != ssize_t(sizeof raw))
                std::abort();
            IpcMsgHeader got = ipcDecodeHeader(raw);
            body.resize(got.dataLen);
            if (got.dataLen &&
                ::recv(m_sock, body.data(), got.dataLen, MSG_WAITALL) != ssize_t(got.dataLen))
                std::abort();
            benchmark::DoNotOptimize(body.data());
        }
        auto t1 = std::chrono::steady_clock::now();
        return std::chrono::duration<double>(t1 - t0).count();
    }

private:
    int m_sock = -1;
};

IpcSide& ipcSide() {
    static IpcSide* side = new IpcSide; // one client per process, stopped at exit by main
    return *side;
}

double median(std::vector<double> v) {
    std::sort(v.begin(), v.end());
    return v[v.size() / 2];
}

void BM_NotificationsToEventsVsBareReads(benchmark::State& state) {
    BareReader bare;
    IpcSide& ipc = ipcSide();
    bare.run(10000); // warm-up
    ipc.run(10000);
    std::vector<double> bareRate, ipcRate;
    for (auto _ : state) {
        for (int r = 0; r < kRounds; ++r) {
            bareRate.push_back(kRoundMessages / bare.run(kRoundMessages));
            ipcRate.push_back(kRoundMessages / ipc.run(kRoundMessages));
        }
    }
    state.counters["bare_msgs_per_s"] = median(bareRate);
    state.counters["ipc_msgs_per_s"] = median(ipcRate);
    state.counters["ratio"] = median(ipcRate) / median(bareRate); // target >= 0.7
    state.counters["out_of_order"] = double(ipc.receiver.outOfOrder);
}
BENCHMARK(BM_NotificationsToEventsVsBareReads)->Iterations(1)->Unit(benchmark::kMillisecond);

long currentRssKb() {
    long pages = 0, resident = 0;
    FILE* f = std::fopen("/proc/self/statm", "r");
    if (f) {
        if (std::fscanf(f, "%ld %ld", &pages, &resident) != 2)
            resident = 0;
        std::fclose(f);
    }
    return resident * (sysconf(_SC_PAGESIZE) / 1024);
}

long peakRssKb() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

void BM_MillionNotificationsMemory(benchmark::State& state) {
    IpcSide& ipc = ipcSide();
    constexpr int kParts = 10; // 10 x 100,000 messages
    long rssAfterFirst = 0, peakAfterFirst = 0;
    for (auto _ : state) {
        for (int part = 0; part < kParts; ++part) {
            ipc.run(100000);
            if (part == 0) {
                rssAfterFirst = currentRssKb();
                peakAfterFirst = peakRssKb();
            }
        }
    }
    state.counters["rss_after_first_100k_kb"] = double(rssAfterFirst);
    state.counters["rss_after_1M_kb"] = double(currentRssKb());
    state.counters["peak_rss_after_first_100k_kb"] = double(peakAfterFirst);
    state.counters["peak_rss_after_1M_kb"] = double(peakRssKb());
    state.counters["out_of_order"] = double(ipc.receiver.outOfOrder);
}
BENCHMARK(BM_MillionNotificationsMemory)->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    // A flood keeps more than 100 messages queued, so the client logs its backlog warning
    // for most of them. The warning stays on (it is part of what is measured: formatting
    // and one write each), but into /dev/null: a terminal's scrolling speed is not the
    // transport's.
    int devNull = ::open("/dev/null", O_WRONLY);
    if (devNull >= 0) {
        ::dup2(devNull, STDERR_FILENO);
        ::close(devNull);
    }
    // The simulators are forked before any thread of this process exists.
    IpcBenchSim bareSim;
    IpcBenchSim ipcSim;
    g_bareSim = &bareSim;
    g_ipcSim = &ipcSim;
    VyApplication::setDisplayDevice("mem:320x240");
    VyApplication app;
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    ipcSide().client.stop();
    return 0;
}
