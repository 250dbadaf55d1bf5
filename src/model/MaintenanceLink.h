#pragma once
// The maintenance requests the GUI sends App (MainType::Maintenance): shutting the recorder
// down or restarting it once the user confirmed, what App knows of the USB stick, and pages
// of its system log, and the firmware upgrade from a file on the stick. A power request leaves a
// log line, the trace a field engineer reads after an unexpected restart.
#include "model/MaintenanceReply.h"
#include "protocol/UsbDeviceInfo.h"

#include <cstdint>
#include <optional>
#include <vector>

class MaintenanceLink {
public:
    // MaintenancePower::kShutDown or kRestart; false when there is no link to App or the
    // action is not one of those.
    static bool requestPower(uint32_t action);
    // The USB stick as App sees it; nothing without a link or with a broken answer.
    static std::optional<UsbDeviceInfo> usbInfo();
    // One page of the system log; nothing without a link or with a broken answer.
    static std::optional<MaintenanceReply::LogPage> searchLog(const LogSearchRequest& request);
    // The firmware files on the stick; nothing without a link or with a broken answer.
    static std::optional<std::vector<UpgradeFileEntry>> upgradeFiles();
    // Asks App to upgrade from the file `name` (longer than the field: false, nothing sent).
    static bool startUpgrade(const char* name);
    static std::optional<UpgradeProgress> upgradeProgress();
    // Factory values for everything but the FactoryDefaultsRequest groups in `keep`.
    static std::optional<FactoryDefaultsAnswer> loadDefaults(uint32_t keep);
    // Every setting to a file on the stick (`toStick`), or back from it.
    static std::optional<ConfigTransferAnswer> transferConfig(bool toStick);
};
