#include "platform/display/VyDisplayDeviceName.h"

#include <cstring>

namespace {

// Reads "WxH" at text and returns the position after it, or null when malformed or out of
// range. Digits only: no sign, no blanks, no leading "+".
const char* parseSize(const char* text, int* width, int* height) {
    auto number = [](const char* p, int* out) -> const char* {
        long value = 0;
        const char* start = p;
        while (*p >= '0' && *p <= '9') {
            value = value * 10 + (*p - '0');
            if (value > VyDisplayDeviceName::kMaxDimension)
                return nullptr;
            ++p;
        }
        if (p == start || value < 1)
            return nullptr;
        *out = static_cast<int>(value);
        return p;
    };
    const char* p = number(text, width);
    if (!p || *p != 'x')
        return nullptr;
    return number(p + 1, height);
}

} // namespace

VyDisplayDeviceName VyDisplayDeviceName::parse(const VyString& device) {
    VyDisplayDeviceName result;
    const char* text = device.c_str();
    if (device.isEmpty())
        return result;
    if (device.startsWith("mem:") || device.startsWith("window:")) {
        const bool memory = device.startsWith("mem:");
        const char* p = parseSize(text + (memory ? 4 : 7), &result.width, &result.height);
        if (!p)
            return VyDisplayDeviceName();
        if (*p == ':' && memory && p[1] != '\0') {
            result.path = VyString(p + 1);
        } else if (*p != '\0') {
            return VyDisplayDeviceName();
        }
        result.kind = memory ? Memory : Window;
        return result;
    }
    // Anything else with a scheme is a name we do not know; a plain path is a device node.
    if (std::strchr(text, ':'))
        return result;
    result.kind = Framebuffer;
    result.path = device;
    return result;
}
