#pragma once
// Child processes for the end-to-end tests: recorder-sim and dvrgui started from their build
// folder on a socket in a temporary folder, their output captured in files that the test
// reads line by line, their standard input a pipe the test writes commands to.
//
// Waiting for a line has a deadline only so that a broken build fails instead of hanging;
// no result depends on how long anything took.
#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

class E2eTempDir {
public:
    E2eTempDir() {
        char tmpl[] = "/tmp/vy-e2e-XXXXXX";
        const char* made = mkdtemp(tmpl);
        m_path = made != nullptr ? made : "";
    }
    ~E2eTempDir() {
        if (!m_path.empty() && std::getenv("VY_KEEP_E2E") == nullptr)
            std::system(("rm -rf '" + m_path + "'").c_str());
    }
    const std::string& path() const { return m_path; }
    std::string file(const std::string& name) const { return m_path + "/" + name; }
    void write(const std::string& name, const std::string& text) const {
        std::ofstream(file(name)) << text;
    }

private:
    std::string m_path;
};

class E2eProcess {
public:
    E2eProcess() = default;
    E2eProcess(const E2eProcess&) = delete;
    E2eProcess& operator=(const E2eProcess&) = delete;
    ~E2eProcess() { stop(); }

    // Starts `program` in `cwd` with the extra environment; stdout and stderr go to `log`.
    bool start(const std::string& program, const std::string& cwd,
               const std::map<std::string, std::string>& env, const std::string& log) {
        m_log = log;
        int in[2];
        if (pipe(in) != 0)
            return false;
        m_pid = fork();
        if (m_pid == 0) {
            dup2(in[0], 0);
            close(in[0]);
            close(in[1]);
            const int out = open(log.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
            dup2(out, 1);
            dup2(out, 2);
            close(out);
            if (chdir(cwd.c_str()) != 0)
                _exit(126);
            for (const auto& [k, v] : env)
                setenv(k.c_str(), v.c_str(), 1);
            std::vector<std::string> args = execPrefix();
            args.push_back(program);
            std::vector<char*> argv;
            argv.reserve(args.size() + 1);
            for (std::string& a : args)
                argv.push_back(a.data());
            argv.push_back(nullptr);
            execvp(argv[0], argv.data());
            _exit(127);
        }
        close(in[0]);
        m_stdin = in[1];
        return m_pid > 0;
    }

    pid_t pid() const { return m_pid; }

    // A cross build's test binary runs under an emulator, and so must the programs it
    // starts: the build exports the emulator command line in VY_EXEC_PREFIX
    // ("qemu-arm -L /sysroot"), split here at spaces.
    static std::vector<std::string> execPrefix() {
        std::vector<std::string> words;
        const char* prefix = std::getenv("VY_EXEC_PREFIX");
        std::istringstream in(prefix != nullptr ? prefix : "");
        for (std::string w; in >> w;)
            words.push_back(w);
        return words;
    }

    void send(const std::string& line) {
        const std::string text = line + "\n";
        if (m_stdin >= 0)
            (void)!write(m_stdin, text.data(), text.size());
    }

    std::string output() const {
        std::ifstream in(m_log);
        std::stringstream s;
        s << in.rdbuf();
        return s.str();
    }
    std::vector<std::string> lines() const {
        std::vector<std::string> out;
        std::istringstream in(output());
        for (std::string l; std::getline(in, l);)
            out.push_back(l);
        return out;
    }

    // Waits until the output holds `text` `count` times; false at the deadline.
    bool waitFor(const std::string& text, int count = 1, int deadlineSec = 30) const {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(deadlineSec);
        while (std::chrono::steady_clock::now() < end) {
            if (occurrences(text) >= count)
                return true;
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        }
        return false;
    }
    int occurrences(const std::string& text) const {
        const std::string out = output();
        int n = 0;
        for (size_t pos = out.find(text); pos != std::string::npos;
             pos = out.find(text, pos + text.size()))
            ++n;
        return n;
    }

    // SIGTERM, then the exit status (or -1 when it had to be killed).
    int stop() {
        if (m_stdin >= 0) {
            close(m_stdin);
            m_stdin = -1;
        }
        if (m_pid <= 0)
            return m_status;
        kill(m_pid, SIGTERM);
        for (int i = 0; i < 500; ++i) {
            int status = 0;
            if (waitpid(m_pid, &status, WNOHANG) == m_pid) {
                m_pid = -1;
                m_status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
                return m_status;
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        kill(m_pid, SIGKILL);
        waitpid(m_pid, nullptr, 0);
        m_pid = -1;
        m_status = -1;
        return m_status;
    }

private:
    pid_t m_pid = -1;
    int m_stdin = -1;
    int m_status = -1;
    std::string m_log;
};

// A recorder-sim and a dvrgui talking to each other in a fresh temporary folder.
class E2eSession {
public:
    static std::string simBinary() {
        return std::string(VY_BINARY_DIR) + "/tools/recorder-sim/recorder-sim";
    }
    static std::string guiBinary() { return std::string(VY_BINARY_DIR) + "/src/app/dvrgui"; }

    // `config`: recorder-sim configuration lines.
    bool startSim(const std::string& config = {}) {
        dir.write("sim.conf", config);
        return sim.start(simBinary(), dir.path(),
                         {{"VY_IPC_SOCKET", socket()}, {"VY_SIM_CONFIG", dir.file("sim.conf")}},
                         dir.file("sim.log")) &&
               sim.waitFor("sim: listening on");
    }
    // The GUI on a small memory framebuffer, the delayed start shortened 100 times.
    bool startGui(const std::map<std::string, std::string>& extraEnv = {}) {
        std::map<std::string, std::string> env = {{"VY_IPC_SOCKET", socket()},
                                                  {"VY_FBDEV_NODE", "mem:320x180"},
                                                  {"VY_DELAYED_START_SCALE", "0.01"}};
        for (const auto& [k, v] : extraEnv)
            env[k] = v;
        return gui.start(guiBinary(), VY_RESOURCES_DIR, env, dir.file("gui.log"));
    }
    std::string socket() const { return dir.file("ipc.sock"); }

    E2eTempDir dir;
    E2eProcess sim;
    E2eProcess gui;
};
