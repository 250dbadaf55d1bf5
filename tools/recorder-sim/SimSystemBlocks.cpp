#include "SimSystemBlocks.h"

#include "protocol/CameraSearchBlock.h"
#include "protocol/DateTimeBlock.h"
#include "protocol/DdnsBlock.h"
#include "protocol/FactorySettings.h"
#include "protocol/NetworkCameraBlock.h"
#include "protocol/NtpBlock.h"
#include "protocol/OutputSettingsBlock.h"
#include "protocol/PrivacyMaskBlock.h"
#include "protocol/StreamBlock.h"

#include <cstdio>
#include <cstring>

namespace {

constexpr int kFoundCameras = 6;          // what every search of the simulated network finds
constexpr uint8_t kFirstCameraHost = 201; // 192.168.1.201 and up

template <typename Record>
std::vector<uint8_t> bytesOf(const Record& r) {
    const auto* p = reinterpret_cast<const uint8_t*>(&r);
    return std::vector<uint8_t>(p, p + sizeof r);
}

template <typename Record>
bool read(Record* r, const uint8_t* record, uint32_t size) {
    if (size != sizeof(Record))
        return false;
    std::memcpy(r, record, sizeof *r);
    return true;
}

std::string outOfRange(const char* field, long value, long lo, long hi) {
    return std::string(field) + " " + std::to_string(value) + " outside " + std::to_string(lo) +
           ".." + std::to_string(hi);
}

bool terminated(const char* text, size_t size) {
    return std::memchr(text, 0, size) != nullptr;
}

StreamBlock streamDefaults(uint8_t channel) {
    StreamBlock b{};
    b.channel = channel;
    // The encoder's limits: 2560x1440 at 30 fps on the main stream, D1 on the sub-stream.
    StreamBlock::Stream& main = b.streams[0];
    main.maxResolution = 1;
    main.maxFrameRate = 30;
    main.maxBitrateKbps = 8192;
    StreamBlock::Stream& sub = b.streams[1];
    sub.maxResolution = 4;
    sub.maxFrameRate = 30;
    sub.maxBitrateKbps = 2048;
    FactorySettings::setEncoding(&b);
    return b;
}

std::string checkStream(const StreamBlock::Stream& s, const StreamBlock::Stream& limits) {
    if (s.maxResolution != limits.maxResolution || s.maxFrameRate != limits.maxFrameRate ||
        s.maxBitrateKbps != limits.maxBitrateKbps)
        return "the encoder's limits are not the recorder's";
    if (s.resolution < s.maxResolution || s.resolution >= StreamBlock::kResolutionCount)
        return outOfRange("resolution", s.resolution, s.maxResolution,
                          StreamBlock::kResolutionCount - 1);
    if (s.frameRate < StreamBlock::kMinFrameRate || s.frameRate > s.maxFrameRate)
        return outOfRange("frameRate", s.frameRate, StreamBlock::kMinFrameRate, s.maxFrameRate);
    if (s.bitrateMode > StreamBlock::Variable || s.codec >= StreamBlock::CodecCount || s.audio > 1)
        return "bitrateMode, codec or audio out of range";
    if (s.quality < StreamBlock::kMinQuality || s.quality > StreamBlock::kMaxQuality)
        return outOfRange("quality", s.quality, StreamBlock::kMinQuality, StreamBlock::kMaxQuality);
    if (s.bitrateKbps < StreamBlock::kMinBitrateKbps || s.bitrateKbps > s.maxBitrateKbps)
        return outOfRange("bitrateKbps", s.bitrateKbps, StreamBlock::kMinBitrateKbps,
                          s.maxBitrateKbps);
    if (s.iFrameInterval < StreamBlock::kMinIFrameInterval ||
        s.iFrameInterval > StreamBlock::kMaxIFrameInterval)
        return outOfRange("iFrameInterval", s.iFrameInterval, StreamBlock::kMinIFrameInterval,
                          StreamBlock::kMaxIFrameInterval);
    return {};
}

std::string checkRule(const DateTimeBlock::DstRule& r, uint8_t mode) {
    if (r.month < 1 || r.month > 12 || r.hour > 23)
        return "a daylight-saving month or hour out of range";
    if (mode == DateTimeBlock::ByWeek &&
        (r.week < 1 || r.week > DateTimeBlock::kLastWeek || r.weekday > 6))
        return "a daylight-saving week or weekday out of range";
    if (mode == DateTimeBlock::ByDate && (r.day < 1 || r.day > 31))
        return outOfRange("daylight-saving day", r.day, 1, 31);
    return {};
}

std::string checkDateTime(const DateTimeBlock& b) {
    if (b.timeZone >= TimeZoneTable::kCount)
        return outOfRange("timeZone", b.timeZone, 0, TimeZoneTable::kCount - 1);
    if (b.dstEnabled > 1 || b.dstMode > DateTimeBlock::ByDate || b.setClock > 1)
        return "a switch out of range";
    if (b.dstEnabled) {
        if (b.dstOffsetMin == 0 || b.dstOffsetMin > DateTimeBlock::kMaxDstOffsetMin ||
            b.dstOffsetMin % DateTimeBlock::kDstOffsetStepMin != 0)
            return outOfRange("dstOffsetMin", b.dstOffsetMin, DateTimeBlock::kDstOffsetStepMin,
                              DateTimeBlock::kMaxDstOffsetMin);
        for (const DateTimeBlock::DstRule* r : {&b.dstStart, &b.dstEnd})
            if (std::string e = checkRule(*r, b.dstMode); !e.empty())
                return e;
    }
    if (b.setClock) {
        const DateTimeBlock::Clock& c = b.clock;
        if (c.year < 2000 || c.year > 2037 || c.month < 1 || c.month > 12 || c.day < 1 ||
            c.day > 31 || c.hour > 23 || c.minute > 59 || c.second > 59)
            return "the clock to set is not a date and time";
    }
    return {};
}

std::string checkOutput(const OutputSettingsBlock& b, const SimRecorderConfig& config) {
    if (b.outputDevice > 2 || b.resolution > OutputSettingsBlock::R600p ||
        b.confirmedResolution > OutputSettingsBlock::R600p)
        return "output device or resolution out of range";
    if (b.sequenceDwellSec != 0 && (b.sequenceDwellSec < OutputSettingsBlock::kMinDwellSec ||
                                    b.sequenceDwellSec > OutputSettingsBlock::kMaxDwellSec))
        return outOfRange("sequenceDwellSec", long(b.sequenceDwellSec),
                          OutputSettingsBlock::kMinDwellSec, OutputSettingsBlock::kMaxDwellSec);
    if (b.spotEnabled > 1 || b.spotStandard > OutputSettingsBlock::SpotNtsc)
        return "spot switch or standard out of range";
    // A block from before the spot output had fields holds 0 there; it stays acceptable
    // until the spot output is switched on.
    const bool unset = !b.spotEnabled && b.spotDwellSec == 0;
    if (!unset && (b.spotDwellSec < OutputSettingsBlock::kMinDwellSec ||
                   b.spotDwellSec > OutputSettingsBlock::kMaxDwellSec))
        return outOfRange("spotDwellSec", long(b.spotDwellSec), OutputSettingsBlock::kMinDwellSec,
                          OutputSettingsBlock::kMaxDwellSec);
    if (config.channels < 64 && (b.spotChannels >> config.channels) != 0)
        return "spotChannels names a channel beyond " + std::to_string(config.channels);
    return {};
}

std::string checkMasks(const PrivacyMaskBlock& b, const SimRecorderConfig& config) {
    if (b.channel >= config.channels)
        return outOfRange("channel", b.channel, 0, config.channels - 1);
    if (b.enabled > 1)
        return outOfRange("enabled", b.enabled, 0, 1);
    for (const PrivacyMaskBlock::Mask& m : b.masks) {
        if (m.x + m.width > PrivacyMaskBlock::kSpan || m.y + m.height > PrivacyMaskBlock::kSpan)
            return "a mask beyond the picture";
        if (m.used() &&
            (m.width < PrivacyMaskBlock::kMinSide || m.height < PrivacyMaskBlock::kMinSide))
            return "a mask thinner than " + std::to_string(PrivacyMaskBlock::kMinSide);
    }
    return {};
}

} // namespace

namespace SimSystemBlocks {

bool handles(uint32_t block) {
    for (uint32_t b : {StreamBlock::kBlockNumber, NtpBlock::kBlockNumber,
                       DateTimeBlock::kBlockNumber, OutputSettingsBlock::kBlockNumber,
                       DdnsBlock::kBlockNumber, PrivacyMaskBlock::kBlockNumber,
                       NetworkCameraBlock::kBlockNumber, CameraSearchBlock::kBlockNumber})
        if (b == block)
            return true;
    return false;
}

bool isPerChannel(uint32_t block) {
    return block == StreamBlock::kBlockNumber || block == PrivacyMaskBlock::kBlockNumber ||
           block == NetworkCameraBlock::kBlockNumber;
}

std::vector<uint8_t> defaults(uint32_t block, uint8_t channel, const SimRecorderConfig& config) {
    if (block == StreamBlock::kBlockNumber)
        return bytesOf(streamDefaults(channel));
    if (block == NtpBlock::kBlockNumber) {
        NtpBlock b{};
        b.port = NtpBlock::kDefaultPort;
        b.intervalMin = 60;
        std::snprintf(b.server, sizeof b.server, "pool.ntp.example.org");
        return bytesOf(b);
    }
    if (block == DateTimeBlock::kBlockNumber) {
        DateTimeBlock b{};
        b.timeZone = TimeZoneTable::kUtc;
        FactorySettings::setDst(&b);
        return bytesOf(b);
    }
    if (block == OutputSettingsBlock::kBlockNumber) {
        OutputSettingsBlock b{};
        b.spotDwellSec = 5;
        b.spotChannels =
            config.channels >= 64 ? ~uint64_t(0) : (uint64_t(1) << config.channels) - 1;
        return bytesOf(b);
    }
    if (block == DdnsBlock::kBlockNumber) {
        DdnsBlock b{};
        FactorySettings::setDdns(&b);
        return bytesOf(b);
    }
    if (block == PrivacyMaskBlock::kBlockNumber) {
        PrivacyMaskBlock b{};
        b.channel = channel;
        FactorySettings::setPrivacyMasks(&b);
        return bytesOf(b);
    }
    if (block == NetworkCameraBlock::kBlockNumber) {
        NetworkCameraBlock b{};
        b.channel = channel;
        b.port = NetworkCameraBlock::kDefaultPort;
        return bytesOf(b);
    }
    if (block == CameraSearchBlock::kBlockNumber) {
        CameraSearchBlock b{};
        b.count = kFoundCameras;
        for (int i = 0; i < kFoundCameras; ++i) {
            CameraSearchBlock::Found& f = b.cameras[i];
            const uint8_t address[4] = {192, 168, 1, uint8_t(kFirstCameraHost + i)};
            std::memcpy(f.address, address, 4);
            f.port = i % 2 == 0 ? 80 : 8080;
            const uint8_t mac[6] = {0x02, 0x53, 0x49, 0x4D, 0x00, uint8_t(i + 1)};
            std::memcpy(f.mac, mac, 6);
            std::snprintf(f.model, sizeof f.model, "SIM-IPC-%d", 100 + i);
        }
        return bytesOf(b);
    }
    return {};
}

std::string check(uint32_t block, const uint8_t* record, uint32_t size,
                  const SimRecorderConfig& config) {
    if (block == StreamBlock::kBlockNumber) {
        StreamBlock b;
        if (!read(&b, record, size))
            return "size " + std::to_string(size);
        if (b.channel >= config.channels)
            return outOfRange("channel", b.channel, 0, config.channels - 1);
        const StreamBlock limits = streamDefaults(b.channel);
        for (int s = 0; s < StreamBlock::kStreams; ++s)
            if (std::string e = checkStream(b.streams[s], limits.streams[s]); !e.empty())
                return (s == 0 ? "main stream: " : "sub-stream: ") + e;
        return {};
    }
    if (block == NtpBlock::kBlockNumber) {
        NtpBlock b;
        if (!read(&b, record, size))
            return "size " + std::to_string(size);
        if (b.enabled > 1 || b.syncRequest > 1)
            return "a switch above 1";
        if (b.port == 0)
            return outOfRange("port", 0, 1, 65535);
        if (b.intervalMin < NtpBlock::kMinIntervalMin || b.intervalMin > NtpBlock::kMaxIntervalMin)
            return outOfRange("intervalMin", b.intervalMin, NtpBlock::kMinIntervalMin,
                              NtpBlock::kMaxIntervalMin);
        if (!terminated(b.server, sizeof b.server))
            return "server without its terminating NUL";
        return {};
    }
    if (block == DateTimeBlock::kBlockNumber) {
        DateTimeBlock b;
        if (!read(&b, record, size))
            return "size " + std::to_string(size);
        return checkDateTime(b);
    }
    if (block == OutputSettingsBlock::kBlockNumber) {
        OutputSettingsBlock b;
        if (!read(&b, record, size))
            return "size " + std::to_string(size);
        return checkOutput(b, config);
    }
    if (block == DdnsBlock::kBlockNumber) {
        DdnsBlock b;
        if (!read(&b, record, size))
            return "size " + std::to_string(size);
        if (b.enabled > 1 || b.provider >= DdnsBlock::ProviderCount)
            return "enabled or provider out of range";
        if (!terminated(b.host, sizeof b.host) || !terminated(b.user, sizeof b.user) ||
            !terminated(b.password, sizeof b.password) || !terminated(b.server, sizeof b.server))
            return "a text without its terminating NUL";
        return {};
    }
    if (block == PrivacyMaskBlock::kBlockNumber) {
        PrivacyMaskBlock b;
        if (!read(&b, record, size))
            return "size " + std::to_string(size);
        return checkMasks(b, config);
    }
    if (block == NetworkCameraBlock::kBlockNumber) {
        NetworkCameraBlock b;
        if (!read(&b, record, size))
            return "size " + std::to_string(size);
        if (b.channel >= config.channels)
            return outOfRange("channel", b.channel, 0, config.channels - 1);
        if (b.enabled > 1 || b.port == 0)
            return "enabled or port out of range";
        if (b.enabled && (b.address[0] == 0 || b.address[0] >= 224))
            return "address is not a host address";
        if (!terminated(b.user, sizeof b.user) || !terminated(b.password, sizeof b.password) ||
            !terminated(b.model, sizeof b.model))
            return "a text without its terminating NUL";
        return {};
    }
    if (block == CameraSearchBlock::kBlockNumber)
        return "the search result is the recorder's own";
    return {};
}

std::vector<uint8_t> accept(uint32_t block, const uint8_t* record, uint32_t size) {
    if (block == NtpBlock::kBlockNumber && size == sizeof(NtpBlock)) {
        NtpBlock b;
        std::memcpy(&b, record, sizeof b);
        if (b.syncRequest) {
            // The simulated network answers any server that has a name.
            b.syncResult = b.server[0] != 0 ? NtpBlock::SyncDone : NtpBlock::SyncFailed;
            b.syncRequest = 0;
        }
        return bytesOf(b);
    }
    if (block == DateTimeBlock::kBlockNumber && size == sizeof(DateTimeBlock)) {
        DateTimeBlock b;
        std::memcpy(&b, record, sizeof b);
        b.setClock = 0; // taken: the simulated clock is the host's
        return bytesOf(b);
    }
    if (block == DdnsBlock::kBlockNumber && size == sizeof(DdnsBlock)) {
        DdnsBlock b;
        std::memcpy(&b, record, sizeof b);
        const bool complete = b.host[0] != 0 && b.user[0] != 0 &&
                              (b.provider == DdnsBlock::BuiltIn || b.server[0] != 0);
        b.status = !b.enabled ? DdnsBlock::StatusOff
                              : (complete ? DdnsBlock::StatusRegistered : DdnsBlock::StatusFailed);
        return bytesOf(b);
    }
    return std::vector<uint8_t>(record, record + size);
}

std::pair<std::string, uint32_t> announcedZone(uint32_t block, const std::vector<uint8_t>& before,
                                               const std::vector<uint8_t>& after) {
    if (block != DateTimeBlock::kBlockNumber || after.size() != sizeof(DateTimeBlock))
        return {};
    const uint8_t zone = after[offsetof(DateTimeBlock, timeZone)];
    if (before.size() == after.size() && before[offsetof(DateTimeBlock, timeZone)] == zone)
        return {};
    return {TimeZoneTable::kZones[zone].tz, zone};
}

} // namespace SimSystemBlocks
