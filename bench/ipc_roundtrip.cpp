// Blocking request round trip through the simulator's transport: a 12-byte request, a
// 64-byte reply. The baseline is a bare socket ping-pong against the same simulator with
// the client's hand-offs and nothing else: a receive thread reads the reply (header, then
// body) and writes a token to a socket pair, a consumer thread reads the token and signals
// the requesting thread on a condition variable. Run pinned to one CPU:
//     taskset -c 0 build-release/bench/bench_ipc_roundtrip
#include "IpcBenchSim.h"
#include "ipc/IpcClient.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <sys/socket.h>
#include <sys/un.h>
#include <thread>
#include <vector>

namespace {

constexpr int kTrips = 50000; // per side
constexpr int kBlock = 100;   // trips per side before switching, to share the machine's noise

const uint8_t kGetBody[12] = {12, 0, 0, 0, 64, 0, 0, 0, 0, 1, 0, 0};

class BarePingPong {
public:
    explicit BarePingPong(const std::string& path) {
        m_sock = ::socket(AF_UNIX, SOCK_STREAM, 0);
        sockaddr_un addr{};
        addr.sun_family = AF_UNIX;
        std::strncpy(addr.sun_path, path.c_str(), sizeof addr.sun_path - 1);
        if (::connect(m_sock, reinterpret_cast<sockaddr*>(&addr), sizeof addr) != 0 ||
            ::socketpair(AF_UNIX, SOCK_STREAM, 0, m_wake) != 0)
            std::abort();
        m_reader = std::thread([this] { readLoop(); });
        m_consumer = std::thread([this] { consumeLoop(); });
    }
    ~BarePingPong() {
        ::shutdown(m_sock, SHUT_RDWR);
        m_reader.join();
        ::shutdown(m_wake[0], SHUT_RDWR); // ends the consumer's read
        m_consumer.join();
        ::close(m_sock);
        ::close(m_wake[0]);
        ::close(m_wake[1]);
    }

    void roundTrip() {
        IpcMsgHeader h;
        h.MainType = 600;
        h.seqNumber = ++m_seq;
        h.dataLen = sizeof kGetBody;
        uint8_t frame[kIpcHeaderSize + sizeof kGetBody];
        ipcEncodeHeader(h, frame);
        std::memcpy(frame + kIpcHeaderSize, kGetBody, sizeof kGetBody);
        if (::send(m_sock, frame, sizeof frame, MSG_NOSIGNAL) != ssize_t(sizeof frame))
            std::abort();
        std::unique_lock<std::mutex> lock(m_mutex);
        m_cond.wait(lock, [this] { return m_replies == m_seq; });
    }

private:
    void readLoop() {
        std::vector<uint8_t> body;
        for (;;) {
            uint8_t raw[kIpcHeaderSize];
            if (::recv(m_sock, raw, sizeof raw, MSG_WAITALL) != ssize_t(sizeof raw))
                return;
            IpcMsgHeader h = ipcDecodeHeader(raw);
            body.resize(h.dataLen);
            if (h.dataLen && ::recv(m_sock, body.data(), h.dataLen, MSG_WAITALL) != h.dataLen)
                return;
            if (::write(m_wake[0], "ok", 3) != 3)
                return;
        }
    }

    void consumeLoop() {
        char token[3];
        while (::read(m_wake[1], token, sizeof token) == ssize_t(sizeof token)) {
            {
                std::lock_guard<std::mutex> lock(m_mutex);
                ++m_replies;
            }
            m_cond.notify_all();
        }
    }

    int m_sock = -1;
    int m_wake[2] = {-1, -1};
    uint32_t m_seq = 0;
    std::mutex m_mutex;
    std::condition_variable m_cond;
    uint32_t m_replies = 0; // guarded by m_mutex
    std::thread m_reader;
    std::thread m_consumer;
};

double percentile(std::vector<double> v, double p) {
    std::sort(v.begin(), v.end());
    return v[size_t(p * double(v.size() - 1))];
}

template <typename Fn>
void timeBlock(std::vector<double>& out, Fn trip) {
    for (int i = 0; i < kBlock; ++i) {
        auto t0 = std::chrono::steady_clock::now();
        trip();
        auto t1 = std::chrono::steady_clock::now();
        out.push_back(std::chrono::duration<double, std::micro>(t1 - t0).count());
    }
}

void BM_BlockingRequestVsBarePingPong(benchmark::State& state) {
    IpcBenchSim bareSim;
    IpcBenchSim ipcSim;
    BarePingPong bare(bareSim.path());
    IpcClient client;
    IpcClientConfig config;
    config.socketPath = ipcSim.path();
    config.joinableThreads = true;
    client.UI_IPC_ClientInit(nullptr, config);
    auto ipcTrip = [&] {
        IpcMsgBlock reply = client.blockingRequest(600, 0, nullptr, 0, kGetBody, 12);
        benchmark::DoNotOptimize(reply.get());
    };
    // Warm both paths up (connection, allocator, caches).
    for (int i = 0; i < 1000; ++i) {
        bare.roundTrip();
        ipcTrip();
    }

    std::vector<double> bareUs, ipcUs;
    for (auto _ : state) {
        bareUs.clear();
        ipcUs.clear();
        for (int done = 0; done < kTrips; done += kBlock) {
            timeBlock(bareUs, [&] { bare.roundTrip(); });
            timeBlock(ipcUs, ipcTrip);
        }
    }
    double bareMedian = percentile(bareUs, 0.5);
    double ipcMedian = percentile(ipcUs, 0.5);
    double ipcP99 = percentile(ipcUs, 0.99);
    state.counters["bare_median_us"] = bareMedian;
    state.counters["bare_p99_us"] = percentile(bareUs, 0.99);
    state.counters["ipc_median_us"] = ipcMedian;
    state.counters["ipc_p99_us"] = ipcP99;
    state.counters["median_ratio"] = ipcMedian / bareMedian;    // target <= 1.3
    state.counters["ipc_p99_over_median"] = ipcP99 / ipcMedian; // target <= 2
    client.stop();
}
BENCHMARK(BM_BlockingRequestVsBarePingPong)->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
