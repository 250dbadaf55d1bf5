#include "SoakChild.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <sys/wait.h>
#include <unistd.h>

SoakChild::~SoakChild() {
    stop(2000);
}

bool SoakChild::start(const std::vector<std::string>& argv, const std::string& cwd,
                      const std::map<std::string, std::string>& env, const std::string& logPath,
                      LineWatcher watcher) {
    int in[2];
    int out[2];
    if (pipe2(in, O_CLOEXEC) != 0)
        return false;
    if (pipe2(out, O_CLOEXEC) != 0) {
        close(in[0]);
        close(in[1]);
        return false;
    }
    m_status = -1;
    m_pid = fork();
    if (m_pid == 0) {
        dup2(in[0], 0);
        dup2(out[1], 1);
        dup2(out[1], 2);
        if (chdir(cwd.c_str()) != 0)
            _exit(126);
        for (const auto& [key, value] : env)
            setenv(key.c_str(), value.c_str(), 1);
        std::vector<char*> args;
        args.reserve(argv.size() + 1);
        for (const std::string& a : argv)
            args.push_back(const_cast<char*>(a.c_str()));
        args.push_back(nullptr);
        execvp(args[0], args.data());
        _exit(127);
    }
    close(in[0]);
    close(out[1]);
    if (m_pid < 0) {
        close(in[1]);
        close(out[0]);
        return false;
    }
    m_stdin = in[1];
    m_reader = std::thread(&SoakChild::readLoop, this, out[0], logPath, std::move(watcher));
    return true;
}

void SoakChild::readLoop(int fd, const std::string& logPath, const LineWatcher& watcher) {
    std::ofstream log(logPath, std::ios::app);
    std::string line;
    char buffer[4096];
    for (;;) {
        const ssize_t n = read(fd, buffer, sizeof buffer);
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            break;
        for (ssize_t i = 0; i < n; ++i) {
            if (buffer[i] != '\n') {
                line += buffer[i];
                continue;
            }
            log << line << '\n';
            if (watcher)
                watcher(line);
            line.clear();
        }
    }
    if (!line.empty()) {
        log << line << '\n';
        if (watcher)
            watcher(line);
    }
    close(fd);
}

bool SoakChild::send(const std::string& line) {
    if (m_stdin < 0)
        return false;
    const std::string text = line + "\n";
    size_t done = 0;
    while (done < text.size()) {
        const ssize_t n = write(m_stdin, text.data() + done, text.size() - done);
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            return false;
        done += static_cast<size_t>(n);
    }
    return true;
}

bool SoakChild::alive() {
    if (m_pid <= 0)
        return false;
    int status = 0;
    const pid_t r = waitpid(m_pid, &status, WNOHANG);
    if (r == m_pid) {
        m_status = status;
        m_pid = -1;
        return false;
    }
    return r == 0;
}

int SoakChild::stop(int graceMs) {
    if (m_stdin >= 0) {
        close(m_stdin);
        m_stdin = -1;
    }
    if (m_pid > 0) {
        kill(m_pid, SIGTERM);
        bool exited = false;
        for (int waited = 0; waited < graceMs; waited += 10) {
            int status = 0;
            if (waitpid(m_pid, &status, WNOHANG) == m_pid) {
                m_status = status;
                exited = true;
                break;
            }
            usleep(10 * 1000);
        }
        if (!exited) {
            kill(m_pid, SIGKILL);
            waitpid(m_pid, nullptr, 0);
            m_status = -1;
        }
        m_pid = -1;
    }
    if (m_reader.joinable())
        m_reader.join();
    return m_status;
}

long SoakChild::statusKb(const char* field) const {
    if (m_pid <= 0)
        return 0;
    std::ifstream status("/proc/" + std::to_string(m_pid) + "/status");
    for (std::string line; std::getline(status, line);) {
        if (line.rfind(field, 0) == 0)
            return std::strtol(line.c_str() + std::strlen(field), nullptr, 10);
    }
    return 0;
}
