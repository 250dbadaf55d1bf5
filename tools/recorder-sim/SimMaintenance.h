#pragma once
// App's maintenance side: shutting down and restarting on the GUI's request (either one is
// announced back with App's shutdown notice, as the recorder does before it goes down; the
// simulator itself keeps running, so a test can look at what it was asked), and the USB
// stick's room, which the playback side's exports use up, and the system log (SimSystemLog),
// which the power requests add to. Upgrades run from firmware files on that stick: each
// status request moves an upgrade on by kUpgradeStep percent (the GUI asks about once a
// second), a damaged file fails at kDamagedFailsAt, a stick pulled out fails it, and a
// finished upgrade is followed by the shutdown notice of the restart. Factory defaults forget
// the stored blocks but those of the groups kept; a configuration exported is kept as the
// stick's file until imported.
//
//     SimMaintenance maintenance(&playback, seed); // the stick of that playback side
//     maintenance.attach(server);            // registers the MainType 1300 handlers
#include "SimSystemLog.h"

#include "protocol/UpgradeFile.h"
#include "protocol/UpgradeProgress.h"

#include <atomic>
#include <cstdint>
#include <map>
#include <mutex>
#include <vector>

class SimParamStore;
class SimPlayback;
class SimServer;
struct SimMessage;

class SimMaintenance {
public:
    // Entries of the made-up day of the system log.
    static constexpr int kLogPerDay = 10000;
    static constexpr uint32_t kUpgradeStep = 10;    // percent per status request
    static constexpr uint32_t kDamagedFailsAt = 40; // percent a damaged file gets to

    // `playback` (may be null: no stick) must outlive the handlers.
    SimMaintenance(SimPlayback* playback, uint32_t seed, int logPerDay = kLogPerDay);
    void attach(SimServer& server);

    // Power requests heard, by MaintenancePower action; malformed ones are not counted.
    int shutdowns() const { return m_shutdowns; }
    int restarts() const { return m_restarts; }
    SimSystemLog& log() { return m_log; }
    // The firmware files on the stick (while it is present); three by default, made for
    // the repository's customisation file: one to upgrade with, one for another model, one
    // damaged.
    void setUpgradeFiles(std::vector<UpgradeFileEntry> files);
    static UpgradeFileEntry upgradeFile(const char* name, const char* version,
                                        const char* deviceType, uint32_t sizeKiB,
                                        uint32_t state = UpgradeFileEntry::kIntact);
    UpgradeProgress upgrade() const;
    // The store factory defaults reset (blocks of `channels` channels); none: nothing reset.
    void setStore(SimParamStore* store, int channels);

private:
    bool onPower(SimServer& s, const SimMessage& m);
    bool onUsbInfo(SimServer& s, const SimMessage& m);
    bool onLogSearch(SimServer& s, const SimMessage& m);
    bool onUpgradeList(SimServer& s, const SimMessage& m);
    bool onUpgradeStart(SimServer& s, const SimMessage& m);
    bool onUpgradeStatus(SimServer& s, const SimMessage& m);
    bool onFactoryDefaults(SimServer& s, const SimMessage& m);
    bool onConfig(SimServer& s, const SimMessage& m);
    bool usbPresent() const;

    SimPlayback* m_playback;
    SimParamStore* m_store = nullptr;
    int m_channels = 0;
    uint32_t m_usbTotalMiB; // the stick's size: what was free when it was plugged in
    SimSystemLog m_log;
    mutable std::mutex m_upgradeMutex; // guards the five below
    std::vector<UpgradeFileEntry> m_files;
    UpgradeProgress m_upgrade;
    bool m_upgradeDamaged = false; // the running upgrade's file
    // The configuration file on the stick; `m_hasConfig` false: none written yet.
    std::map<uint32_t, std::vector<uint8_t>> m_config;
    bool m_hasConfig = false;

    std::atomic<int> m_shutdowns{0};
    std::atomic<int> m_restarts{0};
};
