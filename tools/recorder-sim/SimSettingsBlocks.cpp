#include "SimSettingsBlocks.h"

#include "SimSystemBlocks.h"

#include "protocol/AlarmInputBlock.h"
#include "protocol/CameraBlock.h"
#include "protocol/DeviceParamBlock.h"
#include "protocol/DiskGroupBlock.h"
#include "protocol/EmailBlock.h"
#include "protocol/EmailScheduleBlock.h"
#include "protocol/ExceptionBlock.h"
#include "protocol/FtpBlock.h"
#include "protocol/GeneralSettingsBlock.h"
#include "protocol/MotionBlock.h"
#include "protocol/NetworkBlock.h"
#include "protocol/RecordParamBlock.h"
#include "protocol/RecordScheduleBlock.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstring>

namespace {

// A per-channel copy lives under block number + (channel + 1) * 65536, far above any block
// number the recorder uses.
constexpr uint32_t kChannelKeyStep = 0x10000;
constexpr uint8_t kFormatStepPercent = 25;
constexpr uint32_t kSimDeviceId = 20261123; // what the remote-access page shows and encodes

template <typename Record>
std::vector<uint8_t> bytesOf(const Record& r) {
    const auto* p = reinterpret_cast<const uint8_t*>(&r);
    return std::vector<uint8_t>(p, p + sizeof r);
}

std::string outOfRange(const char* field, long value, long lo, long hi) {
    return std::string(field) + " " + std::to_string(value) + " outside " + std::to_string(lo) +
           ".." + std::to_string(hi);
}

} // namespace

namespace SimSettingsBlocks {

bool isPerChannel(uint32_t block) {
    return block == RecordScheduleBlock::kBlockNumber || block == RecordParamBlock::kBlockNumber ||
           block == AlarmInputBlock::kBlockNumber || block == CameraBlock::kBlockNumber ||
           block == MotionBlock::kBlockNumber || SimSystemBlocks::isPerChannel(block);
}

uint32_t storeKey(uint32_t block, uint8_t channel) {
    return isPerChannel(block) ? block + (uint32_t(channel) + 1) * kChannelKeyStep : block;
}

std::vector<uint8_t> defaults(uint32_t block, uint8_t channel, const SimRecorderConfig& config) {
    if (SimSystemBlocks::handles(block))
        return SimSystemBlocks::defaults(block, channel, config);
    if (block == RecordScheduleBlock::kBlockNumber) {
        RecordScheduleBlock b{};
        b.channel = channel;
        b.enabled = 1;
        std::memset(b.schedule, ScheduleGrid::kRecordNormal, sizeof b.schedule);
        return bytesOf(b);
    }
    if (block == RecordParamBlock::kBlockNumber) {
        RecordParamBlock b{};
        b.channel = channel;
        b.preRecordSec = 5;
        b.postRecordSec = 30;
        return bytesOf(b);
    }
    if (block == AlarmInputBlock::kBlockNumber) {
        AlarmInputBlock b{};
        b.input = channel;
        b.buzzer = 1;
        b.popup = 1;
        b.recordChannels = 1; // the first channel records on every input
        b.holdSec = 10;
        return bytesOf(b);
    }
    if (block == NetworkBlock::kBlockNumber) {
        NetworkBlock b{};
        b.dhcp = 1;
        const uint8_t address[4] = {192, 168, 1, 100}, mask[4] = {255, 255, 255, 0},
                      gateway[4] = {192, 168, 1, 1}, dns[4] = {192, 168, 1, 1};
        std::memcpy(b.address, address, 4);
        std::memcpy(b.netmask, mask, 4);
        std::memcpy(b.gateway, gateway, 4);
        std::memcpy(b.dns1, dns, 4);
        b.httpPort = NetworkBlock::kHttpDefaultPort;
        b.serverPort = 6036;
        return bytesOf(b);
    }
    if (block == DeviceParamBlock::kBlockNumber) {
        DeviceParamBlock b{};
        std::snprintf(b.deviceName, sizeof b.deviceName, "recorder-sim");
        b.deviceId = kSimDeviceId;
        std::snprintf(b.remoteAddress, sizeof b.remoteAddress, "remote.example.net");
        b.remotePort = 8800;
        return bytesOf(b);
    }
    if (block == CameraBlock::kBlockNumber) {
        CameraBlock b{};
        b.channel = channel;
        b.showName = b.showTime = 1;
        std::snprintf(b.name, sizeof b.name, "CH%d", channel + 1);
        b.nameX = 5;
        b.nameY = 90;
        b.timeX = 60;
        b.timeY = 5;
        b.brightness = b.contrast = b.saturation = b.hue = CameraBlock::kDefaultImageValue;
        return bytesOf(b);
    }
    if (block == MotionBlock::kBlockNumber) {
        MotionBlock b{};
        b.channel = channel;
        b.sensitivity = 4;
        std::memset(b.area, 0xFF, sizeof b.area); // the whole picture
        b.area[MotionBlock::kAreaBytes - 1] &=
            uint8_t((1u << (MotionBlock::kColumns * MotionBlock::kRows % 8)) - 1);
        return bytesOf(b);
    }
    if (block == EmailBlock::kBlockNumber) {
        EmailBlock b{};
        b.port = EmailBlock::kDefaultPort;
        return bytesOf(b);
    }
    if (block == EmailScheduleBlock::kBlockNumber) {
        EmailScheduleBlock b{};
        std::memset(b.schedule, ScheduleGrid::kEmailMotion | ScheduleGrid::kEmailAlarm,
                    sizeof b.schedule);
        return bytesOf(b);
    }
    if (block == FtpBlock::kBlockNumber) {
        FtpBlock b{};
        b.port = FtpBlock::kDefaultPort;
        std::snprintf(b.folder, sizeof b.folder, "/recorder");
        std::memset(b.schedule, ScheduleGrid::kFtpAlarm, sizeof b.schedule);
        return bytesOf(b);
    }
    if (block == ExceptionBlock::kBlockNumber) {
        ExceptionBlock b{};
        for (ExceptionBlock::Actions& a : b.actions)
            a.buzzer = a.popup = 1;
        return bytesOf(b);
    }
    if (block == DiskGroupBlock::kBlockNumber) {
        DiskGroupBlock b{};
        b.diskCount = uint8_t(std::min<int>(config.disks, DiskGroupBlock::kMaxDisks));
        b.overwrite = 1;
        for (int d = 0; d < b.diskCount; ++d) {
            DiskGroupBlock::Disk& disk = b.disks[d];
            disk.present = 1;
            disk.capacityMB = uint32_t(953869) * uint32_t(d + 1); // 1 TB, 2 TB, ...
            // The first disk records, the others arrive new and unformatted.
            disk.state = d == 0 ? DiskGroupBlock::StateNormal : DiskGroupBlock::StateUnformatted;
            disk.freeMB = d == 0 ? disk.capacityMB / 5 * 2 : 0;
            std::snprintf(disk.model, sizeof disk.model, "SIM-HDD-%d", d + 1);
        }
        return bytesOf(b);
    }
    return {};
}

std::vector<uint8_t> accept(uint32_t block, const uint8_t* record, uint32_t size,
                            const std::vector<uint8_t>& stored) {
    if (SimSystemBlocks::handles(block))
        return SimSystemBlocks::accept(block, record, size);
    if (block == EmailBlock::kBlockNumber && size == sizeof(EmailBlock)) {
        EmailBlock b;
        std::memcpy(&b, record, sizeof b);
        if (b.testRequest) {
            // The simulated mail goes out when there is a server and an address to send to.
            const bool sendable = b.server[0] != 0 && std::strchr(b.receiver, '@') != nullptr;
            b.testResult = sendable ? EmailBlock::TestSent : EmailBlock::TestFailed;
            b.testRequest = 0;
        }
        return bytesOf(b);
    }
    if (block != DiskGroupBlock::kBlockNumber || stored.size() != sizeof(DiskGroupBlock) ||
        size != sizeof(DiskGroupBlock))
        return std::vector<uint8_t>(record, record + size);
    DiskGroupBlock in, out;
    std::memcpy(&in, record, sizeof in);
    std::memcpy(&out, stored.data(), sizeof out);
    out.overwrite = in.overwrite;
    for (int d = 0; d < DiskGroupBlock::kMaxDisks; ++d) {
        if ((in.formatRequest >> d) & 1u) {
            out.disks[d].state = DiskGroupBlock::StateFormatting;
            out.disks[d].formatPercent = 0;
        }
    }
    out.formatRequest = 0;
    return bytesOf(out);
}

bool advance(uint32_t block, std::vector<uint8_t>& bytes) {
    if (block != DiskGroupBlock::kBlockNumber || bytes.size() != sizeof(DiskGroupBlock))
        return false;
    DiskGroupBlock b;
    std::memcpy(&b, bytes.data(), sizeof b);
    bool changed = false;
    for (DiskGroupBlock::Disk& disk : b.disks) {
        if (disk.state != DiskGroupBlock::StateFormatting)
            continue;
        changed = true;
        disk.formatPercent = uint8_t(std::min(100, disk.formatPercent + kFormatStepPercent));
        if (disk.formatPercent >= 100) {
            disk.state = DiskGroupBlock::StateNormal;
            disk.formatPercent = 0;
            disk.freeMB = disk.capacityMB;
            disk.health = DiskGroupBlock::HealthGood;
        }
    }
    if (changed)
        bytes = bytesOf(b);
    return changed;
}

std::string check(uint32_t block, const uint8_t* record, uint32_t size,
                  const SimRecorderConfig& config) {
    if (SimSystemBlocks::handles(block))
        return SimSystemBlocks::check(block, record, size, config);
    if (block == RecordScheduleBlock::kBlockNumber) {
        if (size != sizeof(RecordScheduleBlock))
            return "size " + std::to_string(size);
        RecordScheduleBlock b;
        std::memcpy(&b, record, sizeof b);
        if (b.channel >= config.channels)
            return outOfRange("channel", b.channel, 0, config.channels - 1);
        if (b.enabled > 1)
            return outOfRange("enabled", b.enabled, 0, 1);
        for (int i = 0; i < ScheduleGrid::kBytes; ++i)
            if (b.schedule[i] > 0x0F)
                return outOfRange("schedule cell", b.schedule[i], 0, 0x0F);
        return {};
    }
    if (block == RecordParamBlock::kBlockNumber) {
        if (size != sizeof(RecordParamBlock))
            return "size " + std::to_string(size);
        RecordParamBlock b;
        std::memcpy(&b, record, sizeof b);
        if (b.channel >= config.channels)
            return outOfRange("channel", b.channel, 0, config.channels - 1);
        if (b.preRecordSec > RecordParamBlock::kMaxPreRecordSec)
            return outOfRange("preRecordSec", b.preRecordSec, 0,
                              RecordParamBlock::kMaxPreRecordSec);
        if (b.postRecordSec < RecordParamBlock::kMinPostRecordSec ||
            b.postRecordSec > RecordParamBlock::kMaxPostRecordSec)
            return outOfRange("postRecordSec", b.postRecordSec, RecordParamBlock::kMinPostRecordSec,
                              RecordParamBlock::kMaxPostRecordSec);
        if (b.recordStream > RecordParamBlock::kStreamSub || b.audioEnabled > 1)
            return "recordStream or audioEnabled above 1";
        return {};
    }
    if (block == AlarmInputBlock::kBlockNumber) {
        if (size != sizeof(AlarmInputBlock))
            return "size " + std::to_string(size);
        AlarmInputBlock b;
        std::memcpy(&b, record, sizeof b);
        if (b.input >= config.alarmInputs)
            return outOfRange("input", b.input, 0, long(config.alarmInputs) - 1);
        if (b.enabled > 1 || b.normallyClosed > 1 || b.buzzer > 1 || b.popup > 1 || b.email > 1)
            return "a switch above 1";
        if (config.alarmOutputs < 8 && (b.alarmOutputs >> config.alarmOutputs) != 0)
            return outOfRange("alarmOutputs", b.alarmOutputs, 0, (1L << config.alarmOutputs) - 1);
        if (config.channels < 64 && (b.recordChannels >> config.channels) != 0)
            return "recordChannels names a channel beyond " + std::to_string(config.channels);
        if (b.holdSec > AlarmInputBlock::kMaxHoldSec)
            return outOfRange("holdSec", b.holdSec, 0, AlarmInputBlock::kMaxHoldSec);
        return {};
    }
    if (block == NetworkBlock::kBlockNumber) {
        if (size != sizeof(NetworkBlock))
            return "size " + std::to_string(size);
        NetworkBlock b;
        std::memcpy(&b, record, sizeof b);
        if (b.dhcp > 1)
            return outOfRange("dhcp", b.dhcp, 0, 1);
        if (!b.dhcp) {
            if (b.address[0] == 0 || b.address[0] >= 224)
                return "address is not a host address";
            uint32_t mask = 0;
            for (uint8_t m : b.netmask)
                mask = mask << 8 | m;
            if (mask == 0 || (~mask & (~mask + 1)) != 0)
                return "netmask is not contiguous";
        }
        for (uint16_t port : {b.httpPort, b.serverPort})
            if (port < NetworkBlock::kMinPort ||
                (port < NetworkBlock::kFirstUserPort && port != NetworkBlock::kHttpDefaultPort))
                return outOfRange("port", port, NetworkBlock::kFirstUserPort, 65535);
        if (b.httpPort == b.serverPort)
            return "httpPort and serverPort are the same";
        return {};
    }
    if (block == CameraBlock::kBlockNumber) {
        if (size != sizeof(CameraBlock))
            return "size " + std::to_string(size);
        CameraBlock b;
        std::memcpy(&b, record, sizeof b);
        if (b.channel >= config.channels)
            return outOfRange("channel", b.channel, 0, config.channels - 1);
        if (b.showName > 1 || b.showTime > 1)
            return "showName or showTime above 1";
        if (std::memchr(b.name, 0, sizeof b.name) == nullptr)
            return "name without its terminating NUL";
        for (uint16_t v : {b.nameX, b.nameY, b.timeX, b.timeY})
            if (v > CameraBlock::kMaxPosition)
                return outOfRange("position", v, 0, CameraBlock::kMaxPosition);
        return {};
    }
    if (block == MotionBlock::kBlockNumber) {
        if (size != sizeof(MotionBlock))
            return "size " + std::to_string(size);
        MotionBlock b;
        std::memcpy(&b, record, sizeof b);
        if (b.channel >= config.channels)
            return outOfRange("channel", b.channel, 0, config.channels - 1);
        if (b.enabled > 1)
            return outOfRange("enabled", b.enabled, 0, 1);
        if (b.sensitivity < MotionBlock::kMinSensitivity ||
            b.sensitivity > MotionBlock::kMaxSensitivity)
            return outOfRange("sensitivity", b.sensitivity, MotionBlock::kMinSensitivity,
                              MotionBlock::kMaxSensitivity);
        return {};
    }
    if (block == EmailBlock::kBlockNumber) {
        if (size != sizeof(EmailBlock))
            return "size " + std::to_string(size);
        EmailBlock b;
        std::memcpy(&b, record, sizeof b);
        if (b.enabled > 1 || b.ssl > 1 || b.testRequest > 1)
            return "a switch above 1";
        if (b.port == 0)
            return outOfRange("port", 0, 1, 65535);
        for (const char* text : {b.server, b.sender, b.receiver})
            if (std::memchr(text, 0, 64) == nullptr)
                return "a text without its terminating NUL";
        if (std::memchr(b.user, 0, sizeof b.user) == nullptr ||
            std::memchr(b.password, 0, sizeof b.password) == nullptr)
            return "a text without its terminating NUL";
        return {};
    }
    if (block == EmailScheduleBlock::kBlockNumber) {
        if (size != sizeof(EmailScheduleBlock))
            return "size " + std::to_string(size);
        for (int i = 0; i < ScheduleGrid::kBytes; ++i)
            if (record[offsetof(EmailScheduleBlock, schedule) + size_t(i)] > 0x1F)
                return "schedule cell above 0x1f";
        return {};
    }
    if (block == FtpBlock::kBlockNumber) {
        if (size != sizeof(FtpBlock))
            return "size " + std::to_string(size);
        FtpBlock b;
        std::memcpy(&b, record, sizeof b);
        if (b.enabled > 1)
            return outOfRange("enabled", b.enabled, 0, 1);
        if (b.port == 0)
            return outOfRange("port", 0, 1, 65535);
        if (std::memchr(b.server, 0, sizeof b.server) == nullptr ||
            std::memchr(b.user, 0, sizeof b.user) == nullptr ||
            std::memchr(b.password, 0, sizeof b.password) == nullptr ||
            std::memchr(b.folder, 0, sizeof b.folder) == nullptr)
            return "a text without its terminating NUL";
        for (uint8_t cell : b.schedule)
            if (cell > 0x1F)
                return outOfRange("schedule cell", cell, 0, 0x1F);
        return {};
    }
    if (block == ExceptionBlock::kBlockNumber) {
        if (size != sizeof(ExceptionBlock))
            return "size " + std::to_string(size);
        ExceptionBlock b;
        std::memcpy(&b, record, sizeof b);
        for (const ExceptionBlock::Actions& a : b.actions) {
            if (a.buzzer > 1 || a.popup > 1 || a.email > 1)
                return "an action switch above 1";
            if (config.alarmOutputs < 8 && (a.alarmOutputs >> config.alarmOutputs) != 0)
                return outOfRange("alarmOutputs", a.alarmOutputs, 0,
                                  (1L << config.alarmOutputs) - 1);
        }
        return {};
    }
    if (block == DiskGroupBlock::kBlockNumber) {
        if (size != sizeof(DiskGroupBlock))
            return "size " + std::to_string(size);
        DiskGroupBlock b;
        std::memcpy(&b, record, sizeof b);
        if (b.overwrite > 1)
            return outOfRange("overwrite", b.overwrite, 0, 1);
        const int disks = std::min<int>(config.disks, DiskGroupBlock::kMaxDisks);
        if (disks < 8 && (b.formatRequest >> disks) != 0)
            return "formatRequest names a disk beyond " + std::to_string(disks);
        return {};
    }
    if (block == GeneralSettingsBlock::kBlockNumber) {
        if (size != sizeof(GeneralSettingsBlock))
            return "size " + std::to_string(size);
        GeneralSettingsBlock b;
        std::memcpy(&b, record, sizeof b);
        if (b.languageIndex >= GeneralSettingsBlock::kLanguageCount)
            return outOfRange("languageIndex", b.languageIndex, 0,
                              GeneralSettingsBlock::kLanguageCount - 1);
        if (b.dateFormat > 2)
            return outOfRange("dateFormat", b.dateFormat, 0, 2);
        if (b.hour12 > 1)
            return outOfRange("hour12", b.hour12, 0, 1);
        if (b.menuTimeout > GeneralSettingsBlock::kMaxMenuTimeout)
            return outOfRange("menuTimeout", b.menuTimeout, 0,
                              GeneralSettingsBlock::kMaxMenuTimeout);
        return {};
    }
    return {};
}

} // namespace SimSettingsBlocks
