#pragma once
// The recorder simulator in a child process, for the IPC benchmarks: it answers (600, 0)
// with a 64-byte record and, on (9000, 1) with a u32 count, writes that many (1000, 8)
// notifications with msgValue i and a 4-byte body, each with one write.
#include "SimServer.h"

#include <csignal>
#include <cstdlib>
#include <cstring>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

class IpcBenchSim {
public:
    static constexpr uint16_t kFloodMain = 9000;
    static constexpr uint16_t kFloodSub = 1;

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
        server.addHandler(kFloodMain, kFloodSub, [](SimServer& s, const SimMessage& m) {
            if (m.body.size() < 4)
                return false;
            uint32_t count;
            std::memcpy(&count, m.body.data(), 4);
            for (uint32_t i = 0; i < count; ++i)
                if (!s.notify(1000, 8, i, &i, 4))
                    return true; // the reader went away
            return true;
        });
        if (!server.listen(m_path) || !server.start())
            std::_Exit(1);
        char byte = 1;
        if (::write(readyFd, &byte, 1) != 1)
            std::_Exit(1);
        int sig = 0;
        sigwait(&stop, &sig);
        server.stop();
    }

    std::string m_dir;
    std::string m_path;
    pid_t m_child = -1;
};
