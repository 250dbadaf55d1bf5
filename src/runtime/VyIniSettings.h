#pragma once
// An ini file read into a sorted map from full key ("Section/Key") to value text. Used for the
// common and per-view style sheets and for the device customisation file.
#include <cstddef>

#include "runtime/VyColor.h"
#include "runtime/VyMap.h"
#include "runtime/VyString.h"

class VyIniSettings {
public:
    using Map = VyMap<VyString, VyString>;

    VyIniSettings() = default;
    // Reads the whole file. With openOnly the file is only opened and closed, so the map
    // stays empty. An unreadable file prints "open ini file failed" with the system's reason.
    explicit VyIniSettings(const VyString& path, bool openOnly = false);

    // The same grammar over bytes already in memory.
    static VyIniSettings fromText(const char* data, size_t size);

    // True when the file could be opened (whatever it held).
    bool isOpened() const { return m_opened; }
    bool isEmpty() const { return m_map.isEmpty(); }
    const Map& map() const { return m_map; }

    // The stored text, or an empty text for a missing key.
    VyString value(const VyString& key) const;
    // The value parsed as a colour (see VyIniParser::parseColor). A missing key reads as an
    // empty value, i.e. transparent black; only an empty map answers an invalid colour.
    VyColor color(const VyString& key) const;
    // The value read as a decimal integer up to its first non-digit; 0 when unparsable.
    int intValue(const VyString& key) const;

private:
    Map m_map;
    bool m_opened = false;
};
