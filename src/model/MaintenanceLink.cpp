#include "model/MaintenanceLink.h"

#include "model/MaintenanceReply.h"
#include "model/RecorderLink.h"
#include "protocol/MainType.h"
#include "protocol/MaintenancePower.h"
#include "protocol/SubType.h"
#include "runtime/VyLog.h"

#include <cstring>
#include <vector>

bool MaintenanceLink::requestPower(uint32_t action) {
    if (action != MaintenancePower::kShutDown && action != MaintenancePower::kRestart) {
        VY_GUI_LOG("power action %u unknown, nothing sent\n", action);
        return false;
    }
    RecorderLink* link = RecorderLink::instance();
    if (link == nullptr) {
        VY_GUI_LOG("no link to App, power action %u not sent\n", action);
        return false;
    }
    MaintenancePower body;
    body.action = action;
    link->send(MainType::Maintenance, MaintenanceSubType::Power, &body, sizeof body);
    VY_GUI_LOG("%s requested\n", action == MaintenancePower::kShutDown ? "shutdown" : "restart");
    return true;
}

std::optional<UsbDeviceInfo> MaintenanceLink::usbInfo() {
    RecorderLink* link = RecorderLink::instance();
    if (link == nullptr)
        return std::nullopt;
    std::vector<uint8_t> reply;
    link->request(MainType::Maintenance, MaintenanceSubType::UsbInfo, nullptr, 0, reply);
    return MaintenanceReply::parseUsbInfo(reply.data(), reply.size());
}

std::optional<MaintenanceReply::LogPage>
MaintenanceLink::searchLog(const LogSearchRequest& request) {
    RecorderLink* link = RecorderLink::instance();
    if (link == nullptr)
        return std::nullopt;
    std::vector<uint8_t> reply;
    link->request(MainType::Maintenance, MaintenanceSubType::LogSearch, &request, sizeof request,
                  reply);
    return MaintenanceReply::parseLogPage(reply.data(), reply.size(), request);
}

std::optional<std::vector<UpgradeFileEntry>> MaintenanceLink::upgradeFiles() {
    RecorderLink* link = RecorderLink::instance();
    if (link == nullptr)
        return std::nullopt;
    std::vector<uint8_t> reply;
    link->request(MainType::Maintenance, MaintenanceSubType::UpgradeList, nullptr, 0, reply);
    return MaintenanceReply::parseUpgradeList(reply.data(), reply.size());
}

bool MaintenanceLink::startUpgrade(const char* name) {
    RecorderLink* link = RecorderLink::instance();
    char body[UpgradeFileEntry::kNameBytes] = {};
    if (link == nullptr || name == nullptr || std::strlen(name) >= sizeof body)
        return false;
    std::strcpy(body, name);
    link->send(MainType::Maintenance, MaintenanceSubType::UpgradeStart, body, sizeof body);
    VY_GUI_LOG("upgrade from %s requested\n", name);
    return true;
}

std::optional<UpgradeProgress> MaintenanceLink::upgradeProgress() {
    RecorderLink* link = RecorderLink::instance();
    if (link == nullptr)
        return std::nullopt;
    std::vector<uint8_t> reply;
    link->request(MainType::Maintenance, MaintenanceSubType::UpgradeStatus, nullptr, 0, reply);
    return MaintenanceReply::parseUpgradeProgress(reply.data(), reply.size());
}

std::optional<FactoryDefaultsAnswer> MaintenanceLink::loadDefaults(uint32_t keep) {
    RecorderLink* link = RecorderLink::instance();
    if (link == nullptr)
        return std::nullopt;
    FactoryDefaultsRequest req;
    req.keep = keep;
    std::vector<uint8_t> reply;
    link->request(MainType::Maintenance, MaintenanceSubType::FactoryDefaults, &req, sizeof req,
                  reply);
    VY_GUI_LOG("factory defaults requested, keeping groups 0x%x\n", keep);
    return MaintenanceReply::parseDefaultsAnswer(reply.data(), reply.size());
}

std::optional<ConfigTransferAnswer> MaintenanceLink::transferConfig(bool toStick) {
    RecorderLink* link = RecorderLink::instance();
    if (link == nullptr)
        return std::nullopt;
    std::vector<uint8_t> reply;
    link->request(MainType::Maintenance,
                  toStick ? MaintenanceSubType::ConfigExport : MaintenanceSubType::ConfigImport,
                  nullptr, 0, reply);
    VY_GUI_LOG("configuration %s the USB stick requested\n", toStick ? "to" : "from");
    return MaintenanceReply::parseConfigAnswer(reply.data(), reply.size());
}
