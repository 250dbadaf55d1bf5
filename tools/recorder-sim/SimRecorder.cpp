#include "SimRecorder.h"

#include "SimSettingsBlocks.h"
#include "SimSystemBlocks.h"

#include "SimServer.h"
#include "protocol/ByteOrder.h"
#include "protocol/ColorDefaultBlock.h"
#include "protocol/DefaultParamSet.h"
#include "protocol/DeviceDefaultRecord.h"
#include "protocol/MainType.h"
#include "protocol/ParamRequest.h"
#include "protocol/StartupHello.h"
#include "protocol/SubType.h"
#include "protocol/SystemInfoRecord.h"
#include "protocol/TimeZoneNotice.h"

#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <thread>

namespace {

constexpr uint32_t kMainStreamKbps = 2048; // answer of the stream pair request
constexpr uint32_t kSubStreamKbps = 512;

} // namespace

void simRecorderLog(const char* fmt, ...) {
    char line[512];
    va_list args;
    va_start(args, fmt);
    std::vsnprintf(line, sizeof line - 1, fmt, args);
    va_end(args);
    std::strcat(line, "\n");
    std::fputs(line, stdout);
    std::fflush(stdout);
}

SimRecorder::SimRecorder(SimRecorderConfig config)
    : m_config(std::move(config))
    , m_store(m_config.storePath) {
    std::string error;
    if (!m_store.load(&error))
        simRecorderLog("sim: %s", error.c_str());
    // Configured bytes seed blocks the store does not hold yet; a persisted block wins.
    for (const auto& [block, size] : m_config.blockSizes) {
        if (!m_store.contains(block))
            m_store.get(block, size);
    }
    std::map<uint32_t, bool> seeded;
    for (const auto& [key, value] : m_config.blockBytes) {
        if (!seeded.count(key.first))
            seeded[key.first] =
                !m_store.contains(key.first) || m_config.blockSizes.count(key.first) != 0;
        if (seeded[key.first])
            m_store.setByte(key.first, key.second, value);
    }
}

void SimRecorder::handle(uint16_t mainType, uint16_t subType,
                         bool (SimRecorder::*handler)(SimServer&, const SimMessage&)) {
    m_server->addHandler(mainType, subType, [this, handler](SimServer& s, const SimMessage& m) {
        const bool ok = (this->*handler)(s, m);
        seen(m);
        return ok;
    });
}

void SimRecorder::attach(SimServer& server) {
    m_server = &server;
    handle(MainType::System, SystemSubType::Hello, &SimRecorder::onHello);
    handle(MainType::Param, ParamSubType::DeviceDefaults, &SimRecorder::onDeviceRecord);
    handle(MainType::Param, ParamSubType::DefaultParams, &SimRecorder::onDefaultParams);
    handle(MainType::Param, ParamSubType::DeviceTail, &SimRecorder::onDeviceTail);
    handle(MainType::Param, ParamSubType::PatchedParams, &SimRecorder::onPatchedParams);
    handle(MainType::System, SystemSubType::ColorProfile, &SimRecorder::onColorProfile);
    handle(MainType::Param, ParamSubType::ColorDefaults, &SimRecorder::onColorDefaults);
    handle(MainType::System, SystemSubType::DefaultsConfigured, &SimRecorder::onDefaultsDone);
    handle(MainType::System, SystemSubType::SystemInfo, &SimRecorder::onSystemInfo);
    handle(MainType::Param, ParamSubType::Access, &SimRecorder::onParameter);
    handle(MainType::Preview, PreviewSubType::StreamPair, &SimRecorder::onPair);
    // The GUI's own one-way messages: its pid, acknowledgements, output check skipped.
    for (uint16_t sub : {SystemSubType::GuiPid, SystemSubType::Busy, SystemSubType::Sync45,
                         SystemSubType::OutputCheckSkipped, SystemSubType::Ack201})
        handle(MainType::System, sub, &SimRecorder::onNote);
    if (m_config.earlyStage1)
        std::thread(&SimRecorder::watchConnections, this).detach();
}

void SimRecorder::watchConnections() {
    // Stage 1 goes out as soon as a GUI connects, before it says hello: the GUI must keep
    // it until it starts waiting.
    while (m_server->waitForClient()) {
        notify(MainType::System, SystemSubType::Stage1, 0);
        while (m_server->hasClient())
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
}

void SimRecorder::seen(const SimMessage& m) {
    {
        std::lock_guard<std::mutex> lock(m_countMutex);
        ++m_counts[{m.header.MainType, m.header.SubType}];
    }
    m_countCond.notify_all();
}

void SimRecorder::awaitMessages(uint16_t mainType, uint16_t subType, int count) {
    std::unique_lock<std::mutex> lock(m_countMutex);
    m_countCond.wait(lock, [&] { return m_counts[{mainType, subType}] >= count; });
}

int SimRecorder::receivedCount(uint16_t mainType, uint16_t subType) {
    std::lock_guard<std::mutex> lock(m_countMutex);
    return m_counts[{mainType, subType}];
}

bool SimRecorder::notify(uint16_t mainType, uint16_t subType, uint32_t value,
                         const std::vector<uint8_t>& body) {
    if (m_server == nullptr || !m_server->hasClient()) {
        simRecorderLog("sim: no GUI connected, (%u,%u) not sent", mainType, subType);
        return false;
    }
    return m_server->notify(mainType, subType, value, body.empty() ? nullptr : body.data(),
                            uint32_t(body.size()));
}

void SimRecorder::dropConnection() {
    if (m_server != nullptr)
        m_server->dropClient();
}

bool SimRecorder::writeRaw(const std::vector<uint8_t>& bytes) {
    if (m_server == nullptr || !m_server->hasClient()) {
        simRecorderLog("sim: no GUI connected, raw bytes not sent");
        return false;
    }
    return m_server->writeRaw(bytes.data(), bytes.size());
}

bool SimRecorder::timeZone(const std::string& tz, uint32_t index) {
    TimeZoneNotice n{};
    if (tz.size() >= sizeof n.tz) {
        simRecorderLog("sim: time zone \"%s\" longer than %zu bytes, not sent", tz.c_str(),
                       sizeof n.tz - 1);
        return false;
    }
    std::memcpy(n.tz, tz.data(), tz.size());
    n.value = index;
    const auto* p = reinterpret_cast<const uint8_t*>(&n);
    return notify(MainType::Param, ParamSubType::TimeZone, 0,
                  std::vector<uint8_t>(p, p + sizeof n));
}

bool SimRecorder::parameterChanged(uint32_t block) {
    std::vector<uint8_t> body(4);
    ByteOrder::storeLe32(body.data(), block);
    return notify(MainType::Param, ParamSubType::Access, 0, body);
}

std::vector<uint8_t> SimRecorder::systemInfo() const {
    SystemInfoRecord r;
    std::memset(&r, 0, sizeof r);
    std::snprintf(r.softwareVersion, sizeof r.softwareVersion, "SIM-1.0");
    std::snprintf(r.hardwareVersion, sizeof r.hardwareVersion, "PC");
    std::strncpy(r.displayDevice, m_config.displayDevice.c_str(), sizeof r.displayDevice - 1);
    r.channelCount = m_config.channels;
    r.ipChannelCount = m_config.ipChannels;
    r.analogChannelCount = m_config.analogChannels;
    r.alarmInputCount = m_config.alarmInputs;
    r.alarmOutputCount = m_config.alarmOutputs;
    r.diskCount = m_config.disks;
    std::snprintf(r.serialNumber, sizeof r.serialNumber, "SIM0000001");
    std::snprintf(r.modelName, sizeof r.modelName, "recorder-sim");
    r.dateMode = m_config.dateMode;
    r.outputCheckDisabled = m_config.outputCheckDisabled;
    r.alarmInfoPresent = m_config.alarmInfo;
    const auto* p = reinterpret_cast<const uint8_t*>(&r);
    return std::vector<uint8_t>(p, p + sizeof r);
}

bool SimRecorder::onHello(SimServer&, const SimMessage& m) {
    const auto hello = StartupHello::decode(m.body.data(), m.body.size());
    if (!hello)
        return false;
    simRecorderLog("sim: hello revision %u record size %u", hello->revision, hello->recordSize);
    if (hello->revision != StartupHello::kRevision ||
        hello->recordSize != DeviceDefaultRecord::kSize) {
        simRecorderLog("sim: GUI speaks revision %u with a %u-byte record, expected %u and %u",
                       hello->revision, hello->recordSize, StartupHello::kRevision,
                       DeviceDefaultRecord::kSize);
        return false;
    }
    if (!m_config.earlyStage1)
        notify(MainType::System, SystemSubType::Stage1, 0);
    return true;
}

bool SimRecorder::onDeviceRecord(SimServer&, const SimMessage& m) {
    return m.body.size() == DeviceDefaultRecord::kSize;
}

bool SimRecorder::onDefaultParams(SimServer& s, const SimMessage& m) {
    std::vector<uint8_t> set(DefaultParamSet::kSize, 0);
    return s.reply(m, set.data(), uint32_t(set.size()));
}

bool SimRecorder::onDeviceTail(SimServer& s, const SimMessage& m) {
    std::vector<uint8_t> tail(DeviceDefaultRecord::kTailSize, 0);
    std::snprintf(reinterpret_cast<char*>(tail.data()), tail.size(), "recorder-sim");
    return s.reply(m, tail.data(), uint32_t(tail.size()));
}

bool SimRecorder::onPatchedParams(SimServer&, const SimMessage& m) {
    return m.body.size() == DefaultParamSet::kSize;
}

bool SimRecorder::onColorProfile(SimServer& s, const SimMessage& m) {
    uint8_t code[4];
    ByteOrder::storeLe32(code, m_config.colorProfile);
    return s.reply(m, code, sizeof code);
}

bool SimRecorder::onColorDefaults(SimServer&, const SimMessage& m) {
    return m.body.size() == ColorDefaultBlock::kSize;
}

bool SimRecorder::onDefaultsDone(SimServer&, const SimMessage&) {
    return notify(MainType::System, SystemSubType::Stage3, 0);
}

bool SimRecorder::onSystemInfo(SimServer& s, const SimMessage& m) {
    const std::vector<uint8_t> info = systemInfo();
    return s.reply(m, info.data(), uint32_t(info.size()));
}

bool SimRecorder::onParameter(SimServer& s, const SimMessage& m) {
    const auto req = ParamRequest::decode(m.body.data(), m.body.size());
    if (!req)
        return false;
    if (req->getFlag == 1) {
        const uint32_t key = SimSettingsBlocks::storeKey(req->blockNumber, req->index);
        if (!m_store.contains(key)) {
            const auto factory =
                SimSettingsBlocks::defaults(req->blockNumber, req->index, m_config);
            if (!factory.empty())
                m_store.set(key, factory.data(), uint32_t(factory.size()));
        }
        std::vector<uint8_t> block = m_store.get(key, req->blockSize);
        if (block.empty() && req->blockSize != 0)
            return false; // a size no block can have
        const bool replied = s.reply(m, block.data(), uint32_t(block.size()));
        if (replied && SimSettingsBlocks::advance(req->blockNumber, block)) {
            m_store.set(key, block.data(), uint32_t(block.size()));
            parameterChanged(req->blockNumber);
        }
        return replied;
    }
    if (m.body.size() != ParamRequest::kSize + size_t(req->blockSize))
        return false;
    const uint8_t* record = m.body.data() + ParamRequest::kSize;
    const std::string refused =
        SimSettingsBlocks::check(req->blockNumber, record, req->blockSize, m_config);
    if (!refused.empty()) {
        simRecorderLog("sim: block %u refused, not stored: %s", req->blockNumber, refused.c_str());
        return true; // understood, and answered by not changing anything
    }
    const uint32_t key =
        SimSettingsBlocks::storeKey(req->blockNumber, req->blockSize > 0 ? record[0] : 0);
    const std::vector<uint8_t> before = m_store.get(key, req->blockSize);
    const std::vector<uint8_t> accepted =
        SimSettingsBlocks::accept(req->blockNumber, record, req->blockSize, before);
    if (!m_store.set(key, accepted.data(), uint32_t(accepted.size())))
        return false;
    simRecorderLog("sim: block %u set, %u bytes", req->blockNumber, req->blockSize);
    const bool changed = parameterChanged(req->blockNumber);
    // A new zone is announced as App does, after the change itself.
    const auto [tz, zone] = SimSystemBlocks::announcedZone(req->blockNumber, before, accepted);
    if (!tz.empty())
        timeZone(tz, zone);
    return changed;
}

bool SimRecorder::onPair(SimServer& s, const SimMessage& m) {
    if (m.body.size() != 4)
        return false;
    uint8_t reply[8];
    ByteOrder::storeLe32(reply, kMainStreamKbps);
    ByteOrder::storeLe32(reply + 4, kSubStreamKbps);
    return s.reply(m, reply, sizeof reply);
}

bool SimRecorder::onNote(SimServer&, const SimMessage& m) {
    if (m.header.SubType == SystemSubType::GuiPid) {
        if (m.body.size() != 4)
            return false;
        simRecorderLog("sim: GUI pid %u", ByteOrder::loadLe32(m.body.data()));
    }
    return true;
}
