#pragma once
// A child process of the soak (recorder-sim or dvrgui): its standard input a pipe the driver
// writes commands to, its output read line by line by a thread of its own, copied into a log
// file and offered to a watcher (sanitizer reports, "state:" answers).
#include <sys/types.h>

#include <condition_variable>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

class SoakChild {
public:
    using LineWatcher = std::function<void(const std::string& line)>;

    SoakChild() = default;
    SoakChild(const SoakChild&) = delete;
    SoakChild& operator=(const SoakChild&) = delete;
    ~SoakChild();

    // Starts `argv` in `cwd` with the extra environment; every output line goes to `logPath`
    // and to `watcher` (on the reader thread).
    bool start(const std::vector<std::string>& argv, const std::string& cwd,
               const std::map<std::string, std::string>& env, const std::string& logPath,
               LineWatcher watcher);
    bool send(const std::string& line);
    // True while the process has not exited; records its status when it has.
    bool alive();
    // SIGTERM, up to `graceMs` for the exit, then SIGKILL. The exit status as waitpid gives
    // it, or -1 when the process had to be killed.
    int stop(int graceMs = 10000);
    pid_t pid() const { return m_pid; }
    // The exit status once the process ended (alive() false), else -1.
    int exitStatus() const { return m_status; }
    // A field of /proc/PID/status in kB ("VmRSS:" the whole resident set, "RssAnon:" its
    // anonymous part), 0 when it cannot be read.
    long statusKb(const char* field = "VmRSS:") const;

private:
    void readLoop(int fd, const std::string& logPath, const LineWatcher& watcher);

    pid_t m_pid = -1;
    int m_stdin = -1;
    int m_status = -1;
    std::thread m_reader;
};
