#include "app/CustomConfigSender.h"
#include "protocol/ByteOrder.h"
#include "protocol/MainType.h"
#include "protocol/SubType.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <utility>

#include "ipc/IpcClient.h"
#include "protocol/ColorDefaultBlock.h"
#include "protocol/DefaultParamSet.h"
#include "protocol/DeviceDefaultRecord.h"
#include "runtime/VyIniSettings.h"
#include "runtime/VyLog.h"

CustomConfigSender::CustomConfigSender(CustomConfigLink link)
    : m_link(std::move(link))
    , m_record(DeviceDefaultRecord::kSize, 0) {}

CustomConfig::Outcome CustomConfigSender::configureDefaults(const VyString& path) {
    const VyIniSettings ini(path);
    CustomConfig::Outcome outcome = CustomConfig::packDeviceDefaults(ini, m_record.data());
    if (!outcome.proceed())
        return outcome;
    m_link.send(MainType::Param, ParamSubType::DeviceDefaults, m_record.data(),
                DeviceDefaultRecord::kSize);

    std::vector<uint8_t> params = m_link.request(MainType::Param, ParamSubType::DefaultParams);
    if (params.size() != DefaultParamSet::kSize) {
        vyStartupLog("default parameter set from App has %zu bytes, expected %u\n", params.size(),
                     DefaultParamSet::kSize);
        params.resize(DefaultParamSet::kSize, 0);
    }

    const std::vector<uint8_t> tail = m_link.request(MainType::Param, ParamSubType::DeviceTail);
    const size_t tailBytes = std::min<size_t>(tail.size(), DeviceDefaultRecord::kTailSize);
    if (tailBytes < tail.size())
        vyStartupLog("device information from App has %zu bytes, kept %zu\n", tail.size(),
                     tailBytes);
    if (tailBytes)
        std::memcpy(m_record.data() + DeviceDefaultRecord::kTail, tail.data(), tailBytes);

    CustomConfig::patchDefaultParamSet(ini, params.data());
    const VyString warning = CustomConfig::deviceTypeWarning(ini);
    if (!warning.isEmpty())
        vySystemLine("%s\n", warning.c_str());
    m_link.send(MainType::Param, ParamSubType::PatchedParams, params.data(),
                DefaultParamSet::kSize);
    return outcome;
}

void CustomConfigSender::configureDefaultsOrExit(const VyString& path) {
    const CustomConfig::Outcome outcome = configureDefaults(path);
    if (outcome.proceed())
        return;
    std::fputs(outcome.message.c_str(), stdout);
    std::fflush(stdout);
    std::exit(outcome.exitStatus);
}

void CustomConfigSender::sendColorDefaults(const VyString& path, uint32_t profileCode) {
    const VyIniSettings ini(path);
    std::vector<uint8_t> block(ColorDefaultBlock::kSize);
    CustomConfig::packColorDefaults(ini, profileCode, block.data());
    m_link.send(MainType::Param, ParamSubType::ColorDefaults, block.data(),
                ColorDefaultBlock::kSize);
}

uint32_t CustomConfigSender::configureAppDefaults(const VyString& path) {
    configureDefaultsOrExit(path);
    const std::vector<uint8_t> reply =
        m_link.request(MainType::System, SystemSubType::ColorProfile);
    uint32_t code = 0;
    if (reply.size() >= 4)
        code = ByteOrder::loadLe32(reply.data());
    else
        vyStartupLog("colour profile reply from App has %zu bytes, using profile 0\n",
                     reply.size());
    sendColorDefaults(path, code);
    m_link.send(MainType::System, SystemSubType::DefaultsConfigured, nullptr, 0);
    return code;
}

CustomConfigLink CustomConfigSender::ipcLink(IpcClient& client) {
    CustomConfigLink link;
    link.send = [&client](uint16_t mainType, uint16_t subType, const uint8_t* body, uint32_t size) {
        client.send(mainType, subType, body, size);
    };
    link.request = [&client](uint16_t mainType, uint16_t subType) {
        std::vector<uint8_t> reply;
        client.request(reply, mainType, subType, nullptr, 0);
        return reply;
    };
    return link;
}
