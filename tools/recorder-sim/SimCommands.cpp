#include "SimCommands.h"

#include "SimKeyCommand.h"
#include "SimRecorder.h"
#include "protocol/MainType.h"
#include "protocol/SubType.h"

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <mutex>
#include <sstream>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

constexpr long kMaxSleepMs = 3600L * 1000; // one hour; more is a typing error

bool number(const std::string& text, unsigned long max, unsigned long* out) {
    if (text.empty() || text[0] == '-')
        return false;
    char* end = nullptr;
    errno = 0;
    const unsigned long v = std::strtoul(text.c_str(), &end, 0);
    if (errno != 0 || *end != '\0' || v > max)
        return false;
    *out = v;
    return true;
}

bool hexBody(const std::string& text, std::vector<uint8_t>* out) {
    if (text.size() % 2 != 0)
        return false;
    for (size_t i = 0; i < text.size(); i += 2) {
        unsigned long byte = 0;
        if (!number("0x" + text.substr(i, 2), 0xFF, &byte))
            return false;
        out->push_back(uint8_t(byte));
    }
    return true;
}

void sleepMs(unsigned long ms) {
    std::this_thread::sleep_for(std::chrono::milliseconds(ms));
}

const char* const kHelp =
    "commands: notify MAIN SUB [VALUE [HEXBODY]] | tz TEXT [INDEX] | net STATUS | led STATE | "
    "raw HEXBYTES | drop | shutdown | stage N | changed BLOCK | setbyte BLOCK OFFSET VALUE | "
    "lang INDEX | sleep MS | await MAIN SUB [COUNT] | key CODE|up|down|left|right|ok|0..9 "
    "[ORIGIN] | exit | alarm CH motion|io|pir|ai|ai2 on|off | record CH on|off | "
    "manual CH on|off | camera CH on|off | videoloss CH on|off | name CH TEXT | usb 0|1 | "
    "disk 0..3 | talk busy|fail|off | page next|prev|N";

std::mutex g_extensionMutex; // guards g_extensions
std::vector<SimCommands::Extension> g_extensions;

bool runExtensions(const std::vector<std::string>& words) {
    std::vector<SimCommands::Extension> extensions;
    {
        std::lock_guard<std::mutex> lock(g_extensionMutex);
        extensions = g_extensions;
    }
    for (const SimCommands::Extension& e : extensions)
        if (e(words))
            return true;
    return false;
}

} // namespace

void SimCommands::addExtension(Extension extension) {
    std::lock_guard<std::mutex> lock(g_extensionMutex);
    g_extensions.push_back(std::move(extension));
}

bool SimCommands::run(const std::string& rawLine) {
    std::string line = rawLine.substr(0, rawLine.find('#'));
    std::istringstream words(line);
    std::vector<std::string> w;
    for (std::string s; words >> s;)
        w.push_back(s);
    if (w.empty())
        return true;

    // "+MS command": a timed step.
    if (w[0].size() > 1 && w[0][0] == '+') {
        unsigned long ms = 0;
        if (!number(w[0].substr(1), kMaxSleepMs, &ms)) {
            simRecorderLog("sim: bad delay in \"%s\"", rawLine.c_str());
            return false;
        }
        sleepMs(ms);
        w.erase(w.begin());
        if (w.empty())
            return true;
    }
    const std::string& cmd = w[0];
    unsigned long a = 0, b = 0, c = 0;
    const size_t n = w.size();
    bool ok = false;
    if (cmd == "notify" && n >= 3 && n <= 5 && number(w[1], 0xFFFF, &a) &&
        number(w[2], 0xFFFF, &b)) {
        std::vector<uint8_t> body;
        if ((n < 4 || number(w[3], 0xFFFFFFFFul, &c)) && (n < 5 || hexBody(w[4], &body))) {
            m_recorder.notify(uint16_t(a), uint16_t(b), uint32_t(c), body);
            ok = true;
        }
    } else if (cmd == "drop" && n == 1) {
        m_recorder.dropConnection();
        ok = true;
    } else if (cmd == "raw" && n == 2) {
        std::vector<uint8_t> bytes;
        if (hexBody(w[1], &bytes) && !bytes.empty()) {
            m_recorder.writeRaw(bytes);
            ok = true;
        }
    } else if (cmd == "tz" && (n == 2 || (n == 3 && number(w[2], 0xFFFFFFFFul, &a)))) {
        m_recorder.timeZone(w[1], uint32_t(a));
        ok = true;
    } else if (cmd == "net" && n == 2 && number(w[1], 0xFFFFFFFFul, &a)) {
        m_recorder.notify(MainType::System, SystemSubType::NetworkStatus, uint32_t(a));
        ok = true;
    } else if (cmd == "led" && n == 2 && number(w[1], 0xFFFFFFFFul, &a)) {
        m_recorder.notify(MainType::System, SystemSubType::LedState, uint32_t(a));
        ok = true;
    } else if (cmd == "shutdown" && n == 1) {
        m_recorder.notify(MainType::System, SystemSubType::Shutdown, 0);
        ok = true;
    } else if (cmd == "stage" && n == 2 && number(w[1], 0xFFFF, &a)) {
        m_recorder.notify(MainType::System, uint16_t(a), 0);
        ok = true;
    } else if (cmd == "changed" && n == 2 && number(w[1], 0xFFFFFFFFul, &a)) {
        m_recorder.parameterChanged(uint32_t(a));
        ok = true;
    } else if (cmd == "setbyte" && n == 4 && number(w[1], 0xFFFFFFFFul, &a) &&
               number(w[2], SimParamStore::kMaxBlockSize - 1, &b) && number(w[3], 0xFF, &c)) {
        m_recorder.store().setByte(uint32_t(a), uint32_t(b), uint8_t(c));
        m_recorder.parameterChanged(uint32_t(a));
        ok = true;
    } else if (cmd == "lang" && n == 2 && number(w[1], 0xFF, &a)) {
        // The language index of the general settings, as the settings page would set it.
        m_recorder.store().setByte(GeneralSettingsBlock::kBlockNumber,
                                   SimRecorderConfig::kLanguageIndexByte, uint8_t(a));
        m_recorder.parameterChanged(GeneralSettingsBlock::kBlockNumber);
        ok = true;
    } else if (cmd == "sleep" && n == 2 && number(w[1], kMaxSleepMs, &a)) {
        sleepMs(a);
        ok = true;
    } else if (cmd == "await" && (n == 3 || n == 4) && number(w[1], 0xFFFF, &a) &&
               number(w[2], 0xFFFF, &b) && (n == 3 || number(w[3], 1000000, &c))) {
        m_recorder.awaitMessages(uint16_t(a), uint16_t(b), n == 4 ? int(c) : 1);
        ok = true;
    } else if (cmd == "exit" && n == 1) {
        // Logged first: nothing is left to take effect once the process ends.
        simRecorderLog("sim: > %s", line.c_str());
        m_exit = true;
        // The main thread waits for this signal to stop the server cleanly.
        kill(getpid(), SIGTERM);
        ok = true;
    } else if (cmd == "key") {
        ok = SimKeyCommand::run(m_recorder, w);
    } else if (cmd == "help" && n == 1) {
        simRecorderLog("%s", kHelp);
        ok = true;
    }
    if (!ok && cmd != "help")
        ok = runExtensions(w);
    if (!ok)
        simRecorderLog("sim: cannot run \"%s\"; %s", line.c_str(), kHelp);
    else if (cmd != "exit")
        // Logged once the command has taken effect (a block stored, a notification written),
        // so that whoever waits for this line finds its result in place.
        simRecorderLog("sim: > %s", line.c_str());
    return ok;
}

void SimCommands::runAll(std::istream& in) {
    for (std::string line; !m_exit && std::getline(in, line);)
        run(line);
}

void SimCommands::startConsole() {
    std::thread([this] { runAll(std::cin); }).detach();
}

void SimCommands::startScript(const std::string& path) {
    std::thread([this, path] {
        std::ifstream in(path);
        if (!in) {
            simRecorderLog("sim: cannot open script %s", path.c_str());
            return;
        }
        runAll(in);
        simRecorderLog("sim: script %s done", path.c_str());
    }).detach();
}
