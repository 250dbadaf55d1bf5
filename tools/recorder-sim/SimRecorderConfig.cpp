#include "SimRecorderConfig.h"

#include <cerrno>
#include <cstdlib>
#include <fstream>

namespace {

std::string trim(const std::string& s) {
    const size_t b = s.find_first_not_of(" \t\r\n");
    if (b == std::string::npos)
        return {};
    const size_t e = s.find_last_not_of(" \t\r\n");
    return s.substr(b, e - b + 1);
}

bool toU32(const std::string& text, uint32_t max, uint32_t* out) {
    if (text.empty())
        return false;
    char* end = nullptr;
    errno = 0;
    const unsigned long long v = std::strtoull(text.c_str(), &end, 0);
    if (errno != 0 || *end != '\0' || v > max || text[0] == '-')
        return false;
    *out = uint32_t(v);
    return true;
}

bool toByte(const std::string& text, uint8_t* out) {
    uint32_t v = 0;
    if (!toU32(text, 0xFF, &v))
        return false;
    *out = uint8_t(v);
    return true;
}

} // namespace

bool SimRecorderConfig::set(const std::string& key, const std::string& value) {
    if (key == "channels")
        return toByte(value, &channels);
    if (key == "ip_channels")
        return toByte(value, &ipChannels);
    if (key == "analog_channels")
        return toByte(value, &analogChannels);
    if (key == "alarm_inputs")
        return toByte(value, &alarmInputs);
    if (key == "alarm_outputs")
        return toByte(value, &alarmOutputs);
    if (key == "disks")
        return toByte(value, &disks);
    if (key == "date_mode")
        return toByte(value, &dateMode);
    if (key == "output_check_disabled")
        return toByte(value, &outputCheckDisabled);
    if (key == "alarm_info")
        return toByte(value, &alarmInfo);
    if (key == "color_profile")
        return toU32(value, 0xFFFFFFFFu, &colorProfile);
    if (key == "record_seed")
        return toU32(value, 0xFFFFFFFFu, &recordSeed);
    if (key == "usb_free_mib")
        return toU32(value, 0xFFFFFFFFu, &usbFreeMiB);
    if (key == "display_device") {
        displayDevice = value;
        return true;
    }
    if (key == "store") {
        storePath = value;
        return true;
    }
    if (key == "early_stage1") {
        uint8_t v = 0;
        if (!toByte(value, &v))
            return false;
        earlyStage1 = v != 0;
        return true;
    }
    if (key == "cameras") {
        errno = 0;
        char* end = nullptr;
        const unsigned long long v = std::strtoull(value.c_str(), &end, 0);
        if (value.empty() || errno != 0 || *end != '\0' || value[0] == '-')
            return false;
        cameraMask = uint64_t(v);
        cameraMaskSet = true;
        return true;
    }
    if (key.compare(0, 5, "name.") == 0) {
        uint32_t channel = 0;
        if (!toU32(key.substr(5), 64, &channel) || channel < 1)
            return false;
        channelNames[int(channel) - 1] = value;
        return true;
    }
    // block.N.size or block.N.OFFSET
    if (key.compare(0, 6, "block.") == 0) {
        const size_t dot = key.find('.', 6);
        if (dot == std::string::npos)
            return false;
        uint32_t block = 0;
        if (!toU32(key.substr(6, dot - 6), 0xFFFFFFFFu, &block))
            return false;
        const std::string field = key.substr(dot + 1);
        constexpr uint32_t kMaxBlockSize = 1u << 20; // bytes; far above any real block
        if (field == "size")
            return toU32(value, kMaxBlockSize, &blockSizes[block]);
        uint32_t offset = 0;
        uint8_t byte = 0;
        if (!toU32(field, kMaxBlockSize - 1, &offset) || !toByte(value, &byte))
            return false;
        blockBytes[{block, offset}] = byte;
        return true;
    }
    return false;
}

bool SimRecorderConfig::load(const std::string& path, std::string* error) {
    std::ifstream in(path);
    if (!in)
        return false;
    std::string line;
    int number = 0;
    while (std::getline(in, line)) {
        ++number;
        const size_t hash = line.find('#');
        if (hash != std::string::npos)
            line.erase(hash);
        line = trim(line);
        if (line.empty())
            continue;
        const size_t eq = line.find('=');
        const bool ok =
            eq != std::string::npos && set(trim(line.substr(0, eq)), trim(line.substr(eq + 1)));
        if (!ok && error != nullptr) {
            error->append(path).append(":").append(std::to_string(number));
            error->append(": cannot use \"").append(line).append("\"\n");
        }
    }
    return true;
}
