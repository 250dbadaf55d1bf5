// Notifications from the simulator (one write per message) to events handled on the GUI
// queue, against bare reads of the same messages (header, then body) from a socket, and
// the memory held across a million messages.
//
// The throughput comparison runs the flood with a window: at most kWindow messages are
// ahead of the reader, which hands back credits every kCreditStep messages, bare and IPC
// alike. That keeps the client's queue below its 100-node warning, as in service; the same
// comparison with an unbounded flood (every message then logs the backlog twice) is
// reported beside it.
#include "IpcBenchSim.h"
#include "ipc/IpcClient.h"
#include "toolkit/core/EventLoop.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/events/CEvent.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr uint32_t kRoundMessages = 50000;
constexpr int kRounds = 15;
constexpr uint32_t kWindow = 96;     // messages written ahead of the credits
constexpr uint32_t kCreditStep = 32; // messages per credit message
constexpr uint32_t kUnbounded = 0;   // window value: no credits, as fast as the socket takes

// The GUI side's CPU time (every thread of this process; the simulator is another one).
double processCpuSeconds() {
    timespec ts{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &ts);
    return double(ts.tv_sec) + double(ts.tv_nsec) * 1e-9;
}

IpcBenchSim* g_bareSim = nullptr;
IpcBenchSim* g_ipcSim = nullptr;

class CountingReceiver : public VyObject {
    VY_OBJECT(CountingReceiver, VyObject)
public:
    void customEvent(VyEvent* e) override {
        auto* ce = static_cast<CEvent*>(e);
        if (ce->data() && ipcBlockHeader(ce->data()).msgValue != count)
            ++outOfOrder;
        ++count;
        if (windowed && count % kCreditStep == 0)
            client->send(IpcBenchSim::kFloodMain, IpcBenchSim::kCreditSub, &kCreditStep, 4);
        if (count == target && loop)
            loop->quit();
    }
    IpcClient* client = nullptr;
    bool windowed = false;
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
        receiver.client = &client;
        client.UI_IPC_ClientInit(&receiver, config);
    }
    ~IpcSide() { client.stop(); }
    double lastCpuSeconds = 0; // of this process (all its threads) during the last run

    double run(uint32_t messages, uint32_t window) {
        EventLoop loop;
        receiver.loop = &loop;
        receiver.count = 0;
        receiver.target = messages;
        receiver.windowed = window != kUnbounded;
        const uint32_t flood[2] = {messages, window};
        double cpu0 = processCpuSeconds();
        auto t0 = std::chrono::steady_clock::now();
        client.send(IpcBenchSim::kFloodMain, IpcBenchSim::kFloodSub, flood, sizeof flood);
        loop.exec();
        auto t1 = std::chrono::steady_clock::now();
        lastCpuSeconds = processCpuSeconds() - cpu0;
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
    double lastCpuSeconds = 0; // of this process during the last run

    double run(uint32_t messages, uint32_t window) {
        const uint32_t flood[2] = {messages, window};
        double cpu0 = processCpuSeconds();
        auto t0 = std::chrono::steady_clock::now();
        sendToSim(IpcBenchSim::kFloodSub, flood, sizeof flood);
        std::vector<uint8_t> body;
        for (uint32_t i = 0; i < messages; ++i) {
            if (window != kUnbounded && i != 0 && i % kCreditStep == 0)
                sendToSim(IpcBenchSim::kCreditSub, &kCreditStep, 4);
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
        lastCpuSeconds = processCpuSeconds() - cpu0;
        return std::chrono::duration<double>(t1 - t0).count();
    }

private:
    void sendToSim(uint16_t subType, const void* body, uint32_t len) {
        IpcMsgHeader h;
        h.MainType = IpcBenchSim::kFloodMain;
        h.SubType = subType;
        h.dataLen = len;
        uint8_t frame[kIpcHeaderSize + 8];
        if (len > sizeof frame - kIpcHeaderSize)
            std::abort();
        ipcEncodeHeader(h, frame);
        std::memcpy(frame + kIpcHeaderSize, body, len);
        const ssize_t size = ssize_t(kIpcHeaderSize + len);
        if (::send(m_sock, frame, size_t(size), MSG_NOSIGNAL) != size)
            std::abort();
    }

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

void compareWithBareReads(benchmark::State& state, uint32_t window) {
    BareReader bare;
    IpcSide& ipc = ipcSide();
    bare.run(10000, window); // warm-up
    ipc.run(10000, window);
    std::vector<double> bareRate, ipcRate, bareCpu, ipcCpu;
    for (auto _ : state) {
        for (int r = 0; r < kRounds; ++r) {
            bareRate.push_back(kRoundMessages / bare.run(kRoundMessages, window));
            bareCpu.push_back(bare.lastCpuSeconds * 1e6 / kRoundMessages);
            ipcRate.push_back(kRoundMessages / ipc.run(kRoundMessages, window));
            ipcCpu.push_back(ipc.lastCpuSeconds * 1e6 / kRoundMessages);
        }
    }
    // CPU per message on the GUI side: less at the mercy of other load than the rates.
    state.counters["bare_cpu_us_per_msg"] = median(bareCpu);
    state.counters["ipc_cpu_us_per_msg"] = median(ipcCpu);
    state.counters["bare_msgs_per_s"] = median(bareRate);
    state.counters["ipc_msgs_per_s"] = median(ipcRate);
    state.counters["ratio"] = median(ipcRate) / median(bareRate);
    state.counters["out_of_order"] = double(ipc.receiver.outOfOrder);
}

void BM_NotificationsToEventsVsBareReads(benchmark::State& state) {
    compareWithBareReads(state, kWindow); // target: ratio >= 0.7
}
BENCHMARK(BM_NotificationsToEventsVsBareReads)->Iterations(1)->Unit(benchmark::kMillisecond);

void BM_UnboundedFloodVsBareReads(benchmark::State& state) {
    compareWithBareReads(state, kUnbounded);
}
BENCHMARK(BM_UnboundedFloodVsBareReads)->Iterations(1)->Unit(benchmark::kMillisecond);

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
            ipc.run(100000, kUnbounded);
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
