#pragma once
// Start-up's exchange of the customisation file with the recorder service: pack the device
// default record and send it, fetch the default parameter set and the device information
// tail, patch and return the parameter set; later the colour defaults of the profile App
// reported. Packing lives in CustomConfig; this class only moves the bytes.
#include <cstdint>
#include <vector>

#include "app/CustomConfig.h"
#include "app/CustomConfigLink.h"
#include "runtime/VyGlobal.h"
#include "runtime/VyString.h"

class IpcClient;

class CustomConfigSender {
public:
    // The link over the IPC client: one-way sends and (blocking, at start-up) requests.
    static CustomConfigLink ipcLink(IpcClient& client);

    explicit CustomConfigSender(CustomConfigLink link);
    VY_DISABLE_COPY_MOVE(CustomConfigSender)

    // Reads the file at `path` and runs the whole exchange. When a node list does not hold
    // its count nothing is sent and the outcome asks the caller to end the process.
    CustomConfig::Outcome configureDefaults(const VyString& path);
    // As configureDefaults, but prints the outcome's message and ends the process with its
    // status when it cannot go on; this is what start-up calls.
    void configureDefaultsOrExit(const VyString& path);

    // Start-up's whole share of the customisation file, in order: the exchange above (ending
    // the process on a node-count failure), the colour-profile request, the colour defaults
    // of that profile and the notice that the defaults are configured. Answers the code.
    uint32_t configureAppDefaults(const VyString& path);

    // Reads the file again and sends the colour defaults of the section chosen by `profileCode`.
    void sendColorDefaults(const VyString& path, uint32_t profileCode);

    // The device default record as sent, with App's device information tail filled in.
    const std::vector<uint8_t>& deviceRecord() const { return m_record; }

private:
    CustomConfigLink m_link;
    std::vector<uint8_t> m_record;
};
