#pragma once
// A key map: which device key value each code of one input device stands for, and which
// lamp commands drive which LED. One small ini file per device name under "keymap/" in the
// resources, read with the project's ini reader:
//
//     [Keys]          ; code = device key value (1..149)
//     103=24          ; an input device's key code (here KEY_UP -> Up)
//     Up=24           ; a desktop window's key name
//     axis0-=26       ; a joystick axis pushed to its negative end, "button0" a button
//     [Lamps]         ; lamp command = LED name under /sys/class/leds, then the brightness
//     17=green:status,1
//     20=amber:data   ; no brightness: the command's data word is written
//
// A line that is not a section, a comment or "code=value" with a value in range is logged
// and left out; the rest of the file is used.
#include <cstddef>
#include <cstdint>

#include "runtime/VyMap.h"
#include "runtime/VyString.h"

class VyKeyMap {
public:
    static constexpr uint32_t kMaxDeviceKey = 149;
    // Larger files are not key maps; reading stops there.
    static constexpr size_t kMaxFileBytes = 64 * 1024;

    struct Lamp {
        VyString led;
        int brightness = -1; // -1: the command's data word
    };

    VyKeyMap() = default;

    // "keymap/<name>.ini" for a device name, characters other than letters, digits, '-' and
    // '_' replaced by '_' (device names carry spaces and slashes).
    static VyString fileNameFor(const VyString& deviceName);
    // Reads a file (a resource path); false when it cannot be opened (nothing logged, a
    // device without a map is normal).
    bool load(const VyString& path);
    // The same over text in memory; `origin` names it in log lines.
    void parse(const char* text, size_t size, const char* origin);

    // The device key value of a code, 0 when the map does not name it.
    uint32_t deviceKey(const VyString& code) const;
    uint32_t deviceKey(int code) const { return deviceKey(VyString::number(code)); }
    // The LED of a lamp command, or null.
    const Lamp* lamp(int command) const;
    const VyMap<int, Lamp>& lamps() const { return m_lamps; }

    bool isEmpty() const { return m_keys.isEmpty() && m_lamps.isEmpty(); }
    int keyCount() const { return m_keys.size(); }
    int rejectedLines() const { return m_rejected; }

private:
    VyMap<VyString, uint32_t> m_keys;
    VyMap<int, Lamp> m_lamps;
    int m_rejected = 0;
};
