#pragma once
// App's answers to the maintenance requests, checked before anything is believed: a length
// that is not the record's, a free space above the total, a percentage above 100 and so on
// are refused with a log line. Pure functions of the bytes (a fuzz target runs them).
#include "protocol/ConfigTransfer.h"
#include "protocol/FactoryDefaults.h"
#include "protocol/LogSearchReply.h"
#include "protocol/LogSearchRequest.h"
#include "protocol/UpgradeFile.h"
#include "protocol/UpgradeProgress.h"
#include "protocol/UsbDeviceInfo.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

class MaintenanceReply {
public:
    static std::optional<UsbDeviceInfo> parseUsbInfo(const uint8_t* body, size_t len);

    // One page of the system log.
    struct LogPage {
        uint32_t total = 0;
        uint32_t first = 0;
        std::vector<LogEntry> entries; // each text NUL-terminated within its field
    };
    // The answer to `asked`: refused when its counts disagree with its length, with the page
    // asked for, or with each other.
    static std::optional<LogPage> parseLogPage(const uint8_t* body, size_t len,
                                               const LogSearchRequest& asked);

    // The firmware files on the stick, each text NUL-terminated within its field.
    static std::optional<std::vector<UpgradeFileEntry>> parseUpgradeList(const uint8_t* body,
                                                                         size_t len);
    static std::optional<UpgradeProgress> parseUpgradeProgress(const uint8_t* body, size_t len);
    static std::optional<FactoryDefaultsAnswer> parseDefaultsAnswer(const uint8_t* body,
                                                                    size_t len);
    // A result App does not define is refused too.
    static std::optional<ConfigTransferAnswer> parseConfigAnswer(const uint8_t* body, size_t len);
};
