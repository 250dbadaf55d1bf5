#include "runtime/VyIniSettings.h"

#include <cstdio>

#include "runtime/VyIniParser.h"

VyIniSettings::VyIniSettings(const VyString& path, bool openOnly) {
    FILE* file = std::fopen(path.c_str(), "r");
    if (!file) {
        std::perror("open ini file failed");
        return;
    }
    m_opened = true;
    if (!openOnly) {
        VyIniParser parser(m_map);
        char line[VyIniParser::kLineBufferSize];
        while (std::fgets(line, sizeof line, file))
            parser.parseLine(line);
    }
    std::fclose(file);
}

VyIniSettings VyIniSettings::fromText(const char* data, size_t size) {
    VyIniSettings settings;
    settings.m_opened = true;
    VyIniParser(settings.m_map).parseText(data, size);
    return settings;
}

VyString VyIniSettings::value(const VyString& key) const {
    auto it = m_map.find(key);
    return it == m_map.end() ? VyString() : it->second;
}

VyColor VyIniSettings::color(const VyString& key) const {
    if (m_map.isEmpty())
        return VyColor();
    auto it = m_map.find(key);
    return VyIniParser::parseColor(it == m_map.end() ? "" : it->second.c_str());
}

int VyIniSettings::intValue(const VyString& key) const {
    auto it = m_map.find(key);
    return it == m_map.end() ? 0 : it->second.toInt();
}
