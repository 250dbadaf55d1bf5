#include "platform/keys/VyKeyMap.h"

#include "runtime/VyIniParser.h"
#include "runtime/VyLog.h"
#include "runtime/VyResources.h"
#include "runtime/VyStringList.h"

#include <cstdio>
#include <string>
#include <vector>

namespace {

constexpr const char* kKeysSection = "Keys/";
constexpr const char* kLampsSection = "Lamps/";
constexpr int kMaxLampCommand = 255; // commands are one byte
constexpr int kMaxBrightness = 255;  // sysfs LEDs take 0..max_brightness, at most 255 here

bool isBlankLine(const std::string& line) {
    for (char c : line) {
        if (c == ';' || c == '#')
            return true;
        if (c != ' ' && c != '\t' && c != '\r' && c != '\n')
            return false;
    }
    return true;
}

// A decimal number with nothing else around it (blanks aside); false otherwise.
bool strictNumber(const VyString& text, int* out) {
    const std::string t = text.trimmed().toStdString();
    if (t.empty() || t.size() > 9)
        return false;
    int v = 0;
    for (char c : t) {
        if (c < '0' || c > '9')
            return false;
        v = v * 10 + (c - '0');
    }
    *out = v;
    return true;
}

// An LED name is one path component under /sys/class/leds.
bool safeLedName(const VyString& name) {
    return !name.isEmpty() && name.indexOf("/") < 0 && name != "." && name != "..";
}

} // namespace

VyString VyKeyMap::fileNameFor(const VyString& deviceName) {
    std::string name = deviceName.toStdString();
    for (char& c : name) {
        const bool keep = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
                          (c >= '0' && c <= '9') || c == '-' || c == '_';
        if (!keep)
            c = '_';
    }
    return VyString("keymap/") + VyString(name) + VyString(".ini");
}

bool VyKeyMap::load(const VyString& path) {
    const VyString full = VyResources::path(path);
    std::FILE* f = std::fopen(full.c_str(), "rb");
    if (f == nullptr)
        return false;
    std::vector<char> text(kMaxFileBytes);
    const size_t n = std::fread(text.data(), 1, text.size(), f);
    std::fclose(f);
    if (n == text.size())
        vyFrameworkLog("key map %s: longer than %zu bytes, the rest is ignored !!!\n", full.c_str(),
                       kMaxFileBytes);
    parse(text.data(), n, full.c_str());
    return true;
}

void VyKeyMap::parse(const char* text, size_t size, const char* origin) {
    // Lines the ini grammar would silently skip are reported here, so a typo shows.
    size_t start = 0;
    int lineNumber = 0;
    while (start < size) {
        size_t end = start;
        while (end < size && text[end] != '\n')
            ++end;
        ++lineNumber;
        const std::string line(text + start, end - start);
        if (!isBlankLine(line) && line.find('=') == std::string::npos &&
            line.find('[') == std::string::npos) {
            ++m_rejected;
            vyFrameworkLog("key map %s: line %d \"%s\" is not code=value, ignored !!!\n", origin,
                           lineNumber, line.c_str());
        }
        start = end + 1;
    }

    VyIniParser::Map entries;
    VyIniParser(entries).parseText(text, size);
    for (const auto& entry : entries) {
        const VyString& key = entry.first;
        const VyString& value = entry.second;
        bool used = false;
        if (key.startsWith(kKeysSection)) {
            const VyString code = key.mid(int(std::char_traits<char>::length(kKeysSection)));
            int deviceKey = 0;
            if (!code.isEmpty() && strictNumber(value, &deviceKey) && deviceKey >= 1 &&
                uint32_t(deviceKey) <= kMaxDeviceKey) {
                m_keys.insert(code, uint32_t(deviceKey));
                used = true;
            }
        } else if (key.startsWith(kLampsSection)) {
            const VyString command = key.mid(int(std::char_traits<char>::length(kLampsSection)));
            int number = -1;
            const VyStringList parts = value.split(',');
            Lamp lamp;
            lamp.led = parts.isEmpty() ? VyString() : parts.at(0).trimmed();
            bool ok = strictNumber(command, &number) && number >= 0 && number <= kMaxLampCommand &&
                      safeLedName(lamp.led) && parts.size() <= 2;
            if (ok && parts.size() == 2)
                ok = strictNumber(parts.at(1), &lamp.brightness) && lamp.brightness >= 0 &&
                     lamp.brightness <= kMaxBrightness;
            if (ok) {
                m_lamps.insert(number, lamp);
                used = true;
            }
        }
        if (!used) {
            ++m_rejected;
            vyFrameworkLog("key map %s: \"%s=%s\" ignored !!!\n", origin, key.c_str(),
                           value.c_str());
        }
    }
}

uint32_t VyKeyMap::deviceKey(const VyString& code) const {
    return m_keys.value(code, 0);
}

const VyKeyMap::Lamp* VyKeyMap::lamp(int command) const {
    auto it = m_lamps.find(command);
    return it == m_lamps.end() ? nullptr : &it->second;
}
