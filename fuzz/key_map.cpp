// libFuzzer target: arbitrary bytes as a key map file. Never crashes, and whatever the text,
// the map holds only what a key source may hand the key manager: device key values 1..149
// and lamp brightnesses of -1 (the data word) or 0..255, each on a named LED.
#include "platform/keys/VyKeyMap.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size > VyKeyMap::kMaxFileBytes)
        return 0;
    VyKeyMap map;
    map.parse(reinterpret_cast<const char*>(data), size, "fuzz");
    // A code in the map answers a value in range; one made up answers 0.
    for (int code = -2; code < 300; ++code) {
        const uint32_t key = map.deviceKey(code);
        if (key > VyKeyMap::kMaxDeviceKey)
            std::abort();
    }
    for (const auto& entry : map.lamps()) {
        const VyKeyMap::Lamp& lamp = entry.second;
        if (lamp.led.isEmpty() || lamp.brightness < -1 || lamp.brightness > 255)
            std::abort();
    }
    if (map.keyCount() < 0 || map.rejectedLines() < 0)
        std::abort();
    return 0;
}
