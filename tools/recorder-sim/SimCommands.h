#pragma once
// Commands for the simulated recorder, typed on its standard input or read from a script
// file (one per line, '#' comments; "+MS command" waits MS milliseconds first):
//   notify MAIN SUB [VALUE [HEXBODY]]   any notification, e.g. "notify 1000 116 1"
//   tz TEXT [INDEX]                     time zone, e.g. "tz CST-8"
//   net STATUS | led STATE | shutdown   network status (116), LED state (47), shutdown (280)
//   stage N                             stage notification (1000, N)
//   changed BLOCK                       "parameter changed" for a block
//   setbyte BLOCK OFFSET VALUE          change a stored block, then "parameter changed"
//   sleep MS                            pause (scripts)
//   await MAIN SUB [COUNT]              wait until the GUI sent that message COUNT times
//   key CODE|NAME [ORIGIN]              a remote key (notification 186), see SimKeyCommand.h
//   exit                                stop the simulator
//   alarm, record, manual, camera, videoloss, name, usb, disk   the live view (SimLiveView.h)
//   help
// A command that ran is logged as "sim: > LINE" after it has taken effect.
#include <atomic>
#include <functional>
#include <istream>
#include <string>
#include <vector>

class SimRecorder;

class SimCommands {
public:
    explicit SimCommands(SimRecorder& recorder)
        : m_recorder(recorder) {}

    // Runs one line; false (with a log line) when it cannot be understood.
    bool run(const std::string& line);
    // Runs every line of the stream until its end or an "exit".
    void runAll(std::istream& in);

    // Commands of other parts of the simulator (the live view's): tried in order for a line
    // no built-in command takes; true when one ran it.
    using Extension = std::function<bool(const std::vector<std::string>& words)>;
    static void addExtension(Extension extension);

    // Console on standard input and the script file, each on a thread of its own.
    void startConsole();
    void startScript(const std::string& path);

private:
    std::atomic<bool> m_exit{false};
    SimRecorder& m_recorder;
};
