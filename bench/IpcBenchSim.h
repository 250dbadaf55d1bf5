#pragma once
// The recorder simulator in a child process, for the IPC benchmarks: it answers (600, 0)
// with a 64-byte record and, on (9000, 1) with a u32 count and an optional u32 window,
// writes that many (1000, 8) notifications with msgValue i and a 4-byte body, each with one
// write. With a window of 0 (or none) they go out as fast as the socket takes them; with a
// window W at most W are written ahead of the credits the reader returns: each (9000, 2)
// with a u32 n allows n more. A GUI is not meant to run with more than 100 messages queued
// (it warns above that), so a throughput figure taken far beyond it measures the warnings.
#include "SimServer.h"

#include <condition_variable>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

class IpcBenchSim {
public:
    static constexpr uint16_t kFloodMain = 9000;
    static constexpr uint16_t kFloodSub = 1;
    static constexpr uint16_t kCreditSub = 2;

    IpcBenchSim() {
        char dir[] = "/tmp/ipc-bench-XXXXXX";
        if (!::mkdtemp(dir))
            std::abort();
        m_dir = dir;
        m_path = m_dir + "/IPC_UI";
        int ready[2];
        if (::pipe(ready) != 0)
            std::abort();
        m_child = ::fork();
        if (m_child == 0) {
            ::close(ready[0]);
            runChild(ready[1]);
            std::_Exit(0);
        }
        ::close(ready[1]);
        char byte = 0;
        if (::read(ready[0], &byte, 1) != 1)
            std::abort();
        ::close(ready[0]);
    }
    ~IpcBenchSim() {
        ::kill(m_child, SIGTERM);
        ::waitpid(m_child, nullptr, 0);
        ::unlink(m_path.c_str());
        ::rmdir(m_dir.c_str());
    }
    IpcBenchSim(const IpcBenchSim&) = delete;
    IpcBenchSim& operator=(const IpcBenchSim&) = delete;

    const std::string& path() const { return m_path; }

private:
    void runChild(int readyFd) {
        sigset_t stop;
        sigemptyset(&stop);
        sigaddset(&stop, SIGTERM);
        pthread_sigmask(SIG_BLOCK, &stop, nullptr);
        SimServer server;
        server.setLogging(false);
        server.addHandler(600, 0, [](SimServer& s, const SimMessage& m) {
            uint8_t record[64] = {};
            return s.reply(m, record, sizeof record);
        });
        // A windowed flood is written by a thread of its own: the credits arrive as
        // messages on the server thread, which must stay free to read them.
        std::mutex mutex;
        std::condition_variable cond;
        uint64_t allowed = 0;
        bool quit = false;
        std::thread flooder;
        server.addHandler(kFloodMain, kCreditSub, [&](SimServer&, const SimMessage& m) {
            if (m.body.size() < 4)
                return false;
            uint32_t more;
            std::memcpy(&more, m.body.data(), 4);
            std::lock_guard<std::mutex> lock(mutex);
            allowed += more;
            cond.notify_all();
            return true;
        });
        server.addHandler(kFloodMain, kFloodSub, [&](SimServer& s, const SimMessage& m) {
            if (m.body.size() < 4)
                return false;
            uint32_t count, window = 0;
            std::memcpy(&count, m.body.data(), 4);
            if (m.body.size() >= 8)
                std::memcpy(&window, m.body.data() + 4, 4);
            if (window == 0) {
                for (uint32_t i = 0; i < count; ++i)
                    if (!s.notify(1000, 8, i, &i, 4))
                        return true; // the reader went away
                return true;
            }
            if (flooder.joinable())
                flooder.join(); // the previous flood was consumed: its reader asked again
            {
                std::lock_guard<std::mutex> lock(mutex);
                allowed = window;
            }
            flooder = std::thread([&s, &mutex, &cond, &allowed, &quit, count] {
                for (uint32_t i = 0; i < count; ++i) {
                    {
                        std::unique_lock<std::mutex> lock(mutex);
                        cond.wait(lock, [&] { return quit || i < allowed; });
                        if (quit)
                            return;
                    }
                    if (!s.notify(1000, 8, i, &i, 4))
                        return;
                }
            });
            return true;
        });
        if (!server.listen(m_path) || !server.start())
            std::_Exit(1);
        char byte = 1;
        if (::write(readyFd, &byte, 1) != 1)
            std::_Exit(1);
        int sig = 0;
        sigwait(&stop, &sig);
        {
            std::lock_guard<std::mutex> lock(mutex);
            quit = true;
            cond.notify_all();
        }
        server.stop();
        if (flooder.joinable())
            flooder.join();
    }

    std::string m_dir;
    std::string m_path;
    pid_t m_child = -1;
};
