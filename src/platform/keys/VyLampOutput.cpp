#include "platform/keys/VyLampOutput.h"

#include "runtime/VyLog.h"

#include <cstdio>

namespace {

bool writeSysfs(const VyString& path, int brightness) {
    std::FILE* f = std::fopen(path.c_str(), "w");
    if (f == nullptr)
        return false;
    const bool ok = std::fprintf(f, "%d\n", brightness) > 0;
    return std::fclose(f) == 0 && ok;
}

} // namespace

VyLampOutput::VyLampOutput(Writer writer)
    : m_writer(writer ? std::move(writer) : Writer(&writeSysfs)) {}

void VyLampOutput::addMap(const VyKeyMap& map) {
    std::lock_guard<std::mutex> lock(m_mutex);
    for (const auto& entry : map.lamps())
        m_lamps.insert(entry.first, entry.second);
}

void VyLampOutput::command(int command) {
    drive(command, 1, false, 0);
}

void VyLampOutput::commandWithData(int command, unsigned int data) {
    drive(command, int(data & 0xFF), true, data);
}

void VyLampOutput::drive(int command, int fallbackBrightness, bool withData, unsigned int data) {
    VyKeyMap::Lamp lamp;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        auto it = m_lamps.find(command);
        if (it != m_lamps.end())
            lamp = it->second;
    }
    if (lamp.led.isEmpty()) {
        if (withData)
            VY_DEBUG("lamps", "lamp command %d data %u", command, data);
        else
            VY_DEBUG("lamps", "lamp command %d", command);
        return;
    }
    const int brightness = lamp.brightness >= 0 ? lamp.brightness : fallbackBrightness;
    const VyString path = VyString(kLedRoot) + "/" + lamp.led + "/brightness";
    if (!m_writer(path, brightness))
        VY_DEBUG("lamps", "lamp command %d: cannot write %s", command, path.c_str());
}
