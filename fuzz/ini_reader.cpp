// libFuzzer target: arbitrary bytes through the ini grammar, the style colour scan and the
// customisation file's packing. Never crashes, never reads past its input, and keeps every
// stored key and value inside one line buffer.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "app/CustomConfig.h"
#include "protocol/ColorDefaultBlock.h"
#include "protocol/DeviceDefaultRecord.h"
#include "runtime/VyIniParser.h"
#include "runtime/VyIniSettings.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const VyIniSettings ini = VyIniSettings::fromText(reinterpret_cast<const char*>(data), size);
    for (const auto& kv : ini.map()) {
        if (kv.second.size() >= VyIniParser::kLineBufferSize)
            std::abort();
        if (!VyIniParser::parseColor(kv.second.c_str()).isValid())
            std::abort();
        uint8_t values[ColorDefaultBlock::kValuesPerFormat + 1] = {};
        CustomConfig::parseColorValues(kv.second, values, ColorDefaultBlock::kValuesPerFormat);
        CustomConfig::nodeList(kv.second);
    }

    // The raw bytes as one colour value (the scan stops at the first NUL).
    std::vector<char> text(data, data + size);
    text.push_back('\0');
    VyIniParser::parseColor(text.data());

    static std::vector<uint8_t> record(DeviceDefaultRecord::kSize);
    CustomConfig::packDeviceDefaults(ini, record.data());
    static std::vector<uint8_t> block(ColorDefaultBlock::kSize);
    CustomConfig::packColorDefaults(ini, size ? data[0] : 0, block.data());
    return 0;
}
