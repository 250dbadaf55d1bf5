#pragma once
// App's side of the GUI conversation, on the simulator's transport: the start-up handshake
// (stage 1, device defaults, colour profile, stage 3, system information), the parameter
// store with "parameter changed" after each set, the GUI's acknowledgements, and the
// notifications a console or script asks for.
//
//     SimRecorder recorder(config);          // SimRecorderConfig.h for the keys
//     recorder.attach(server);               // registers every handler
//     recorder.timeZone("CST-8", 0);         // from any thread, once the GUI is connected
#include "SimParamStore.h"
#include "SimRecorderConfig.h"

#include <condition_variable>
#include <cstdint>
#include <map>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

class SimServer;
struct SimMessage;

class SimRecorder {
public:
    explicit SimRecorder(SimRecorderConfig config);
    SimRecorder(const SimRecorder&) = delete;
    SimRecorder& operator=(const SimRecorder&) = delete;

    void attach(SimServer& server);
    const SimRecorderConfig& config() const { return m_config; }
    SimParamStore& store() { return m_store; }

    // Notifications, false when no GUI is connected.
    bool notify(uint16_t mainType, uint16_t subType, uint32_t value,
                const std::vector<uint8_t>& body = {});
    bool timeZone(const std::string& tz, uint32_t index);
    // Closes the GUI's connection as a restarting App does.
    void dropConnection();
    // Bytes written to the GUI as they are (a broken frame on purpose).
    bool writeRaw(const std::vector<uint8_t>& bytes);
    bool parameterChanged(uint32_t block);

    // Waits until `count` messages (mainType, subType) arrived from the GUI since start.
    void awaitMessages(uint16_t mainType, uint16_t subType, int count);
    int receivedCount(uint16_t mainType, uint16_t subType);

    // The system information record as this configuration describes it.
    std::vector<uint8_t> systemInfo() const;
    // Counts a message from the GUI for awaitMessages (handlers registered elsewhere).
    void seen(const SimMessage& m);

private:
    void handle(uint16_t mainType, uint16_t subType,
                bool (SimRecorder::*handler)(SimServer&, const SimMessage&));
    bool onHello(SimServer& s, const SimMessage& m);
    bool onDeviceRecord(SimServer& s, const SimMessage& m);
    bool onDefaultParams(SimServer& s, const SimMessage& m);
    bool onDeviceTail(SimServer& s, const SimMessage& m);
    bool onPatchedParams(SimServer& s, const SimMessage& m);
    bool onColorProfile(SimServer& s, const SimMessage& m);
    bool onColorDefaults(SimServer& s, const SimMessage& m);
    bool onDefaultsDone(SimServer& s, const SimMessage& m);
    bool onSystemInfo(SimServer& s, const SimMessage& m);
    bool onParameter(SimServer& s, const SimMessage& m);
    bool onPair(SimServer& s, const SimMessage& m);
    bool onNote(SimServer& s, const SimMessage& m);
    void watchConnections();

    SimRecorderConfig m_config;
    SimParamStore m_store;
    SimServer* m_server = nullptr;
    std::mutex m_countMutex; // guards m_counts
    std::condition_variable m_countCond;
    std::map<std::pair<uint16_t, uint16_t>, int> m_counts;
};

// Log line of the App side, whole even among the transport's lines.
void simRecorderLog(const char* fmt, ...) __attribute__((format(printf, 1, 2)));
