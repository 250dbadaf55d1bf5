#include "SimMaintenance.h"

#include "SimMessage.h"
#include "SimParamStore.h"
#include "SimPlayback.h"
#include "SimRecordDb.h"
#include "SimRecorder.h"
#include "SimServer.h"
#include "SimSettingsBlocks.h"

#include "protocol/ConfigTransfer.h"
#include "protocol/DeviceParamBlock.h"
#include "protocol/FactoryDefaults.h"
#include "protocol/GeneralSettingsBlock.h"
#include "protocol/MainType.h"
#include "protocol/MaintenancePower.h"
#include "protocol/NetworkBlock.h"
#include "protocol/RecordParamBlock.h"
#include "protocol/RecordScheduleBlock.h"
#include "protocol/SubType.h"
#include "protocol/UsbDeviceInfo.h"

#include <algorithm>
#include <cstring>
#include <string>

SimMaintenance::SimMaintenance(SimPlayback* playback, uint32_t seed, int logPerDay)
    : m_playback(playback)
    , m_usbTotalMiB(playback != nullptr ? playback->state().usbFreeMiB : 0)
    , m_log(seed, logPerDay, SimRecordDb::localToday()) {
    m_files = {
        upgradeFile("NVR8_V2.4.0.bin", "V2.4.0", "MODEL-A", 24576),
        upgradeFile("NVR9_V3.0.1.bin", "V3.0.1", "MODEL-B", 30720),
        upgradeFile("NVR8_V2.3.9.bin", "V2.3.9", "MODEL-A", 11000, UpgradeFileEntry::kDamaged)};
}

UpgradeFileEntry SimMaintenance::upgradeFile(const char* name, const char* version,
                                             const char* deviceType, uint32_t sizeKiB,
                                             uint32_t state) {
    UpgradeFileEntry f;
    std::strncpy(f.name, name, sizeof f.name - 1);
    std::strncpy(f.version, version, sizeof f.version - 1);
    std::strncpy(f.deviceType, deviceType, sizeof f.deviceType - 1);
    f.sizeKiB = sizeKiB;
    f.state = state;
    return f;
}

void SimMaintenance::setUpgradeFiles(std::vector<UpgradeFileEntry> files) {
    std::lock_guard<std::mutex> lock(m_upgradeMutex);
    m_files = std::move(files);
}

UpgradeProgress SimMaintenance::upgrade() const {
    std::lock_guard<std::mutex> lock(m_upgradeMutex);
    return m_upgrade;
}

bool SimMaintenance::usbPresent() const {
    return m_playback != nullptr && m_playback->state().usbPresent;
}

bool SimMaintenance::onUpgradeList(SimServer& s, const SimMessage& m) {
    std::vector<UpgradeFileEntry> files;
    if (usbPresent()) {
        std::lock_guard<std::mutex> lock(m_upgradeMutex);
        files = m_files;
    }
    UpgradeFileList head;
    head.count = uint32_t(files.size());
    std::vector<uint8_t> out(sizeof head + files.size() * sizeof(UpgradeFileEntry));
    std::memcpy(out.data(), &head, sizeof head);
    if (!files.empty())
        std::memcpy(out.data() + sizeof head, files.data(), files.size() * sizeof files[0]);
    return s.reply(m, out.data(), uint32_t(out.size()));
}

bool SimMaintenance::onUpgradeStart(SimServer&, const SimMessage& m) {
    if (m.body.size() != UpgradeFileEntry::kNameBytes || m.body.back() != 0) {
        simRecorderLog("sim: upgrade request of %zu bytes dropped", m.body.size());
        return false;
    }
    const std::string name(reinterpret_cast<const char*>(m.body.data()));
    const bool present = usbPresent();
    std::lock_guard<std::mutex> lock(m_upgradeMutex);
    m_upgrade = UpgradeProgress{};
    const auto file = std::find_if(m_files.begin(), m_files.end(),
                                   [&](const UpgradeFileEntry& f) { return name == f.name; });
    if (!present || file == m_files.end()) {
        m_upgrade.state = UpgradeProgress::kFailed;
        m_upgrade.error = present ? UpgradeProgress::kNoFile : UpgradeProgress::kNoDevice;
    } else if (std::strcmp(file->deviceType, m_files.front().deviceType) != 0) {
        // The first file is the one made for this recorder.
        m_upgrade.state = UpgradeProgress::kFailed;
        m_upgrade.error = UpgradeProgress::kWrongModel;
    } else {
        m_upgrade.state = UpgradeProgress::kRunning;
        m_upgradeDamaged = file->state != UpgradeFileEntry::kIntact;
    }
    simRecorderLog("sim: upgrade from %s %s", name.c_str(),
                   m_upgrade.state == UpgradeProgress::kRunning ? "started" : "refused");
    m_log.add(LogSearchRequest::kSystem, "Upgrade from " + name);
    return true;
}

bool SimMaintenance::onUpgradeStatus(SimServer& s, const SimMessage& m) {
    const bool present = usbPresent();
    UpgradeProgress now;
    bool done = false;
    {
        std::lock_guard<std::mutex> lock(m_upgradeMutex);
        if (m_upgrade.state == UpgradeProgress::kRunning) {
            m_upgrade.percent = std::min<uint32_t>(100, m_upgrade.percent + kUpgradeStep);
            if (!present) {
                m_upgrade.state = UpgradeProgress::kFailed;
                m_upgrade.error = UpgradeProgress::kNoDevice;
            } else if (m_upgradeDamaged && m_upgrade.percent >= kDamagedFailsAt) {
                m_upgrade.state = UpgradeProgress::kFailed;
                m_upgrade.error = UpgradeProgress::kDamagedFile;
            } else if (m_upgrade.percent >= 100) {
                m_upgrade.state = UpgradeProgress::kDone;
                done = true;
            }
        }
        now = m_upgrade;
    }
    const bool replied = s.reply(m, &now, sizeof now);
    if (done) {
        m_log.add(LogSearchRequest::kSystem, "Upgrade finished, restarting");
        s.notify(MainType::System, SystemSubType::Shutdown, 0);
    }
    return replied;
}

void SimMaintenance::attach(SimServer& server) {
    server.addHandler(MainType::Maintenance, MaintenanceSubType::Power,
                      [this](SimServer& s, const SimMessage& m) { return onPower(s, m); });
    server.addHandler(MainType::Maintenance, MaintenanceSubType::UsbInfo,
                      [this](SimServer& s, const SimMessage& m) { return onUsbInfo(s, m); });
    server.addHandler(MainType::Maintenance, MaintenanceSubType::LogSearch,
                      [this](SimServer& s, const SimMessage& m) { return onLogSearch(s, m); });
    server.addHandler(MainType::Maintenance, MaintenanceSubType::UpgradeList,
                      [this](SimServer& s, const SimMessage& m) { return onUpgradeList(s, m); });
    server.addHandler(MainType::Maintenance, MaintenanceSubType::UpgradeStart,
                      [this](SimServer& s, const SimMessage& m) { return onUpgradeStart(s, m); });
    server.addHandler(MainType::Maintenance, MaintenanceSubType::UpgradeStatus,
                      [this](SimServer& s, const SimMessage& m) { return onUpgradeStatus(s, m); });
    for (uint16_t sub : {MaintenanceSubType::ConfigExport, MaintenanceSubType::ConfigImport})
        server.addHandler(MainType::Maintenance, sub,
                          [this](SimServer& s, const SimMessage& m) { return onConfig(s, m); });
    server.addHandler(
        MainType::Maintenance, MaintenanceSubType::FactoryDefaults,
        [this](SimServer& s, const SimMessage& m) { return onFactoryDefaults(s, m); });
}

bool SimMaintenance::onLogSearch(SimServer& s, const SimMessage& m) {
    LogSearchRequest req;
    if (m.body.size() != sizeof req) {
        simRecorderLog("sim: log search of %zu bytes dropped", m.body.size());
        return false;
    }
    std::memcpy(&req, m.body.data(), sizeof req);
    const std::vector<uint8_t> page = m_log.search(req);
    return s.reply(m, page.data(), uint32_t(page.size()));
}

bool SimMaintenance::onUsbInfo(SimServer& s, const SimMessage& m) {
    UsbDeviceInfo info;
    if (m_playback != nullptr) {
        const SimPlayback::State st = m_playback->state();
        info.present = st.usbPresent ? 1 : 0;
        info.totalMiB = st.usbPresent ? m_usbTotalMiB : 0;
        info.freeMiB = st.usbPresent ? std::min(st.usbFreeMiB, m_usbTotalMiB) : 0;
    }
    return s.reply(m, &info, sizeof info);
}

bool SimMaintenance::onPower(SimServer& s, const SimMessage& m) {
    MaintenancePower req;
    if (m.body.size() != sizeof req) {
        simRecorderLog("sim: power request of %zu bytes dropped", m.body.size());
        return false;
    }
    std::memcpy(&req, m.body.data(), sizeof req);
    if (req.action == MaintenancePower::kShutDown) {
        ++m_shutdowns;
    } else if (req.action == MaintenancePower::kRestart) {
        ++m_restarts;
    } else {
        simRecorderLog("sim: power action %u unknown", req.action);
        return false;
    }
    const bool down = req.action == MaintenancePower::kShutDown;
    simRecorderLog("sim: %s requested", down ? "shutdown" : "restart");
    m_log.add(LogSearchRequest::kSystem, down ? "Shutdown requested" : "Restart requested");
    return s.notify(MainType::System, SystemSubType::Shutdown, 0);
}

void SimMaintenance::setStore(SimParamStore* store, int channels) {
    m_store = store;
    m_channels = channels;
}

bool SimMaintenance::onFactoryDefaults(SimServer& s, const SimMessage& m) {
    FactoryDefaultsRequest req;
    if (m.body.size() != sizeof req) {
        simRecorderLog("sim: factory defaults request of %zu bytes dropped", m.body.size());
        return false;
    }
    std::memcpy(&req, m.body.data(), sizeof req);
    std::vector<uint32_t> kept;
    if (req.keep & FactoryDefaultsRequest::kKeepNetwork)
        kept.insert(kept.end(), {NetworkBlock::kBlockNumber, DeviceParamBlock::kBlockNumber});
    if (req.keep & FactoryDefaultsRequest::kKeepRecording)
        kept.insert(kept.end(),
                    {RecordParamBlock::kBlockNumber, RecordScheduleBlock::kBlockNumber});
    if (req.keep & FactoryDefaultsRequest::kKeepGeneral)
        kept.push_back(GeneralSettingsBlock::kBlockNumber);
    auto isKept = [&](uint32_t key) {
        for (uint32_t block : kept) {
            if (key == block)
                return true;
            for (int c = 0; c < m_channels; ++c)
                if (key == SimSettingsBlocks::storeKey(block, uint8_t(c)))
                    return true;
        }
        return false;
    };
    FactoryDefaultsAnswer answer;
    answer.result = m_store != nullptr ? 0 : 1;
    if (m_store != nullptr)
        answer.blocksReset = uint32_t(m_store->eraseIf([&](uint32_t key) { return !isKept(key); }));
    simRecorderLog("sim: factory defaults, %u blocks reset", answer.blocksReset);
    m_log.add(LogSearchRequest::kConfig, "Factory defaults loaded");
    return s.reply(m, &answer, sizeof answer);
}

bool SimMaintenance::onConfig(SimServer& s, const SimMessage& m) {
    const bool exporting = m.header.SubType == MaintenanceSubType::ConfigExport;
    ConfigTransferAnswer answer;
    const bool present = usbPresent();
    {
        std::lock_guard<std::mutex> lock(m_upgradeMutex);
        if (!present || m_store == nullptr) {
            answer.result = ConfigTransferAnswer::kNoDevice;
        } else if (exporting) {
            m_config = m_store->all();
            m_hasConfig = true;
            answer.result = ConfigTransferAnswer::kDone;
        } else if (!m_hasConfig) {
            answer.result = ConfigTransferAnswer::kNoFile;
        } else {
            m_store->replaceAll(m_config);
            answer.result = ConfigTransferAnswer::kDone;
        }
        for (const auto& block : m_config)
            answer.bytes += uint32_t(block.second.size());
    }
    simRecorderLog("sim: configuration %s: result %u", exporting ? "export" : "import",
                   answer.result);
    if (answer.result == ConfigTransferAnswer::kDone)
        m_log.add(LogSearchRequest::kConfig,
                  exporting ? "Configuration exported" : "Configuration imported");
    return s.reply(m, &answer, sizeof answer);
}
