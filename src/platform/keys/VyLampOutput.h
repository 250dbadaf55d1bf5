#pragma once
// Where front-panel lamp commands go when there is no panel library: to an LED of the Linux
// LED class when a key map names one for the command, otherwise to the "lamps" debug
// channel (VY_DEBUG=lamps), so that a board without LEDs and a PC still show what the GUI
// asked for.
#include <functional>
#include <mutex>

#include "platform/keys/VyKeyMap.h"
#include "runtime/VyString.h"

class VyLampOutput {
public:
    // Writes a brightness to "<ledRoot>/<led>/brightness"; replaceable by tests.
    using Writer = std::function<bool(const VyString& path, int brightness)>;
    static constexpr const char* kLedRoot = "/sys/class/leds";

    explicit VyLampOutput(Writer writer = {});

    // Adds the lamps of a key map (later maps win for the same command).
    void addMap(const VyKeyMap& map);
    void command(int command);
    void commandWithData(int command, unsigned int data);

private:
    void drive(int command, int fallbackBrightness, bool withData, unsigned int data);

    Writer m_writer;
    std::mutex m_mutex; // guards m_lamps: maps are added by readers, commands come from two threads
    VyMap<int, VyKeyMap::Lamp> m_lamps;
};
